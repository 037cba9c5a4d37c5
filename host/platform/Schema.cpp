#include "host/platform/Schema.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <vector>

#include "host/platform/SchemaFiles.h"

namespace zanhost {

namespace {

// clang-format off
constexpr std::string_view kFindVersionTableSqlite =
    "select 1 from sqlite_master where type = 'table' and name = 'ZanSchemaVersion'";
constexpr std::string_view kFindVersionTableMariaDb =
    "select 1 from information_schema.tables\n"
    "where table_schema = database() and table_name = 'zanschemaversion'";

constexpr std::string_view kFindVersionTableSqlServer =
    "select 1 from sys.tables where name = 'ZanSchemaVersion'";
constexpr std::string_view kFindVersionTableOracle =
    "select 1 from all_tables\n"
    "where owner = sys_context('USERENV', 'CURRENT_SCHEMA') and table_name = 'ZANSCHEMAVERSION'";

// A later program may have been faster while this one waited for the lock: its version stays.
constexpr std::string_view kNoteVersionSqlite =
    "\n"
    "delete from ZanSchemaVersion where Version < {0};\n"
    "insert into ZanSchemaVersion (Version, InstalledAt)\n"
    "select {0}, datetime('now', 'localtime')\n"
    "where not exists (select 1 from ZanSchemaVersion where Version >= {0});\n";
constexpr std::string_view kNoteVersionMariaDb =
    "\n"
    "delete from ZanSchemaVersion where Version < {0};\n"
    "insert ignore into ZanSchemaVersion (Version, InstalledAt)\n"
    "select {0}, now() from dual\n"
    "where not exists (select 1 from ZanSchemaVersion where Version >= {0});\n";
// clang-format on

bool IsMariaDb(TDatabase& database) { return database.Server() == TServerKind::MariaDb; }

std::string_view FindVersionTable(TServerKind server) {
  switch (server) {
    case TServerKind::MariaDb:
      return kFindVersionTableMariaDb;
    case TServerKind::SqlServer:
      return kFindVersionTableSqlServer;
    case TServerKind::Oracle:
      return kFindVersionTableOracle;
    case TServerKind::Sqlite:
      break;
  }
  return kFindVersionTableSqlite;
}

bool HasVersionTable(TDatabase& database) {
  const auto query = database.GetQuery();
  query->SQL().SetText(FindVersionTable(database.Server()));
  query->Open();
  return !query->Eof();
}

std::string SqliteScript() {
  std::string script;
  for (const TSchemaFile& file : SqliteSchemaFiles()) script += file.Text;
  return script += fmt::format(kNoteVersionSqlite, kSchemaVersion);
}

/// The scripts for Oracle, with MariaDB's own in place of those that it cannot run.
std::vector<TSchemaFile> OracleModeFiles() {
  const auto scripts = OracleSchemaFiles();
  std::vector<TSchemaFile> files(scripts.begin(), scripts.end());
  for (const TSchemaFile& own : MariaDbOracleSchemaFiles()) {
    const auto replaced = std::ranges::find(files, own.Name, &TSchemaFile::Name);
    if (replaced != files.end()) replaced->Text = own.Text;
  }
  return files;
}

std::vector<TSchemaFile> MariaDbFiles(zanrole::TDialect dialect) {
  if (dialect == zanrole::TDialect::Oracle) return OracleModeFiles();
  const auto scripts = MySqlSchemaFiles();
  return {scripts.begin(), scripts.end()};
}

std::string UseDatabaseOf(zanrole::TZANQuery& query) {
  query.SQL().SetText("select database()");
  query.Open();
  return fmt::format("use `{}`;\n", zanrole::StringReplace(query.Fields(0).AsString(), "`", "``"));
}

/// The tables of both databases when `withTables` is set, and the routines in each.
std::string MariaDbScript(TDatabase& database, bool withTables) {
  const std::string useData = UseDatabaseOf(*database.GetQuery());
  const std::string useSystem = UseDatabaseOf(*database.GetSysQuery());
  const auto isNamed = [](const TSchemaFile& file, std::string_view word) {
    return file.Name.find(word) != std::string_view::npos;
  };
  std::string script;
  for (const TSchemaFile& file : MariaDbFiles(database.Dialect())) {
    if (isNamed(file, "routines") || isNamed(file, "helpers")) {
      script.append(useData).append(file.Text).append(useSystem).append(file.Text);
    } else if (withTables) {
      script.append(isNamed(file, "system") ? useSystem : useData).append(file.Text);
    }
  }
  return script + useData + fmt::format(kNoteVersionMariaDb, kSchemaVersion);
}

/// These servers are set up with their own clients, which know where a statement of the files ends.
void RefuseServerWithClient(TServerKind server) {
  const bool isOracle = server == TServerKind::Oracle;
  if (!isOracle && server != TServerKind::SqlServer) return;
  throw zanrole::EZanError(
      fmt::format("Tables on this server are made with its own command line client: run the files of {} in "
                  "their order, then insert the version, {}, into ZanSchemaVersion.",
                  isOracle ? "schema/oracle" : "schema/sqlserver", kSchemaVersion));
}

void RefuseLaterVersion(int installed) {
  if (installed <= kSchemaVersion) return;
  throw zanrole::EZanError(
      fmt::format("The database has schema version {}, and this program knows versions up to {}. "
                  "Use a program that is at least as new as the database.",
                  installed, kSchemaVersion));
}

}  // namespace

int InstalledSchemaVersion(TDatabase& database) {
  if (!HasVersionTable(database)) return 0;
  const auto query = database.GetQuery();
  query->SQL().SetText("select max(Version) from ZanSchemaVersion");
  query->Open();
  return query->Fields(0).AsInteger();
}

int InstallSchema(TDatabase& database) {
  RefuseServerWithClient(database.Server());
  const int installed = InstalledSchemaVersion(database);
  RefuseLaterVersion(installed);
  const bool complete = installed == kSchemaVersion;
  if (complete && !IsMariaDb(database)) return installed;
  database.ExecScript(IsMariaDb(database) ? MariaDbScript(database, !complete) : SqliteScript());
  const int reached = InstalledSchemaVersion(database);
  RefuseLaterVersion(reached);
  return reached;
}

}  // namespace zanhost
