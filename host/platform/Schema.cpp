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
// Two processes take turns: the lock goes with the transaction of the script.
constexpr std::string_view kTakeTurnsSqlServer =
    "declare @turn int;\n"
    "exec @turn = sp_getapplock N'ZanSchema', N'Exclusive', N'Transaction', 30000;\n"
    "if @turn < 0 throw 51000, N'Another program is making the tables.', 1;\n"
    "go\n";
constexpr std::string_view kNoteVersionSqlServer =
    "delete from ZanSchemaVersion where Version < {0};\n"
    "insert into ZanSchemaVersion (Version, InstalledAt)\n"
    "select {0}, getdate()\n"
    "where not exists (select 1 from ZanSchemaVersion where Version >= {0});\n"
    "go\n";
// What makes tables ends a transaction on Oracle, so that only the note itself is held against others.
constexpr std::string_view kNoteVersionOracle =
    "lock table ZanSchemaVersion in exclusive mode\n"
    "/\n"
    "delete from ZanSchemaVersion where Version < {0}\n"
    "/\n"
    "insert into ZanSchemaVersion (Version, InstalledAt)\n"
    "select {0}, sysdate from dual\n"
    "where not exists (select 1 from ZanSchemaVersion where Version >= {0})\n"
    "/\n";
// clang-format on

bool HasRoutines(TDatabase& database) { return database.Server() != TServerKind::Sqlite; }

bool IsNamed(const TSchemaFile& file, std::string_view word) {
  return file.Name.find(word) != std::string_view::npos;
}

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
  query->SQL().SetText(std::string(FindVersionTable(database.Server())));
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
  std::string script;
  for (const TSchemaFile& file : MariaDbFiles(database.Dialect())) {
    if (IsNamed(file, "routines") || IsNamed(file, "helpers")) {
      script.append(useData).append(file.Text).append(useSystem).append(file.Text);
    } else if (withTables) {
      script.append(IsNamed(file, "system") ? useSystem : useData).append(file.Text);
    }
  }
  return script + useData + fmt::format(kNoteVersionMariaDb, kSchemaVersion);
}

std::string NameInUse(zanrole::TZANQuery& query, std::string_view question) {
  query.SQL().SetText(std::string(question));
  query.Open();
  return query.Fields(0).AsString();
}

std::string UseSqlServerDatabaseOf(zanrole::TZANQuery& query) {
  const std::string name = NameInUse(query, "select db_name()");
  return fmt::format("use [{}];\ngo\n", zanrole::StringReplace(name, "]", "]]"));
}

std::string UseOracleSchemaOf(zanrole::TZANQuery& query) {
  const std::string name = NameInUse(query, "select sys_context('USERENV', 'CURRENT_SCHEMA') from dual");
  return fmt::format("alter session set current_schema = \"{}\"\n/\n", name);
}

/// The tables of both databases when `withTables` is set, and the routines of the data database.
std::string SqlServerScript(TDatabase& database, bool withTables) {
  const std::string useData = UseSqlServerDatabaseOf(*database.GetQuery());
  const std::string useSystem = UseSqlServerDatabaseOf(*database.GetSysQuery());
  std::string script(kTakeTurnsSqlServer);
  for (const TSchemaFile& file : SqlServerSchemaFiles()) {
    if (!withTables && !IsNamed(file, "routines")) continue;
    script.append(IsNamed(file, "system") ? useSystem : useData).append(file.Text).append("\ngo\n");
  }
  return script + useData + fmt::format(kNoteVersionSqlServer, kSchemaVersion);
}

/// As for SQL Server; the helper stands in both schemas.
std::string OracleScript(TDatabase& database, bool withTables) {
  const std::string useData = UseOracleSchemaOf(*database.GetQuery());
  const std::string useSystem = UseOracleSchemaOf(*database.GetSysQuery());
  std::string script;
  for (const TSchemaFile& file : OracleSchemaFiles()) {
    if (!withTables && !IsNamed(file, "routines")) continue;
    if (IsNamed(file, "helpers")) script.append(useSystem).append(file.Text);
    script.append(IsNamed(file, "system") ? useSystem : useData).append(file.Text);
  }
  return script + useData + fmt::format(kNoteVersionOracle, kSchemaVersion);
}

/// All that is missing, and the routines anew.
std::string SchemaScript(TDatabase& database, bool withTables) {
  switch (database.Server()) {
    case TServerKind::MariaDb:
      return MariaDbScript(database, withTables);
    case TServerKind::SqlServer:
      return SqlServerScript(database, withTables);
    case TServerKind::Oracle:
      return OracleScript(database, withTables);
    case TServerKind::Sqlite:
      break;
  }
  return SqliteScript();
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
  const int installed = InstalledSchemaVersion(database);
  RefuseLaterVersion(installed);
  const bool complete = installed == kSchemaVersion;
  if (complete && !HasRoutines(database)) return installed;
  database.ExecScript(SchemaScript(database, !complete));
  const int reached = InstalledSchemaVersion(database);
  RefuseLaterVersion(reached);
  return reached;
}

}  // namespace zanhost
