#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "tests/support/SourceTree.h"

namespace {

namespace fs = std::filesystem;

using TColumns = std::set<std::string>;
using TTables = std::map<std::string, TColumns>;

const fs::path kSchema = zantest::SourceTree() / "schema";

std::string TextsOf(const std::string& server) {
  std::ostringstream text;
  std::set<fs::path> files;
  for (const auto& entry : fs::directory_iterator(kSchema / server)) files.insert(entry.path());
  for (const fs::path& file : files) text << std::ifstream(file).rdbuf();
  return text.str();
}

// Tables with the columns that a server's files make. The column that MySQL needs for an index is left out.
TTables TablesOf(const std::string& server) {
  static const std::regex table("create table (?:if not exists )?(\\w+) \\(\n([^;/]*?)\n\\)");
  static const std::regex column("^  (\\w+) ", std::regex::multiline);
  const std::set<std::string> noColumns{"primary", "constraint", "UserLogin"};
  const std::string text = TextsOf(server);
  TTables tables;
  for (std::sregex_iterator made(text.begin(), text.end(), table), end; made != end; ++made) {
    const std::string body = (*made)[2];
    for (std::sregex_iterator found(body.begin(), body.end(), column); found != end; ++found)
      if (!noColumns.contains((*found)[1])) tables[(*made)[1]].insert((*found)[1]);
  }
  return tables;
}

}  // namespace

class SchemaOfServer : public testing::TestWithParam<std::string> {};

INSTANTIATE_TEST_SUITE_P(Servers, SchemaOfServer, testing::Values("sqlserver", "oracle", "mysql"));

TEST_P(SchemaOfServer, HasTheTablesAndColumnsOfTheEmbeddedOne) {
  const TTables embedded = TablesOf("sqlite");
  EXPECT_GE(embedded.size(), 40U);
  EXPECT_EQ(TablesOf(GetParam()), embedded);
}

TEST_P(SchemaOfServer, HasOneUniqueIndexForLogins) {
  const std::string text = TextsOf(GetParam());
  EXPECT_NE(text.find("create unique index"), std::string::npos);
  EXPECT_EQ(text.find("create unique index"), text.rfind("create unique index"));
}
