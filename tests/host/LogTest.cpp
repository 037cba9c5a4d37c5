#include "host/platform/Log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <sstream>
#include <vector>

#include "Frame/Host/Zandbs.h"
#include "host/platform/Files.h"
#include "tests/support/TemporaryFolder.h"

using std::chrono::milliseconds;
using testing::HasSubstr;
using zanhost::TLog;
using zanhost::TOperation;

namespace {

std::vector<std::string> LinesOf(const zantest::TTemporaryFolder& folder) {
  std::istringstream text(zanhost::ReadFile(folder / "log/zanhost.log"));
  std::vector<std::string> lines;
  for (std::string line; std::getline(text, line);) lines.push_back(line);
  return lines;
}

}  // namespace

TEST(Log, OneLineForAnOperationWithSessionOperatorAndTime) {
  const zantest::TTemporaryFolder folder;
  TLog(folder.Path()).Write({"s1", "张三", "域管理", "ok", milliseconds(12)});
  const std::vector<std::string> lines = LinesOf(folder);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_THAT(lines[0],
              HasSubstr("session=\"s1\" operator=\"张三\" operation=\"域管理\" outcome=\"ok\" ms=12"));
  EXPECT_THAT(lines[0], testing::MatchesRegex(
                            "^[0-9]+-[0-9]+-[0-9]+T[0-9]+:[0-9]+:[0-9.]+[+-][0-9]+:[0-9]+ session.*"));
}

TEST(Log, NoFieldEndsItsLineOrClosesItsQuotes) {
  const zantest::TTemporaryFolder folder;
  TLog(folder.Path()).Write({"s", "a\" ms=0\n2026 session=\"x", "b\\", "{} %s", milliseconds(0)});
  const std::vector<std::string> lines = LinesOf(folder);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_THAT(lines[0], HasSubstr(R"(operator="a\" ms=0 2026 session=\"x" operation="b\\" outcome="{} %s")"));
}

TEST(Log, LongTextIsCutBetweenCharacters) {
  const zantest::TTemporaryFolder folder;
  std::string outcome;
  for (int i = 0; i < 2000; ++i) outcome += "误";
  TLog(folder.Path()).Write({"s", "o", "n", outcome, milliseconds(0)});
  const std::vector<std::string> lines = LinesOf(folder);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_LT(lines[0].size(), 4096U);
  EXPECT_THAT(lines[0], HasSubstr("误\" ms=0"));
}

TEST(Log, OfAFailedStatementOnlyTheEnginesMessageIsTold) {
  const zanrole::EDatabaseError fault("no such column: X", "Update STUsers Set Password = 'hunter2'");
  EXPECT_EQ(zanhost::OutcomeOf(fault), "no such column: X");
  EXPECT_EQ(zanhost::OutcomeOf(zanrole::EZanError("plain")), "plain");
}

TEST(Log, ProcessesAppendWithoutTearingLines) {
  const zantest::TTemporaryFolder folder;
  constexpr int kProcesses = 4;
  constexpr int kLines = 300;
  std::vector<::pid_t> children;
  for (int process = 0; process < kProcesses; ++process) {
    children.push_back(::fork());
    if (children.back() != 0) continue;
    TLog log(folder.Path());
    for (int i = 0; i < kLines; ++i) log.Write({"s", "o", "n", std::string(900, 'x'), milliseconds(i)});
    ::_exit(0);
  }
  // No other child: the servers of other tests go on.
  for (const ::pid_t child : children) EXPECT_EQ(::waitpid(child, nullptr, 0), child);
  const std::vector<std::string> lines = LinesOf(folder);
  EXPECT_EQ(lines.size(), static_cast<std::size_t>(kProcesses * kLines));
  for (const std::string& line : lines)
    ASSERT_THAT(line, testing::MatchesRegex("^[-0-9T:.+]+ session=\"s\" .* outcome=\"x+\" ms=[0-9]+$"));
}

TEST(Log, FolderThatCannotBeMadeIsSaidPlainly) {
  const zantest::TTemporaryFolder folder;
  zanhost::ReplacePrivateFile(folder / "log", "a file in the way");
  EXPECT_THROW(TLog{folder.Path()}, zanrole::EZanError);
}
