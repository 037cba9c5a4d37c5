#include <gmock/gmock.h>

#include <filesystem>
#include <set>

#include "host/platform/Files.h"
#include "tests/conformance/Conformance.h"
#include "tests/conformance/scenario/Outline.h"
#include "tests/conformance/scenario/Runner.h"
#include "tests/support/SourceTree.h"

// The scenario files: who is whose superior and who may what, told and asked by people.

namespace zantest {

namespace {

std::set<std::filesystem::path> ScenarioFiles() {
  std::set<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(SourceTree() / "tests/scenarios")) {
    if (entry.path().extension() == ".txt") files.insert(entry.path());
  }
  return files;
}

/// Runs a file on databases of its own.
void CheckScenario(const TEngineDeclaration& declared, const std::filesystem::path& file) {
  const auto engine = declared.Make();
  engine->InstallSchema();
  const auto database = engine->OpenSession();
  const std::string name = "tests/scenarios/" + file.filename().string();
  try {
    for (const TWrongAnswer& wrong : RunScenario(*database, name, zanhost::ReadFile(file)).WrongAnswers)
      ADD_FAILURE_AT(name.c_str(), wrong.Line) << wrong.Question << "\n" << wrong.Why;
  } catch (const EScenarioError& error) {
    ADD_FAILURE() << error.what();
  }
}

}  // namespace

TEST_P(Conformance, Scenarios_EveryQuestionOfEveryFileHasItsAnswer) {
  const auto files = ScenarioFiles();
  EXPECT_GE(files.size(), 6u);
  for (const auto& file : files) CheckScenario(GetParam(), file);
}

}  // namespace zantest
