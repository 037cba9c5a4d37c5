#pragma once

#include "host/query/Sqlite/Handles.h"

namespace zanhost {

/// Registers what the statements call and SQLite lacks:
///   getdate()              local time as 'YYYY-MM-DD HH:MM:SS'
///   str(x[, n])            x rounded to an integer, right-aligned in n places (default 10); asterisks when
///   too long DB_NAME()              the prefix of the one database, "main" left_characters(x, n)  the first
///   n characters
/// Gives SQLite's code of the first failure, or SQLITE_OK.
int RegisterFunctions(sqlite3* connection);

}  // namespace zanhost
