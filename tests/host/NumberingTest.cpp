#include "host/platform/Numbering.h"

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <set>
#include <vector>

#include "host/platform/Schema.h"
#include "host/query/DataUrl.h"
#include "tests/host/Rows.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using zanhost::NewDjLsh;
using zantest::Execute;

class Numbering : public testing::Test {
 protected:
  Numbering() { zanhost::InstallSchema(*FDatabase); }
  std::unique_ptr<zanhost::TDatabase> Open() {
    return zanhost::OpenDatabase("sqlite:" + FFolder.Path().string(), zanhost::TOpenMode::CreateIfMissing);
  }

  zantest::TTemporaryFolder FFolder;
  std::unique_ptr<zanhost::TDatabase> FDatabase = Open();
};

constexpr int kDraws = 500;

// Draws in a process of its own and writes the numbers to `pipe`. Never returns.
[[noreturn]] void DrawInChild(const std::string& url, int pipe) {
  int failure = 1;
  try {
    const auto database = zanhost::OpenDatabase(url, zanhost::TOpenMode::MustExist);
    std::array<int, kDraws> numbers{};
    for (int& number : numbers) number = NewDjLsh(*database, "Party");
    if (write(pipe, numbers.data(), sizeof(numbers)) == sizeof(numbers)) failure = 0;
  } catch (const std::exception&) {
    failure = 2;
  }
  _exit(failure);
}

std::vector<int> ReadNumbers(int pipe) {
  std::array<int, kDraws> numbers{};
  std::size_t got = 0;
  while (got < sizeof(numbers)) {
    const ssize_t bytes = read(pipe, reinterpret_cast<char*>(numbers.data()) + got, sizeof(numbers) - got);
    if (bytes <= 0) return {};
    got += static_cast<std::size_t>(bytes);
  }
  return {numbers.begin(), numbers.end()};
}

}  // namespace

TEST_F(Numbering, CountsFromOneInAnEmptyDatabase) {
  EXPECT_EQ(NewDjLsh(*FDatabase, "Party"), 1);
  EXPECT_EQ(NewDjLsh(*FDatabase, "Party"), 2);
  EXPECT_EQ(NewDjLsh(*FDatabase, "Company"), 1);
}

TEST_F(Numbering, NamesFoldCase) {
  EXPECT_EQ(NewDjLsh(*FDatabase, "user"), 1);
  EXPECT_EQ(NewDjLsh(*FDatabase, "User"), 2);
  EXPECT_EQ(NewDjLsh(*FDatabase, "USER"), 3);
}

TEST_F(Numbering, StartsAboveWhatTheTableHolds) {
  for (const auto& [counter, table] : {std::pair{"Party", "PartyH"},
                                       {"Company", "CompanyH"},
                                       {"Department", "DepartmentH"},
                                       {"PositionEntity", "PositionEntityH"},
                                       {"PositionMap", "PositionMapH"},
                                       {"user", "UserH"}}) {
    Execute(*FDatabase, std::string("insert into ") + table + " (DjLsh) values (41)");
    EXPECT_EQ(NewDjLsh(*FDatabase, counter), 42) << counter;
  }
}

TEST_F(Numbering, GoesPastRowsThatCameInLater) {
  EXPECT_EQ(NewDjLsh(*FDatabase, "Party"), 1);
  Execute(*FDatabase, "insert into PartyH (DjLsh) values (100)");
  EXPECT_EQ(NewDjLsh(*FDatabase, "Party"), 101);
}

TEST_F(Numbering, NumberOfADeletedRowIsNotGivenAgain) {
  Execute(*FDatabase,
          "insert into PartyH (DjLsh) values (" + std::to_string(NewDjLsh(*FDatabase, "Party")) + ")");
  Execute(*FDatabase, "delete from PartyH");
  EXPECT_EQ(NewDjLsh(*FDatabase, "Party"), 2);
}

TEST_F(Numbering, CounterOfAnotherKindIsItsOwn) {
  EXPECT_EQ(NewDjLsh(*FDatabase, "合同 'x'"), 1);
  EXPECT_EQ(NewDjLsh(*FDatabase, "合同 'x'"), 2);
  EXPECT_EQ(NewDjLsh(*FDatabase, ""), 1);
}

TEST_F(Numbering, TwoProcessesNeverDrawTheSameNumber) {
  FDatabase.reset();
  const std::string url = "sqlite:" + FFolder.Path().string();
  std::array<std::array<int, 2>, 2> pipes{};
  std::array<pid_t, 2> children{};
  for (std::size_t i = 0; i < 2; ++i) {
    ASSERT_EQ(pipe(pipes[i].data()), 0);
    children[i] = fork();
    ASSERT_GE(children[i], 0);
    if (children[i] == 0) DrawInChild(url, pipes[i][1]);
    close(pipes[i][1]);
  }
  std::set<int> drawn;
  for (std::size_t i = 0; i < 2; ++i) {
    const std::vector<int> numbers = ReadNumbers(pipes[i][0]);
    close(pipes[i][0]);
    int status = 0;
    waitpid(children[i], &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_THAT(numbers, testing::SizeIs(kDraws));
    drawn.insert(numbers.begin(), numbers.end());
  }
  EXPECT_EQ(drawn.size(), 2 * kDraws);
  EXPECT_EQ(*drawn.rbegin(), 2 * kDraws);
}
