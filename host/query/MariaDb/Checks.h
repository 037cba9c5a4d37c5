#pragma once

#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "host/query/Inspection.h"

namespace zanhost {

/// Looks at the server (MariaDB of a version that is new enough, names of tables without regard to case, a
/// binary log that takes the session's transactions), at the databases (they are there, and new tables in
/// them compare texts exactly) and, when all must exist, at the stored `routines` that the statements call.
/// Databases that are missing are made when the mode says so. Raises EDatabaseError that says in plain words
/// what is wrong and how to set it; passes on what asking throws.
void InspectMariaDb(const TInspection& inspection, std::span<const std::string_view> routines);

/// Major and minor number in the server's "10.11.4-MariaDB" or what it says; 0.0 when it says none.
std::pair<int, int> MariaDbVersion(const std::string& version);

/// `name`, for a statement.
std::string QuotedMariaDbName(const std::string& name);

}  // namespace zanhost
