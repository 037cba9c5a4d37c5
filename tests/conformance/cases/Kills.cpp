#include <gmock/gmock.h>

#include <algorithm>
#include <iterator>
#include <random>
#include <thread>

#include "tests/conformance/Conformance.h"
#include "tests/support/BatchesTable.h"
#include "tests/support/ClientProcess.h"

// Clients, and the server itself, are killed in the middle of batches.

namespace zantest {

namespace {

using std::chrono::milliseconds;
using testing::IsEmpty;
using testing::Not;

/// Batches of one client are numbered from a number of its own on.
constexpr int kBatchesOfClient = 1'000'000;

/// Prints its seed, so that a run can be repeated as far as time allows.
std::mt19937 PrintedRandom() {
  const unsigned seed = std::random_device()();
  std::cout << "seed " << seed << std::endl;
  return std::mt19937(seed);
}

milliseconds SomeTime(std::mt19937& random, int least, int most) {
  return milliseconds(std::uniform_int_distribution(least, most)(random));
}

TClientProcess StartedWriter(const std::string& url, int first) {
  return TClientProcess({"batches", url, std::to_string(first)});
}

/// The numbers of the batches that the database acknowledged to a client.
std::vector<int> Acknowledged(const std::vector<std::string>& lines) {
  constexpr std::string_view kBatch = "batch ";
  std::vector<int> numbers;
  for (const std::string& line : lines)
    if (line.starts_with(kBatch)) numbers.push_back(std::stoi(line.substr(kBatch.size())));
  return numbers;
}

/// Those of the batches that the database does not hold.
std::vector<int> Lost(zanhost::TDatabase& database, std::vector<int> batches) {
  std::erase_if(batches, [&](int number) { return CountBatches(database, number, number) == 1; });
  return batches;
}

}  // namespace

TEST_P(Conformance, Kills_OfAClientLeaveNoHalfBatch) {
  constexpr int kKills = 200;
  const std::string url = Engine().Url();
  if (url.empty()) GTEST_SKIP() << "another process cannot reach the databases of this engine";
  MakeBatchesTable(Database());
  std::mt19937 random = PrintedRandom();
  int acknowledged = 0;
  for (int kill = 0; kill < kKills; ++kill) {
    const int first = kill * kBatchesOfClient;
    TClientProcess client = StartedWriter(url, first);
    ASSERT_EQ(client.ReadLine(), "ready");
    std::this_thread::sleep_for(SomeTime(random, 1, 20));
    client.Kill();
    const std::vector<int> known = Acknowledged(client.ReadRest());
    const int last = first + kBatchesOfClient - 1;
    ASSERT_EQ(HalfBatches(Database(), first, last), "") << "kill " << kill;
    ASSERT_THAT(Lost(Database(), known), IsEmpty()) << "kill " << kill;
    acknowledged += static_cast<int>(known.size());
  }
  EXPECT_GT(acknowledged, 0);
  const int batches = CountBatches(Database(), 0, kKills * kBatchesOfClient);
  EXPECT_EQ(TotalIsOffBy(Database()), 0);
  EXPECT_LE(batches, acknowledged + kKills) << "at most the last one of a client is not known to it";
  std::cout << batches << " batches, " << acknowledged << " of them acknowledged" << std::endl;
}

TEST_P(Conformance, Kills_OfTheServerLoseNothingThatWasAcknowledged) {
  constexpr int kKills = 4;
  constexpr int kClients = 3;
  if (!Engine().HasServer()) GTEST_SKIP() << "this engine has no server of its own";
  MakeBatchesTable(Database());
  std::mt19937 random = PrintedRandom();
  for (int kill = 0; kill < kKills; ++kill) {
    std::vector<std::unique_ptr<TClientProcess>> clients;
    const int first = kill * kClients * kBatchesOfClient;
    for (int i = 0; i < kClients; ++i)
      clients.push_back(std::make_unique<TClientProcess>(
          std::vector<std::string>{"batches", Engine().Url(), std::to_string(first + i * kBatchesOfClient)}));
    for (const auto& client : clients) ASSERT_EQ(client->ReadLine(), "ready");
    std::this_thread::sleep_for(SomeTime(random, 20, 100));
    Engine().KillServer();
    std::vector<int> acknowledged;
    for (const auto& client : clients)
      std::ranges::copy(Acknowledged(client->ReadRest()), std::back_inserter(acknowledged));
    EXPECT_NE(FaultOf("select 1 from Totals"), "") << "the server was killed";
    Engine().StartServer();
    // The session of before goes on, on a connection of its own.
    const int last = first + kClients * kBatchesOfClient - 1;
    ASSERT_EQ(HalfBatches(Database(), first, last), "") << "kill " << kill;
    ASSERT_THAT(Lost(Database(), acknowledged), IsEmpty()) << "kill " << kill;
    EXPECT_THAT(acknowledged, Not(IsEmpty()));
  }
  EXPECT_EQ(TotalIsOffBy(Database()), 0);
}

}  // namespace zantest
