#include "host/platform/Schema.h"

#include <fmt/format.h>

#include <string>

#include "host/platform/SchemaFiles.h"

namespace zanhost {

namespace {

// A later program may have been faster while this one waited for the lock: its version stays.
// clang-format off
constexpr std::string_view kNoteVersion =
    "\n"
    "delete from ZanSchemaVersion where Version < {0};\n"
    "insert into ZanSchemaVersion (Version, InstalledAt)\n"
    "select {0}, datetime('now', 'localtime')\n"
    "where not exists (select 1 from ZanSchemaVersion where Version >= {0});\n";
// clang-format on

bool HasVersionTable(TDatabase& database) {
  const auto query = database.GetQuery();
  query->SQL().SetText("select 1 from sqlite_master where type = 'table' and name = 'ZanSchemaVersion'");
  query->Open();
  return !query->Eof();
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
  if (installed == kSchemaVersion) return installed;

  std::string script;
  for (const TSchemaFile& file : SqliteSchemaFiles()) script += file.Text;
  script += fmt::format(kNoteVersion, kSchemaVersion);
  database.ExecScript(script);
  const int reached = InstalledSchemaVersion(database);
  RefuseLaterVersion(reached);
  return reached;
}

}  // namespace zanhost
