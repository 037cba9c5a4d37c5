#pragma once

#include <string>
#include <vector>

#include "host/query/Database.h"
#include "host/query/Inspection.h"

namespace zanhost {

/// Asks the server what the session's account may do: it may read tables of the databases and nothing else,
/// and no column that may hold a password. Raises EDatabaseError that says what the account may do besides;
/// passes on what asking throws.
void InspectRestrictedAccount(const TInspection& inspection);

/// The statements that give an account of the server the rights of a restricted session: to read the tables
/// that are there now, and of those with secret columns the other columns. `account` is NAME or NAME@HOST and
/// must be there when the statements run. Raises EZanError for databases that are on no MariaDB server.
std::vector<std::string> RestrictedAccountGrants(TDatabase& database, const std::string& account);

}  // namespace zanhost
