#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <string>

#include "host/platform/Files.h"
#include "tests/support/SourceTree.h"

namespace {

namespace fs = std::filesystem;

/// Columns with their definitions; the key stands under "primary key".
using TColumns = std::map<std::string, std::string>;
using TTables = std::map<std::string, TColumns>;

constexpr auto kKey = "primary key";
const fs::path kSchema = zantest::SourceTree() / "schema";

bool IsSystemFile(const fs::path& file) {
  return file.filename().string().find("system") != std::string::npos;
}

std::string TextsOf(const std::string& server, bool (*wanted)(const fs::path&)) {
  std::string text;
  std::set<fs::path> files;
  for (const auto& entry : fs::directory_iterator(kSchema / server)) files.insert(entry.path());
  for (const fs::path& file : files)
    if (wanted(file)) text += zanhost::ReadFile(file);
  return text;
}

std::string DataTexts(const std::string& server) {
  return TextsOf(server, [](const fs::path& file) { return !IsSystemFile(file); });
}
std::string SystemTexts(const std::string& server) { return TextsOf(server, IsSystemFile); }
std::string AllTexts(const std::string& server) { return DataTexts(server) + SystemTexts(server); }

std::vector<std::smatch> Matches(const std::string& text, const std::regex& pattern) {
  return {std::sregex_iterator(text.begin(), text.end(), pattern), std::sregex_iterator()};
}

/// The column of MySQL's login index is no column of the others.
TColumns ColumnsOf(const std::string& table, const std::string& body) {
  static const std::regex column(R"(^  (\w+) +([^\n]*?),?$)", std::regex::multiline);
  static const std::regex key(R"(^  (?:constraint (\w+) )?primary key \(([^)]*)\)$)", std::regex::multiline);
  TColumns columns;
  for (const std::smatch& found : Matches(body, key)) {
    EXPECT_EQ(found[1], found[1].matched ? "PK_" + table : "");
    columns[kKey] = found[2];
  }
  for (const std::smatch& found : Matches(body, column)) {
    const bool isColumn = found[1] != "primary" && found[1] != "constraint" && found[1] != "UserLogin";
    if (isColumn) columns[found[1]] = std::regex_replace(found[2].str(), std::regex(" +"), " ");
  }
  return columns;
}

TTables TablesOf(const std::string& text) {
  static const std::regex table("create table (?:if not exists )?(\\w+) \\(\n([^;/]*?)\n\\)");
  TTables tables;
  for (const std::smatch& made : Matches(text, table)) tables[made[1]] = ColumnsOf(made[1], made[2]);
  return tables;
}

struct TSpelling {
  std::string Whole, Truth, Text, LongText, Moment;
  std::string Collation;
  int LongestText = 4000;
};

/// How each server writes the types of MySQL.
const std::map<std::string, TSpelling> kSpellings{
    {"sqlite", {"int", "int", "nvarchar", "text", "datetime", ""}},
    {"sqlserver",
     {"int", "bit", "nvarchar", "nvarchar(max)", "datetime", " collate Latin1_General_100_BIN2"}},
    {"oracle", {"number(10)", "number(1)", "nvarchar2", "nclob", "date", "", 2000}},
};

std::string TypeInWordsOf(const TSpelling& spelling, const std::string& type) {
  static const std::regex text(R"(varchar\((\d+)\))");
  std::smatch length;
  if (std::regex_match(type, length, text)) {
    const int wanted = std::min(std::stoi(length[1]), spelling.LongestText);
    return spelling.Text + "(" + std::to_string(wanted) + ")" + spelling.Collation;
  }
  if (type == "longtext") return spelling.LongText + (spelling.Text == "nvarchar2" ? "" : spelling.Collation);
  return type == "int" ? spelling.Whole : type == "tinyint" ? spelling.Truth : spelling.Moment;
}

/// The tables of MySQL as the other server has to make them.
TTables InWordsOf(const std::string& server, TTables tables) {
  for (auto& [name, columns] : tables) {
    for (auto& [column, definition] : columns) {
      if (column == kKey) continue;
      const std::size_t end = definition.find(' ');
      const std::string rest = end == std::string::npos ? "" : definition.substr(end);
      definition = TypeInWordsOf(kSpellings.at(server), definition.substr(0, end)) + rest;
    }
  }
  return tables;
}

/// "Table (Column, Column)" of each index that keeps no values apart. A length in a key is MySQL's own.
std::set<std::string> IndexesOf(const std::string& text) {
  static const std::regex index(R"(create index (?:if not exists )?\w+ on (\w+) \(([^;']*?)\)(?:;|'))");
  static const std::regex prefix(R"(\(\d+\))");
  std::set<std::string> indexes;
  for (const std::smatch& made : Matches(text, index))
    indexes.insert(made[1].str() + " (" + std::regex_replace(made[2].str(), prefix, "") + ")");
  return indexes;
}

/// SQL Server's keys hold 1,700 bytes: indexes of wider columns are left out there.
bool FitsIntoKey(const std::string& index, const TTables& tables) {
  static const std::regex column(R"(\w+)"), text(R"(nvarchar\((\d+)\))");
  const std::string table = index.substr(0, index.find(' '));
  const std::string names = index.substr(index.find('('));
  int bytes = 0;
  for (const std::smatch& name : Matches(names, column)) {
    std::smatch length;
    const std::string definition = tables.at(table).at(name.str());
    bytes += std::regex_search(definition, length, text) ? 2 * std::stoi(length[1]) : 4;
  }
  return bytes <= 1700;
}

std::set<std::string> IndexesForSqlServer(const std::string& mySqlTexts, const TTables& tables) {
  std::set<std::string> indexes = IndexesOf(mySqlTexts);
  std::erase_if(indexes, [&tables](const std::string& index) { return !FitsIntoKey(index, tables); });
  return indexes;
}

}  // namespace

