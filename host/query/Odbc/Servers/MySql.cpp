#include <fmt/format.h>

#include <array>

#include "host/query/MariaDb/Checks.h"
#include "host/query/MariaDb/Fault.h"
#include "host/query/MariaDb/Flavour.h"
#include "host/query/MariaDb/Rules.h"
#include "host/query/MariaDb/Script.h"
#include "host/query/MySqlHelpers.h"
#include "host/query/Odbc/Server.h"

namespace zanhost {

namespace {

constexpr std::array<std::string_view, 2> kProductNames{"MariaDB", "MySQL"};

// What the engine for MariaDB sets, but for "set names", which the driver keeps for itself: the character set
// is an attribute of the connection.
// clang-format off
constexpr std::string_view kSettings =
    "set session collation_connection = utf8mb4_nopad_bin,"
    " session sql_mode = 'STRICT_TRANS_TABLES,NO_ENGINE_SUBSTITUTION,NO_BACKSLASH_ESCAPES,PIPES_AS_CONCAT',"
    " session tx_isolation = 'READ-COMMITTED',"
    " session innodb_lock_wait_timeout = {0},"
    " session lock_wait_timeout = {0},"
    " session max_statement_time = {1}";
// clang-format on

std::vector<std::string> SessionSettings(const TOdbcLimits& limits) {
  return {fmt::format(kSettings, limits.Busy.count(), limits.Statement.count())};
}

std::string UseDatabase(const std::string& name) { return "use " + QuotedMariaDbName(name); }

void Inspect(const TInspection& inspection) {
  InspectMariaDb(inspection, MariaDbFlavourOf(zanrole::TDialect::MySql).Routines);
}

/// The driver takes the statements inside a routine for several of the text, and crashes when it is asked for
/// the answer of the second.
bool MayHaveSeveralAnswers(const TTokens& tokens) { return !tokens.empty() && tokens[0].IsWord("call"); }

/// The statements of a batch, each adapted.
std::string AdaptedStatements(const std::string& batch) {
  std::string adapted;
  for (TTokens& statement : SplitStatements(batch).Statements) {
    Adapt(statement, MariaDbRules());
    adapted += TokensToText(statement) + ";";
  }
  return adapted;
}

/// The text of a batch stays the argument of the stored routine: the driver sends one statement a call.
std::string AdaptForRoutine(TTokens& tokens) {
  try {
    const std::string text = TokensToText(tokens);
    if (const auto batch = StatementsOfCall(text))
      return "call MySql_execute_MultiSql(" + zanrole::QuotedStr(AdaptedStatements(*batch)) + ")";
  } catch (const TMariaDbFault& fault) {
    throw TOdbcFault{fault.Message, fault.Kind};
  }
  Adapt(tokens, MariaDbRules());
  return TokensToText(tokens);
}

constexpr std::array kTroubles{
    TOdbcTroubleNumber{1053, TOdbcTrouble::Lost},
    TOdbcTroubleNumber{1927, TOdbcTrouble::Lost},
    TOdbcTroubleNumber{2006, TOdbcTrouble::Lost},
    TOdbcTroubleNumber{2013, TOdbcTrouble::Lost},
    TOdbcTroubleNumber{2055, TOdbcTrouble::Lost},
    TOdbcTroubleNumber{5014, TOdbcTrouble::Lost},
    TOdbcTroubleNumber{2002, TOdbcTrouble::Unreachable},
    TOdbcTroubleNumber{2003, TOdbcTrouble::Unreachable},
    TOdbcTroubleNumber{2005, TOdbcTrouble::Unreachable},
    TOdbcTroubleNumber{1045, TOdbcTrouble::NoEntry},
    TOdbcTroubleNumber{1698, TOdbcTrouble::NoEntry},
    TOdbcTroubleNumber{1040, TOdbcTrouble::TooManyConnections},
    TOdbcTroubleNumber{1203, TOdbcTrouble::TooManyConnections},
    TOdbcTroubleNumber{1205, TOdbcTrouble::Busy},
    TOdbcTroubleNumber{1213, TOdbcTrouble::Deadlock},
    TOdbcTroubleNumber{1317, TOdbcTrouble::Cancelled},
    TOdbcTroubleNumber{1969, TOdbcTrouble::TooSlow},
    TOdbcTroubleNumber{1021, TOdbcTrouble::DiskFull},
    TOdbcTroubleNumber{1114, TOdbcTrouble::DiskFull},
    TOdbcTroubleNumber{1036, TOdbcTrouble::ReadOnly},
    TOdbcTroubleNumber{1290, TOdbcTrouble::ReadOnly},
    TOdbcTroubleNumber{1792, TOdbcTrouble::ReadOnly},
    TOdbcTroubleNumber{1062, TOdbcTrouble::DoubleKey},
    TOdbcTroubleNumber{1048, TOdbcTrouble::RepeatsNoText},  // a null where none may be
    TOdbcTroubleNumber{1049, TOdbcTrouble::RepeatsNoText},  // no such database
    TOdbcTroubleNumber{1054, TOdbcTrouble::RepeatsNoText},  // no such column
    TOdbcTroubleNumber{1146, TOdbcTrouble::RepeatsNoText},  // no such table
    TOdbcTroubleNumber{1406, TOdbcTrouble::RepeatsNoText},  // a text that is too long
};

}  // namespace

const TOdbcServer& MySqlOnOdbc() {
  static constexpr TOdbcServer kServer{
      .Server = TServerKind::MariaDb,
      .ProductNames = kProductNames,
      .Family = MySqlFamily,
      .SessionSettings = SessionSettings,
      .Inspect = Inspect,
      .DatabaseInUse = "select database()",
      .UseDatabase = UseDatabase,
      .Adapt = AdaptForRoutine,
      .Batches = TOdbcBatchWay::StatementByStatement,
      .Transaction = {"start transaction", "commit", "rollback"},
      .MayHaveSeveralAnswers = MayHaveSeveralAnswers,
      .DriverLimitsTime = false,
      .TakeLateInterrupt = "do 0",
      .SplitScript = SplitMariaDbScript,
      .Troubles = kTroubles,
      .BackupAdvice =
          "A copy of databases on a MariaDB server is made with the server's own program: "
          "mariadb-dump --single-transaction --routines --databases DATA SYSTEM > FILE",
  };
  return kServer;
}

}  // namespace zanhost
