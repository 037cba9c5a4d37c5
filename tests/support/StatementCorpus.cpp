#include "tests/support/StatementCorpus.h"

#include <errno.h>
#include <gtest/gtest.h>

#include <boost/json.hpp>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace zantest {

using zanrole::TDialect;

namespace {

std::string_view NameOf(TDialect dialect) {
  if (dialect == TDialect::MySql) return "mysql";
  return dialect == TDialect::Oracle ? "oracle" : "sqlserver";
}

std::string CurrentTest() {
  const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
  return test == nullptr ? "" : std::string(test->test_suite_name()) + "." + test->name();
}

class TCorpusFile {
 public:
  explicit TCorpusFile(const std::filesystem::path& folder) {
    std::filesystem::create_directories(folder);
    FFile.exceptions(std::ios::failbit | std::ios::badbit);
    FFile.open(folder / (std::string(program_invocation_short_name) + ".jsonl"));
  }

  void Add(TDialect dialect, std::string_view database, std::string_view text, const std::string& refused) {
    const std::string_view name = NameOf(dialect);
    if (!FKept.insert(std::string(name) + "\n" + std::string(database) + "\n" + std::string(text)).second)
      return;
    boost::json::object entry{
        {"dialect", name}, {"database", database}, {"text", text}, {"test", CurrentTest()}};
    if (!refused.empty()) entry["refused"] = refused;
    FFile << boost::json::serialize(entry) << "\n";
  }

 private:
  std::ofstream FFile;
  std::set<std::string> FKept;
};

struct TRefusal {
  std::string Part;
  std::string Reason;
};

std::vector<TRefusal>& Refusals() {
  static std::vector<TRefusal> refusals;
  return refusals;
}

std::string WhyRefused(std::string_view text) {
  for (const TRefusal& refusal : Refusals())
    if (text.find(refusal.Part) != std::string_view::npos) return refusal.Reason;
  return {};
}

}  // namespace

void KeepInCorpus(TDialect dialect, std::string_view database, std::string_view text) {
  static const char* const folder = std::getenv(kCorpusFolder);
  if (folder == nullptr) return;
  static TCorpusFile file(folder);
  file.Add(dialect, database, text, WhyRefused(text));
}

TRefusedStatements::TRefusedStatements(std::string part, std::string reason) {
  Refusals().push_back({std::move(part), std::move(reason)});
}
TRefusedStatements::~TRefusedStatements() { Refusals().pop_back(); }

}  // namespace zantest
