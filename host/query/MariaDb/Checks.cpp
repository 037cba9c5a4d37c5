#include "host/query/MariaDb/Checks.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <cstdio>

#include "Frame/Host/Classes.h"
#include "Frame/Host/Zandbs.h"

namespace zanhost {

namespace {

constexpr std::string_view kCollation = "utf8mb4_nopad_bin";
// The first version whose insert gives back the row that it wrote or changed.
constexpr std::pair kOldestVersion{10, 5};

constexpr char kReadServer[] =
    "select @@version, @@lower_case_table_names, @@log_bin and @@binlog_format = 'STATEMENT'";

[[noreturn]] void Refuse(const std::string& sentence) { throw zanrole::EDatabaseError(sentence, {}); }

TTextRows AskForDatabase(const TInspection& inspection, const std::string& database) {
  return inspection.Ask(
      "select default_collation_name from information_schema.schemata where schema_name = " +
      zanrole::QuotedStr(database));
}

void MakeDatabase(const TInspection& inspection, const std::string& database) {
  inspection.Ask(fmt::format("create database if not exists {} character set utf8mb4 collate {}",
                             QuotedMariaDbName(database), kCollation));
}

void InspectServer(const TInspection& inspection) {
  const std::vector<std::string> settings = inspection.Ask(kReadServer).at(0);
  const std::string& server = inspection.Server;
  const bool isMariaDb = settings[0].find("MariaDB") != std::string::npos;
  if (!isMariaDb || MariaDbVersion(settings[0]) < kOldestVersion)
    Refuse(fmt::format("The database server {} is of version {}. MariaDB 10.5 or later is needed.", server,
                       settings[0]));
  if (settings[1] != "1")
    Refuse(
        fmt::format("The database server {} has the setting lower_case_table_names={}, and the statements "
                    "name one table in several cases. Put lower_case_table_names=1 under [mariadbd] in its "
                    "configuration before any table is made, and start it anew.",
                    server, settings[1]));
  if (settings[2] == "1")
    Refuse(
        fmt::format("The database server {} writes a binary log with binlog_format=STATEMENT, which refuses "
                    "the transactions of this program. Set binlog_format=MIXED on it.",
                    server));
}

void InspectDatabase(const TInspection& inspection, const std::string& database) {
  TTextRows found = AskForDatabase(inspection, database);
  if (found.empty() && inspection.Mode == TOpenMode::CreateIfMissing) {
    MakeDatabase(inspection, database);
    found = AskForDatabase(inspection, database);
  }
  if (found.empty())
    Refuse(
        fmt::format("There is no database '{0}' on the server {1}, or the user '{2}' may not see it. Make "
                    "database and tables with: zanhost schema --data URL",
                    database, inspection.Server, inspection.User));
  if (found[0][0] != kCollation)
    Refuse(
        fmt::format("The database '{0}' has the collation {1}, under which texts do not compare exactly. "
                    "Set it: alter database {2} character set utf8mb4 collate {3}",
                    database, found[0][0], QuotedMariaDbName(database), kCollation));
}

void InspectRoutines(const TInspection& inspection, const std::string& database,
                     std::span<const std::string_view> routines) {
  const TTextRows there =
      inspection.Ask("select routine_name from information_schema.routines where routine_schema = " +
                     zanrole::QuotedStr(database));
  std::vector<std::string> missing;
  for (const std::string_view routine : routines) {
    const auto isThere = [&](const std::vector<std::string>& row) {
      return zanrole::SameText(row[0], routine);
    };
    if (std::none_of(there.begin(), there.end(), isThere)) missing.emplace_back(routine);
  }
  if (!missing.empty())
    Refuse(
        fmt::format("The database '{}' on the server {} lacks tables or routines of this program ({}). Make "
                    "them with: zanhost schema --data URL",
                    database, inspection.Server, fmt::join(missing, ", ")));
}

}  // namespace

std::pair<int, int> MariaDbVersion(const std::string& version) {
  std::pair<int, int> read{0, 0};
  const bool isVersion = std::sscanf(version.c_str(), "%d.%d", &read.first, &read.second) == 2;
  return isVersion ? read : std::pair(0, 0);
}

std::string QuotedMariaDbName(const std::string& name) {
  return "`" + zanrole::StringReplace(name, "`", "``") + "`";
}

void InspectMariaDb(const TInspection& inspection, std::span<const std::string_view> routines) {
  InspectServer(inspection);
  for (const std::string& database : inspection.Databases) {
    InspectDatabase(inspection, database);
    if (inspection.Mode == TOpenMode::MustExist) InspectRoutines(inspection, database, routines);
  }
}

}  // namespace zanhost
