#include "host/query/Sqlite/Fault.h"

#include <fmt/format.h>

#include "host/query/DoubleKey.h"

namespace zanhost {

namespace {

std::string DescribeStop(const TFaultContext& context) {
  if (context.OutOfTime)
    return fmt::format(
        "The statement was stopped after {:g} seconds. It reads too much, or it follows a loop in the data "
        "(a "
        "record that is its own superior).",
        context.StatementSeconds);
  return "The statement was cancelled.";
}

std::string DescribeOpening(const TFaultContext& context) {
  return fmt::format("The database '{}' cannot be opened. See that its folder exists and may be written.",
                     context.File);
}

/// The sentence for a fault of the machine or of another program; empty for a fault of the statement.
std::string DescribeTrouble(int code, const TFaultContext& context) {
  switch (code & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      if (context.Interrupted) return DescribeStop(context);
      return fmt::format(
          "The database is busy: another session has been writing for {:g} seconds. Nothing was changed; try "
          "again.",
          context.BusySeconds);
    case SQLITE_INTERRUPT:
      return DescribeStop(context);
    case SQLITE_FULL:
      return fmt::format("The disk of '{}' is full. Nothing was changed.", context.File);
    case SQLITE_READONLY:
      return fmt::format("The database '{}' can only be read.", context.File);
    case SQLITE_CORRUPT:
      return fmt::format("The database '{}' is damaged. Bring back a backup of it.", context.File);
    case SQLITE_NOTADB:
      return fmt::format("The file '{}' is no database.", context.File);
    case SQLITE_CANTOPEN:
      return DescribeOpening(context);
    case SQLITE_PERM:
      return fmt::format("There is no permission to use the database '{}'.", context.File);
    case SQLITE_IOERR:
      return fmt::format("The database '{}' could not be read or written. See its disk.", context.File);
    case SQLITE_NOMEM:
      return "There is not enough memory for the statement.";
    default:
      return {};
  }
}

bool IsDoubleKey(int code) {
  return code == SQLITE_CONSTRAINT_PRIMARYKEY || code == SQLITE_CONSTRAINT_UNIQUE ||
         code == SQLITE_CONSTRAINT_ROWID;
}

}  // namespace

TSqliteFault DescribeFault(sqlite3* connection, int code, const TFaultContext& context) {
  // The engine has several codes and messages for what it was not allowed to do.
  if (!context.Refusal.empty()) return {context.Refusal, sqlite3_errstr(SQLITE_AUTH)};
  const int extended = connection != nullptr ? sqlite3_extended_errcode(connection) : code;
  const int known = (extended & 0xff) == (code & 0xff) ? extended : code;
  TSqliteFault fault{DescribeTrouble(known, context), sqlite3_errstr(known)};
  if (fault.Message.empty()) fault.Message = connection != nullptr ? sqlite3_errmsg(connection) : fault.Kind;
  if (IsDoubleKey(known)) fault.Message = DescribeDoubleKey(fault.Message);
  return fault;
}

}  // namespace zanhost