/// What MySQL has is what runs on a server here; the scripts of the others are held against it.
TEST(SchemaOfServers, AllHaveTheTablesOfTheTwoDatabases) {
  EXPECT_GE(TablesOf(DataTexts("mysql")).size(), 27U);
  EXPECT_GE(TablesOf(SystemTexts("mysql")).size(), 13U);
  for (const std::string server : {"sqlserver", "oracle"}) {
    EXPECT_EQ(TablesOf(DataTexts(server)), InWordsOf(server, TablesOf(DataTexts("mysql")))) << server;
    EXPECT_EQ(TablesOf(SystemTexts(server)), InWordsOf(server, TablesOf(SystemTexts("mysql")))) << server;
  }
}

TEST(SchemaOfServers, TheEmbeddedDatabaseHasThemInOneFile) {
  EXPECT_EQ(TablesOf(AllTexts("sqlite")), InWordsOf("sqlite", TablesOf(AllTexts("mysql"))));
}

TEST(SchemaOfServers, AllHaveTheSameIndexes) {
  EXPECT_GE(IndexesOf(AllTexts("mysql")).size(), 45U);
  EXPECT_EQ(IndexesOf(AllTexts("sqlite")), IndexesOf(AllTexts("mysql")));
  EXPECT_EQ(IndexesOf(DataTexts("oracle")), IndexesOf(DataTexts("mysql")));
  EXPECT_EQ(IndexesOf(SystemTexts("oracle")), IndexesOf(SystemTexts("mysql")));
  for (const auto& texts : {DataTexts, SystemTexts})
    EXPECT_EQ(IndexesOf(texts("sqlserver")),
              IndexesForSqlServer(texts("mysql"), TablesOf(texts("sqlserver"))));
}

TEST(SchemaOfServers, AllKeepLoginsApartByOneUniqueIndex) {
  const std::map<std::string, std::string> expected{
      {"sqlite", "UX_STUsers_Login on STUsers (UserID) where uGroup = 0 and UserID <> ''"},
      {"sqlserver", "UX_STUsers_Login on STUsers (UserID) where uGroup = 0 and UserID <> ''"},
      {"oracle", "UX_STUsers_Login on STUsers (case when uGroup = 0 then UserID end)"},
      {"mysql", "UX_STUsers_Login on STUsers (UserLogin)"}};
  static const std::regex unique(R"(create unique index (?:if not exists )?(.*?)(?:;|'\);))");
  for (const auto& [server, index] : expected) {
    const std::string text = AllTexts(server);
    const std::vector<std::smatch> found = Matches(text, unique);
    ASSERT_EQ(found.size(), 1U) << server;
    EXPECT_EQ(found[0][1], index) << server;
  }
}

TEST(SchemaOfServers, AllHaveTheRoutinesThatTheirStatementsCall) {
  const auto makes = [](const std::string& server, const std::string& definition) {
    return AllTexts(server).find(definition) != std::string::npos;
  };
  EXPECT_TRUE(makes("sqlserver", "alter procedure P_RefreshPartyParentPath as"));
  EXPECT_TRUE(makes("oracle", "create or replace procedure P_RefreshPartyParentPath as"));
  EXPECT_TRUE(makes("oracle", "create or replace function getdate return date as"));
  for (const std::string name :
       {"function DB_NAME", "function GetDate", "procedure MySql_execute_MultiSql",
        "procedure Mysql_Update_STUserPasswordStrategy", "procedure P_RefreshPartyParentPath",
        "procedure MySql_SetOrgFullName", "procedure MySql_STDomainsGetFullName",
        "procedure MySql_RatingPermissionTreeNodes", "function get_UserFullDeptName",
        "function get_Parthh_Nodelevel", "function Get_Partyh_Parent_DjLsh",
        "function Get_Partyh_Children_DjLsh"})
    EXPECT_TRUE(makes("mysql", "create or replace " + name + "(")) << name;
}

TEST(SchemaOfServers, TheScriptsOfSqlServerMakeOnlyWhatIsMissing) {
  const std::string text = AllTexts("sqlserver");
  static const std::regex table(R"(if object_id\(N'(\w+)', N'U'\) is null\ncreate table (\w+) )");
  static const std::regex index(R"(where name = N'(\w+)' and object_id = object_id\(N'(\w+)'\)\)
  create (?:unique )?index (\w+) on (\w+) )");
  for (const std::smatch& made : Matches(text, table)) EXPECT_EQ(made[1], made[2]);
  for (const std::smatch& made : Matches(text, index)) {
    EXPECT_EQ(made[1], made[3]);
    EXPECT_EQ(made[2], made[4]);
  }
  EXPECT_EQ(Matches(text, table).size(), Matches(text, std::regex("create table ")).size());
  EXPECT_EQ(Matches(text, index).size(), Matches(text, std::regex("create (unique )?index ")).size());
}

/// ZanMake passes over what is there. Names of 30 characters are what older servers take.
TEST(SchemaOfServers, TheScriptsOfOracleMakeOnlyWhatIsMissing) {
  const std::string text = AllTexts("oracle");
  EXPECT_EQ(Matches(text, std::regex("begin ZanMake\\('create ")).size(),
            Matches(text, std::regex("create (table|index|unique)")).size());
  for (const std::smatch& name : Matches(text, std::regex(R"((?:table|index|constraint|procedure) (\w+) )")))
    EXPECT_LE(name[1].length(), 30) << name[1];
}
