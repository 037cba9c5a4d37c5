#include "host/query/MariaDb/Checks.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>

#include "Frame/Host/Classes.h"
#include "Frame/Host/Zandbs.h"
#include "host/query/MariaDb/Flavour.h"

namespace zanhost {

namespace {

using TTextRow = std::vector<std::string>;

constexpr std::string_view kCollation = "utf8mb4_nopad_bin";
// The first version whose insert gives back the row that it wrote or changed.
constexpr unsigned long kOldestVersion = 100500;

constexpr char kReadServer[] =
    "select @@version, @@lower_case_table_names, @@log_bin and @@binlog_format = 'STATEMENT'";

[[noreturn]] void Refuse(const std::string& sentence) { throw zanrole::EDatabaseError(sentence, {}); }

std::vector<TTextRow> Ask(TMariaDbConnection& connection, const std::string& statement) {
  connection.Send(statement);
  const TMySqlResultHandle result(mysql_store_result(connection.Handle()));
  if (result == nullptr) connection.Raise();
  std::vector<TTextRow> rows;
  while (const MYSQL_ROW cells = mysql_fetch_row(result.get())) {
    TTextRow& row = rows.emplace_back();
    for (unsigned i = 0; i < result->field_count; ++i) row.emplace_back(cells[i] != nullptr ? cells[i] : "");
  }
  return rows;
}

std::vector<TTextRow> AskForDatabase(TMariaDbConnection& connection, const std::string& database) {
  return Ask(connection,
             "select default_collation_name from information_schema.schemata where schema_name = " +
                 zanrole::QuotedStr(database));
}

void MakeDatabase(TMariaDbConnection& connection, const std::string& database) {
  connection.Exec(fmt::format("create database if not exists {} character set utf8mb4 collate {}",
                              QuotedMariaDbName(database), kCollation));
}

}  // namespace

std::string QuotedMariaDbName(const std::string& name) {
  return "`" + zanrole::StringReplace(name, "`", "``") + "`";
}

void CheckMariaDbServer(TMariaDbConnection& connection) {
  const TTextRow settings = Ask(connection, kReadServer).at(0);
  const std::string server = connection.Url().Server();
  const bool isMariaDb = settings[0].find("MariaDB") != std::string::npos;
  if (!isMariaDb || mysql_get_server_version(connection.Handle()) < kOldestVersion)
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

void CheckMariaDbDatabase(TMariaDbConnection& connection, const std::string& database, TOpenMode mode) {
  std::vector<TTextRow> found = AskForDatabase(connection, database);
  if (found.empty() && mode == TOpenMode::CreateIfMissing) {
    MakeDatabase(connection, database);
    found = AskForDatabase(connection, database);
  }
  if (found.empty())
    Refuse(
        fmt::format("There is no database '{0}' on the server {1}, or the user '{2}' may not see it. Make "
                    "database and tables with: zanhost schema --data URL",
                    database, connection.Url().Server(), connection.Url().User));
  if (found[0][0] != kCollation)
    Refuse(
        fmt::format("The database '{0}' has the collation {1}, under which texts do not compare exactly. "
                    "Set it: alter database {2} character set utf8mb4 collate {3}",
                    database, found[0][0], QuotedMariaDbName(database), kCollation));
}

void CheckMariaDbRoutines(TMariaDbConnection& connection, const std::string& database) {
  const std::vector<TTextRow> there =
      Ask(connection, "select routine_name from information_schema.routines where routine_schema = " +
                          zanrole::QuotedStr(database));
  std::vector<std::string> missing;
  for (const std::string_view routine : MariaDbFlavourOf(connection.Url().Dialect).Routines) {
    const auto isThere = [&](const TTextRow& row) { return zanrole::SameText(row[0], routine); };
    if (std::none_of(there.begin(), there.end(), isThere)) missing.emplace_back(routine);
  }
  if (!missing.empty())
    Refuse(
        fmt::format("The database '{}' on the server {} lacks tables or routines of this program ({}). Make "
                    "them with: zanhost schema --data URL",
                    database, connection.Url().Server(), fmt::join(missing, ", ")));
}

}  // namespace zanhost
