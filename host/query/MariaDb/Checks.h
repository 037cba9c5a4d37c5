#pragma once

#include <string>
#include <vector>

#include "host/query/MariaDb/Connection.h"

namespace zanhost {

// What is looked at when a session connects. Each raises EDatabaseError that says in plain words what is
// wrong and how to set it, or TMariaDbFault when asking fails.

/// The server: MariaDB of a version that is new enough, names of tables without regard to case, a binary log
/// that takes the session's transactions.
void CheckMariaDbServer(TMariaDbConnection& connection);

/// The database: it is there, and new tables in it compare texts exactly. It is made when `mode` says so.
void CheckMariaDbDatabase(TMariaDbConnection& connection, const std::string& database, TOpenMode mode);

/// The stored routines that the statements call.
void CheckMariaDbRoutines(TMariaDbConnection& connection, const std::string& database);

/// `name`, for a statement.
std::string QuotedMariaDbName(const std::string& name);

}  // namespace zanhost
