#include <fmt/format.h>

#include <array>

#include "host/query/LineScript.h"
#include "host/query/Odbc/Server.h"
#include "host/query/Odbc/Servers/Rules.h"
#include "host/query/OracleHelpers.h"

namespace zanhost {

namespace {

constexpr std::array<std::string_view, 1> kProductNames{"Oracle"};

// Texts compare exactly; dates and numbers are written one way, whatever the machine's language.
// clang-format off
constexpr std::string_view kSettings =
    "alter session set nls_comp = 'BINARY' nls_sort = 'BINARY' nls_length_semantics = 'CHAR'"
    " nls_date_format = 'YYYY-MM-DD HH24:MI:SS' nls_timestamp_format = 'YYYY-MM-DD HH24:MI:SS.FF3'"
    " nls_numeric_characters = '.,'";

constexpr std::string_view kReadCharacterSet =
    "select value from nls_database_parameters where parameter = 'NLS_CHARACTERSET'";
// clang-format on

std::vector<std::string> SessionSettings(const TOdbcLimits&) { return {std::string(kSettings)}; }

/// Both databases are schemas of one Oracle database; only its administrator makes them.
void InspectSchema(const TInspection& inspection, const std::string& name) {
  const TTextRows found =
      inspection.Ask("select count(*) from all_users where username = " + zanrole::QuotedStr(name));
  if (found.empty() || found[0][0] == "0")
    throw zanrole::EDatabaseError(
        fmt::format("There is no schema '{}' in the Oracle database {}. Names of schemas are written as "
                    "Oracle keeps them, mostly in capital letters.",
                    name, inspection.Server),
        {});
}

void Inspect(const TInspection& inspection) {
  const TTextRows characterSet = inspection.Ask(std::string(kReadCharacterSet));
  if (characterSet.empty() || characterSet[0][0] != "AL32UTF8")
    throw zanrole::EDatabaseError(
        fmt::format("The Oracle database {} has the character set {}, which does not hold every text. Use a "
                    "database of the character set AL32UTF8.",
                    inspection.Server, characterSet.empty() ? "?" : characterSet[0][0]),
        {});
  for (const std::string& name : inspection.Databases) InspectSchema(inspection, name);
}

bool MayHaveSeveralAnswers(const TTokens&) { return false; }

std::string UseDatabase(const std::string& name) {
  return "alter session set current_schema = \"" + name + "\"";
}

std::vector<std::string_view> SplitScript(std::string_view script) { return SplitAtLines(script, "/"); }

constexpr std::array kTroubles{
    TOdbcTroubleNumber{28, TOdbcTrouble::Lost},
    TOdbcTroubleNumber{1012, TOdbcTrouble::Lost},
    TOdbcTroubleNumber{1089, TOdbcTrouble::Lost},
    TOdbcTroubleNumber{1092, TOdbcTrouble::Lost},
    TOdbcTroubleNumber{3113, TOdbcTrouble::Lost},
    TOdbcTroubleNumber{3114, TOdbcTrouble::Lost},
    TOdbcTroubleNumber{3135, TOdbcTrouble::Lost},
    TOdbcTroubleNumber{12154, TOdbcTrouble::Unreachable},
    TOdbcTroubleNumber{12170, TOdbcTrouble::Unreachable},
    TOdbcTroubleNumber{12514, TOdbcTrouble::Unreachable},
    TOdbcTroubleNumber{12541, TOdbcTrouble::Unreachable},
    TOdbcTroubleNumber{1017, TOdbcTrouble::NoEntry},
    TOdbcTroubleNumber{1, TOdbcTrouble::DoubleKey},
    TOdbcTroubleNumber{20, TOdbcTrouble::TooManyConnections},
    TOdbcTroubleNumber{54, TOdbcTrouble::Busy},
    TOdbcTroubleNumber{30006, TOdbcTrouble::Busy},
    TOdbcTroubleNumber{60, TOdbcTrouble::Deadlock},
    TOdbcTroubleNumber{1013, TOdbcTrouble::Cancelled},
    TOdbcTroubleNumber{1652, TOdbcTrouble::DiskFull},
    TOdbcTroubleNumber{1653, TOdbcTrouble::DiskFull},
    TOdbcTroubleNumber{16000, TOdbcTrouble::ReadOnly},
    TOdbcTroubleNumber{1, TOdbcTrouble::RepeatsNoText},      // a key that is there already
    TOdbcTroubleNumber{904, TOdbcTrouble::RepeatsNoText},    // no such column
    TOdbcTroubleNumber{942, TOdbcTrouble::RepeatsNoText},    // no such table
    TOdbcTroubleNumber{1400, TOdbcTrouble::RepeatsNoText},   // a null where none may be
    TOdbcTroubleNumber{12899, TOdbcTrouble::RepeatsNoText},  // a text that is too long
};

}  // namespace

const TOdbcServer& OracleOnOdbc() {
  static constexpr TOdbcServer kServer{
      .Server = TServerKind::Oracle,
      .ProductNames = kProductNames,
      .Family = OracleFamily,
      .SessionSettings = SessionSettings,
      .Inspect = Inspect,
      .DatabaseInUse = "select sys_context('USERENV', 'CURRENT_SCHEMA') from dual",
      .UseDatabase = UseDatabase,
      .Adapt = AdaptForOracle,
      .Batches = TOdbcBatchWay::OneCall,
      .Transaction = {},
      .MayHaveSeveralAnswers = MayHaveSeveralAnswers,
      .DriverLimitsTime = true,
      .TakeLateInterrupt = "",
      .SplitScript = SplitScript,
      .Troubles = kTroubles,
      .BackupAdvice =
          "A copy of an Oracle database is made with the server's own program: expdp USER "
          "schemas=DATA,SYSTEM",
  };
  return kServer;
}

}  // namespace zanhost
