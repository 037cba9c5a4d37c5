#include "host/query/MariaDb/Fault.h"

#include <errmsg.h>
#include <fmt/format.h>
#include <mysqld_error.h>

#include "host/query/DoubleKey.h"

namespace zanhost {

namespace {

bool IsLostConnection(unsigned number) {
  switch (number) {
    case CR_SERVER_GONE_ERROR:
    case CR_SERVER_LOST:
    case CR_SERVER_LOST_EXTENDED:
    case ER_CONNECTION_KILLED:
    case ER_SERVER_SHUTDOWN:
    case ER_NEW_ABORTING_CONNECTION:
    case ER_NET_READ_ERROR:
    case ER_NET_READ_INTERRUPTED:
      return true;
    default:
      return false;
  }
}

/// " (for column 'Password' in table 'stusers')": the end of the server's words, without the account before
/// it.
std::string DeniedObject(const std::string& text) {
  const std::size_t behindAccount = text.find("' for ");
  if (behindAccount == std::string::npos) return {};
  return fmt::format(" ({})", text.substr(behindAccount + 2));
}

/// Troubles of being let in by the server; empty for any other.
std::string DescribeReaching(const TMariaDbError& error, const TMariaDbFaultContext& context) {
  switch (error.Number) {
    case CR_CONNECTION_ERROR:
    case CR_CONN_HOST_ERROR:
    case CR_UNKNOWN_HOST:
      return fmt::format("The database server {} cannot be reached ({}). See that it runs.", context.Server,
                         error.Text);
    case ER_ACCESS_DENIED_ERROR:
    case ER_ACCESS_DENIED_NO_PASSWORD_ERROR:
      return fmt::format("The database server {} does not let the user '{}' in with the password given.",
                         context.Server, context.User);
    case ER_TABLEACCESS_DENIED_ERROR:
    case ER_COLUMNACCESS_DENIED_ERROR:
    case ER_PROCACCESS_DENIED_ERROR:
      if (context.Restricted)
        return fmt::format("The database server does not let the restricted user do this{}.",
                           DeniedObject(error.Text));
      return fmt::format(
          "The database server {} does not let the user '{}' do this ({}). Nothing was changed; give that "
          "user "
          "the right on the server.",
          context.Server, context.User, error.Text);
    case ER_CON_COUNT_ERROR:
    case ER_TOO_MANY_USER_CONNECTIONS:
      return fmt::format(
          "The database server {} takes no more connections. Try again later, or raise its "
          "setting max_connections.",
          context.Server);
    default:
      return {};
  }
}

/// Troubles of machine, server or other sessions; empty for a fault of the statement.
std::string DescribeTrouble(unsigned number, const TMariaDbFaultContext& context) {
  switch (number) {
    case ER_LOCK_WAIT_TIMEOUT:
      return fmt::format(
          "The database is busy: another session has been writing for {:g} seconds. Nothing was "
          "changed; try again.",
          context.BusySeconds);
    case ER_LOCK_DEADLOCK:
      return "The database is busy: another session writes to the same rows. Nothing was changed; try again.";
    case ER_QUERY_INTERRUPTED:
      return "The statement was cancelled.";
    case ER_STATEMENT_TIMEOUT:
      return fmt::format("The statement was stopped after {:g} seconds. It reads too much.",
                         context.StatementSeconds);
    case ER_RECORD_FILE_FULL:
    case ER_DISK_FULL:
      return fmt::format("The disk of the database server {} is full. Nothing was changed.", context.Server);
    case ER_OPEN_AS_READONLY:
    case ER_OPTION_PREVENTS_STATEMENT:
    case ER_CANT_EXECUTE_IN_READ_ONLY_TRANSACTION:
      if (context.Restricted) return "The statement does something else than reading, and is not run here.";
      return fmt::format("The database server {} can only be read.", context.Server);
    case ER_NET_PACKET_TOO_LARGE:
      return fmt::format(
          "The statement is too long for the database server {}. Raise its setting "
          "max_allowed_packet.",
          context.Server);
    case ER_BINLOG_UNSAFE_ROUTINE:
    case ER_BINLOG_CREATE_ROUTINE_NEED_SUPER:
      return fmt::format(
          "The database server {} writes a binary log and lets this user make no routines. Set "
          "log_bin_trust_function_creators=1 on it.",
          context.Server);
    default:
      return {};
  }
}

/// The messages of these errors name tables, columns and keys. The one value that they repeat is that of a
/// double key, and no key holds a password.
bool RepeatsNoText(unsigned number) {
  switch (number) {
    case ER_DUP_ENTRY:
    case ER_DATA_TOO_LONG:
    case ER_BAD_NULL_ERROR:
    case ER_NO_SUCH_TABLE:
    case ER_BAD_FIELD_ERROR:
    case ER_BAD_DB_ERROR:
    case ER_DBACCESS_DENIED_ERROR:
      return true;
    default:
      return false;
  }
}

}  // namespace

TMariaDbError ErrorOf(MYSQL* connection) {
  return {mysql_errno(connection), mysql_sqlstate(connection), mysql_error(connection)};
}

TMariaDbError ErrorOf(MYSQL_STMT* statement) {
  return {mysql_stmt_errno(statement), mysql_stmt_sqlstate(statement), mysql_stmt_error(statement)};
}

TMariaDbFault DescribeFault(const TMariaDbError& error, const TMariaDbFaultContext& context) {
  TMariaDbFault fault;
  fault.Kind = fmt::format("error {} ({})", error.Number, error.State);
  fault.ConnectionLost = IsLostConnection(error.Number);
  fault.Stopped = error.Number == ER_QUERY_INTERRUPTED || error.Number == ER_STATEMENT_TIMEOUT;
  if (fault.ConnectionLost) {
    fault.Message = fmt::format(
        "The connection to the database server {} was lost. It is not known whether the last step was done: "
        "look, and try again.",
        context.Server);
    return fault;
  }
  fault.Message = DescribeReaching(error, context);
  if (fault.Message.empty()) fault.Message = DescribeTrouble(error.Number, context);
  if (!fault.Message.empty()) return fault;
  fault.Message = error.Number == ER_DUP_ENTRY ? DescribeDoubleKey(error.Text) : error.Text;
  fault.QuotesValues = !RepeatsNoText(error.Number);
  return fault;
}

}  // namespace zanhost
