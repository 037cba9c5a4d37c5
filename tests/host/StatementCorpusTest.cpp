#include <gtest/gtest.h>

#include <filesystem>

#include "host/platform/Files.h"
#include "tests/fuzz/StatementProperties.h"
#include "tests/support/SourceTree.h"

namespace zantest {

namespace {

const std::filesystem::path kCorpus = SourceTree() / "tests/fuzz/corpus";

}  // namespace

TEST(StatementCorpus, AllPropertiesHold) {
  int texts = 0;
  for (const auto& file : std::filesystem::directory_iterator(kCorpus)) {
    ++texts;
    const std::string text = zanhost::ReadFile(file.path());
    EXPECT_EQ(BrokenProperty(text), "") << file.path();
  }
  EXPECT_GE(texts, 20);
}

/// Each text cut off at every place, as a fuzzer would.
TEST(StatementCorpus, AllPropertiesHoldForTextsThatAreCutOff) {
  for (const auto& file : std::filesystem::directory_iterator(kCorpus)) {
    const std::string text = zanhost::ReadFile(file.path());
    for (std::size_t size = 0; size < text.size(); ++size)
      ASSERT_EQ(BrokenProperty(text.substr(0, size)), "") << text.substr(0, size);
  }
}

}  // namespace zantest
