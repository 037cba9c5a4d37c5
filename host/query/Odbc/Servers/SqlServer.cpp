#include <fmt/format.h>

#include <array>

#include "host/query/LineScript.h"
#include "host/query/Odbc/Server.h"
#include "host/query/Odbc/Servers/Rules.h"
#include "host/query/SqlServerHelpers.h"

namespace zanhost {

namespace {

constexpr std::array<std::string_view, 1> kProductNames{"Microsoft SQL Server"};

std::string Quoted(const std::string& name) { return "[" + zanrole::StringReplace(name, "]", "]]") + "]"; }

// A statement that fails ends its batch and takes the transaction back. Dates are written year first. The
// settings from "ansi_nulls" on are those under which filtered indexes can be written to.
// clang-format off
constexpr std::string_view kSettings =
    "set xact_abort on;"
    " set lock_timeout {};"
    " set dateformat ymd;"
    " set transaction isolation level read committed;"
    " set ansi_nulls on; set ansi_padding on; set ansi_warnings on; set arithabort on;"
    " set concat_null_yields_null on; set quoted_identifier on; set numeric_roundabort off";

constexpr std::string_view kInspect =
    "select convert(nvarchar(200), collation_name), convert(int, is_read_committed_snapshot_on)"
    " from sys.databases where name = N{}";
// clang-format on

std::vector<std::string> SessionSettings(const TOdbcLimits& limits) {
  return {fmt::format(kSettings, std::chrono::milliseconds(limits.Busy).count())};
}

void MakeDatabase(const TInspection& inspection, const std::string& name) {
  inspection.Ask("create database " + Quoted(name) + " collate Latin1_General_100_CI_AS");
  inspection.Ask("alter database " + Quoted(name) +
                 " set read_committed_snapshot on with rollback immediate");
}

void InspectDatabase(const TInspection& inspection, const std::string& name) {
  const std::string question = fmt::format(kInspect, zanrole::QuotedStr(name));
  TTextRows found = inspection.Ask(question);
  if (found.empty() && inspection.Mode == TOpenMode::CreateIfMissing) {
    MakeDatabase(inspection, name);
    found = inspection.Ask(question);
  }
  if (found.empty())
    throw zanrole::EDatabaseError(
        fmt::format("There is no database '{}' on the server {}, or the user '{}' may not see it. Make "
                    "database and tables with: zanhost schema --data URL",
                    name, inspection.Server, inspection.User),
        {});
  const std::string& collation = found[0][0];
  if (collation.find("_CI") == std::string::npos)
    throw zanrole::EDatabaseError(
        fmt::format("The database '{}' has the collation {}, and the statements name one table in several "
                    "cases. Use a database with a collation without regard to case (_CI).",
                    name, collation),
        {});
  if (found[0][1] != "1")
    throw zanrole::EDatabaseError(
        fmt::format("In the database '{0}' readers wait for writers. Set: alter database {1} set "
                    "read_committed_snapshot on",
                    name, Quoted(name)),
        {});
}

void Inspect(const TInspection& inspection) {
  for (const std::string& name : inspection.Databases) InspectDatabase(inspection, name);
}

/// A driver reports a failure inside a batch when it is asked for that statement's answer.
bool MayHaveSeveralAnswers(const TTokens&) { return true; }

std::string UseDatabase(const std::string& name) { return "use " + Quoted(name); }

std::vector<std::string_view> SplitScript(std::string_view script) { return SplitAtLines(script, "go"); }

constexpr std::array kTroubles{
    TOdbcTroubleNumber{1222, TOdbcTrouble::Busy},
    TOdbcTroubleNumber{1205, TOdbcTrouble::Deadlock},
    TOdbcTroubleNumber{1105, TOdbcTrouble::DiskFull},
    TOdbcTroubleNumber{9002, TOdbcTrouble::DiskFull},
    TOdbcTroubleNumber{3906, TOdbcTrouble::ReadOnly},
    TOdbcTroubleNumber{18456, TOdbcTrouble::NoEntry},
    TOdbcTroubleNumber{17809, TOdbcTrouble::TooManyConnections},
    TOdbcTroubleNumber{2601, TOdbcTrouble::DoubleKey},
    TOdbcTroubleNumber{2627, TOdbcTrouble::DoubleKey},
    TOdbcTroubleNumber{207, TOdbcTrouble::RepeatsNoText},   // no such column
    TOdbcTroubleNumber{208, TOdbcTrouble::RepeatsNoText},   // no such table
    TOdbcTroubleNumber{229, TOdbcTrouble::RepeatsNoText},   // no right to it
    TOdbcTroubleNumber{515, TOdbcTrouble::RepeatsNoText},   // a null where none may be
    TOdbcTroubleNumber{8152, TOdbcTrouble::RepeatsNoText},  // a text that is too long, without the text
};

}  // namespace

const TOdbcServer& SqlServerOnOdbc() {
  static constexpr TOdbcServer kServer{
      .Server = TServerKind::SqlServer,
      .ProductNames = kProductNames,
      .Family = SqlServerFamily,
      .SessionSettings = SessionSettings,
      .Inspect = Inspect,
      .DatabaseInUse = "select db_name()",
      .UseDatabase = UseDatabase,
      .Adapt = AdaptForSqlServer,
      .Batches = TOdbcBatchWay::OneCall,
      .Transaction = {"begin transaction", "commit transaction", "if @@trancount > 0 rollback transaction"},
      .MayHaveSeveralAnswers = MayHaveSeveralAnswers,
      .DriverLimitsTime = true,
      .TakeLateInterrupt = "",
      .SplitScript = SplitScript,
      .Troubles = kTroubles,
      .BackupAdvice =
          "A copy of databases on SQL Server is made by the server: backup database NAME to "
          "disk = 'FILE'",
  };
  return kServer;
}

}  // namespace zanhost
