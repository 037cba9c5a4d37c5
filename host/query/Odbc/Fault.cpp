#include "host/query/Odbc/Fault.h"

#include <fmt/format.h>

#include <algorithm>

#include "Frame/Host/Classes.h"
#include "host/query/DoubleKey.h"
#include "host/query/Redaction.h"

namespace zanhost {

namespace {

/// What SQLSTATE says, where the server's number says nothing.
TOdbcTrouble TroubleOfState(std::string_view state) {
  if (state == "08001" || state == "08004") return TOdbcTrouble::Unreachable;
  if (state.starts_with("08")) return TOdbcTrouble::Lost;
  if (state == "28000") return TOdbcTrouble::NoEntry;
  if (state == "40001") return TOdbcTrouble::Deadlock;
  if (state == "HY008") return TOdbcTrouble::Cancelled;
  if (state == "HYT00" || state == "HYT01") return TOdbcTrouble::TooSlow;
  return TOdbcTrouble::None;
}

TOdbcTrouble TroubleOf(const TOdbcError& error, std::span<const TOdbcTroubleNumber> troubles) {
  const auto known = std::ranges::find(troubles, error.Number, &TOdbcTroubleNumber::Number);
  if (error.Number != 0 && known != troubles.end()) return known->Trouble;
  const TOdbcTrouble trouble = TroubleOfState(error.State);
  return trouble == TOdbcTrouble::None && error.Dead ? TOdbcTrouble::Lost : trouble;
}

/// The sentence of a trouble; empty when the server's words are to be told.
std::string SentenceOf(TOdbcTrouble trouble, const TOdbcError& error, const TOdbcFaultContext& context) {
  switch (trouble) {
    case TOdbcTrouble::Lost:
      return fmt::format(
          "The connection to the database server {} was lost. It is not known whether the last step was "
          "done: look, and try again.",
          context.Server);
    case TOdbcTrouble::Unreachable:
      return fmt::format("The database server {} cannot be reached ({}). See that it runs.", context.Server,
                         error.Text);
    case TOdbcTrouble::NoEntry:
      return fmt::format("The database server {} does not let the user '{}' in with the password given.",
                         context.Server, context.User);
    case TOdbcTrouble::TooManyConnections:
      return fmt::format("The database server {} takes no more connections. Try again later.",
                         context.Server);
    case TOdbcTrouble::Busy:
      return fmt::format(
          "The database is busy: another session has been writing for {} seconds. Nothing was changed; try "
          "again.",
          context.Limits.Busy.count());
    case TOdbcTrouble::Deadlock:
      return "The database is busy: another session writes to the same rows. Nothing was changed; try again.";
    case TOdbcTrouble::Cancelled:
      return "The statement was cancelled.";
    case TOdbcTrouble::TooSlow:
      return fmt::format("The statement was stopped after {} seconds. It reads too much.",
                         context.Limits.Statement.count());
    case TOdbcTrouble::DiskFull:
      return fmt::format("The disk of the database server {} is full. Nothing was changed.", context.Server);
    case TOdbcTrouble::ReadOnly:
      return fmt::format("The database server {} can only be read.", context.Server);
    case TOdbcTrouble::DoubleKey:
      return DescribeDoubleKey(error.Text);
    case TOdbcTrouble::None:
    case TOdbcTrouble::RepeatsNoText:
      break;
  }
  return {};
}

}  // namespace

TOdbcFault DescribeOdbcFault(const TOdbcError& error, const TOdbcFaultContext& context) {
  const TOdbcTrouble trouble = TroubleOf(error, context.Troubles);
  TOdbcFault fault;
  fault.Kind = fmt::format("error {} ({})", error.Number, error.State);
  fault.ConnectionLost = error.Dead || trouble == TOdbcTrouble::Lost;
  fault.Message = SentenceOf(trouble, error, context);
  if (fault.Message.empty()) {
    fault.Message = error.Text;
    fault.QuotesValues = trouble != TOdbcTrouble::RepeatsNoText;
  }
  if (!context.Password.empty())
    fault.Message = zanrole::StringReplace(fault.Message, context.Password, kHidden);
  return fault;
}

}  // namespace zanhost
