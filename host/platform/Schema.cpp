#include "host/platform/Schema.h"

#include <fmt/format.h>

#include <string>

#include "host/platform/SchemaFiles.h"

namespace zanhost {

namespace {

// clang-format off
constexpr std::string_view kFindVersionTableSqlite =
    "select 1 from sqlite_master where type = 'table' and name = 'ZanSchemaVersion'";
constexpr std::string_view kFindVersionTableMySql =
    "select 1 from information_schema.tables\n"
    "where table_schema = database() and table_name = 'zanschemaversion'";

// A later program may have been faster while this one waited for the lock: its version stays.
constexpr std::string_view kNoteVersionSqlite =
    "\n"
    "delete from ZanSchemaVersion where Version < {0};\n"
    "insert into ZanSchemaVersion (Version, InstalledAt)\n"
    "select {0}, datetime('now', 'localtime')\n"
    "where not exists (select 1 from ZanSchemaVersion where Version >= {0});\n";
constexpr std::string_view kNoteVersionMySql =
    "\n"
    "delete from ZanSchemaVersion where Version < {0};\n"
    "insert ignore into ZanSchemaVersion (Version, InstalledAt)\n"
    "select {0}, now() from dual\n"
    "where not exists (select 1 from ZanSchemaVersion where Version >= {0});\n";
// clang-format on

bool IsMySql(TDatabase& database) { return database.Dialect() == zanrole::TDialect::MySql; }

bool HasVersionTable(TDatabase& database) {
  const auto query = database.GetQuery();
  query->SQL().SetText(IsMySql(database) ? kFindVersionTableMySql : kFindVersionTableSqlite);
  query->Open();
  return !query->Eof();
}

std::string SqliteScript() {
  std::string script;
  for (const TSchemaFile& file : SqliteSchemaFiles()) script += file.Text;
  return script += fmt::format(kNoteVersionSqlite, kSchemaVersion);
}

std::string UseDatabaseOf(zanrole::TZANQuery& query) {
  query.SQL().SetText("select database()");
  query.Open();
  return fmt::format("use `{}`;\n", zanrole::StringReplace(query.Fields(0).AsString(), "`", "``"));
}

/// The tables of both databases when `withTables` is set, and the routines in each.
std::string MySqlScript(TDatabase& database, bool withTables) {
  const std::string useData = UseDatabaseOf(*database.GetQuery());
  const std::string useSystem = UseDatabaseOf(*database.GetSysQuery());
  std::string script;
  for (const TSchemaFile& file : MySqlSchemaFiles()) {
    if (file.Name.find("routines") != std::string_view::npos) {
      script.append(useData).append(file.Text).append(useSystem).append(file.Text);
    } else if (withTables) {
      const bool ofSystem = file.Name.find("system") != std::string_view::npos;
      script.append(ofSystem ? useSystem : useData).append(file.Text);
    }
  }
  return script + useData + fmt::format(kNoteVersionMySql, kSchemaVersion);
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
  if (complete && !IsMySql(database)) return installed;
  database.ExecScript(IsMySql(database) ? MySqlScript(database, !complete) : SqliteScript());
  const int reached = InstalledSchemaVersion(database);
  RefuseLaterVersion(reached);
  return reached;
}

}  // namespace zanhost
