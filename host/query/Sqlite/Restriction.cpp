#include "host/query/Sqlite/Restriction.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "Frame/Host/Classes.h"
#include "host/query/SecretColumns.h"

namespace zanhost {

namespace {

// A statement is looked after while it runs instruction by instruction, but not inside of a function: the
// lengths keep the longest call of one (a text sought in another of half its length) below a tenth of a
// second.
constexpr std::pair<int, int> kLimits[]{
    {SQLITE_LIMIT_LENGTH, 64 * 1024},
    {SQLITE_LIMIT_SQL_LENGTH, 1'000'000},
    {SQLITE_LIMIT_LIKE_PATTERN_LENGTH, 256},
    {SQLITE_LIMIT_VDBE_OP, 250'000},
    {SQLITE_LIMIT_ATTACHED, 0},
};

// In the order of their names. Those that a field or condition is made of, and those that the rules put in
// the place of the module's; none that reads a file, runs code or makes large values of nothing.
constexpr auto kFunctions = std::to_array<std::string_view>({
    "abs",     "avg",   "coalesce",     "count",  "date",   "datetime", "db_name",   "dense_rank",
    "getdate", "glob",  "group_concat", "ifnull", "iif",    "instr",    "julianday", "left_characters",
    "length",  "like",  "lower",        "ltrim",  "max",    "min",      "nullif",    "rank",
    "replace", "round", "row_number",   "rtrim",  "str",    "strftime", "substr",    "substring",
    "sum",     "time",  "total",        "trim",   "typeof", "upper",
});
static_assert(std::is_sorted(kFunctions.begin(), kFunctions.end()));

std::string Text(const char* text) { return text != nullptr ? text : ""; }

void SetUp(sqlite3* connection) {
  for (const auto& [limit, value] : kLimits) sqlite3_limit(connection, limit, value);
  sqlite3_db_config(connection, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(connection, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_db_config(connection, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0, nullptr);
}

}  // namespace

TSqliteRestriction::TSqliteRestriction(sqlite3* connection, const std::set<std::string>& tables)
    : FTables{"sqlite_master", "sqlite_schema"} {
  for (const std::string& table : tables) FTables.insert(zanrole::LowerCase(table));
  SetUp(connection);
  sqlite3_set_authorizer(connection, OnAsked, this);
}

int TSqliteRestriction::OnAsked(void* self, int action, const char* first, const char* second, const char*,
                                const char*) {
  return static_cast<TSqliteRestriction*>(self)->Allows(action, first, second) ? SQLITE_OK : SQLITE_DENY;
}

bool TSqliteRestriction::Allows(int action, const char* first, const char* second) {
  switch (action) {
    case SQLITE_SELECT:
      return true;
    case SQLITE_READ:
      return AllowsReading(Text(first), Text(second));
    case SQLITE_FUNCTION:
      return AllowsFunction(Text(second));
    default:
      return Refuse("The statement does something else than reading tables, and is not run here.");
  }
}

bool TSqliteRestriction::AllowsReading(const std::string& table, const std::string& column) {
  if (!FTables.contains(zanrole::LowerCase(table)))
    return Refuse(fmt::format("'{}' is no table that is read here.", table));
  if (IsSecretColumn(table, column))
    return Refuse(fmt::format("The column {}.{} is not read here: it may hold a password.", table, column));
  return true;
}

bool TSqliteRestriction::AllowsFunction(const std::string& name) {
  if (std::binary_search(kFunctions.begin(), kFunctions.end(), zanrole::LowerCase(name))) return true;
  return Refuse(fmt::format("The function '{}' cannot be used here.", name));
}

bool TSqliteRestriction::Refuse(std::string reason) {
  FReason = std::move(reason);
  return false;
}

}  // namespace zanhost
