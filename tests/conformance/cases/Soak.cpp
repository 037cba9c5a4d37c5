#include <chrono>
#include <cstdlib>
#include <map>
#include <random>
#include <set>
#include <thread>

#include "tests/conformance/Conformance.h"
#include "tests/support/BatchesTable.h"
#include "tests/support/ClientProcess.h"

// Several processes work on one database as chance has it. They are killed, and the server with them, over
// and over; after each round everything that was acknowledged must be there. `./zan soak` does it for as long
// as asked.

namespace zantest {

namespace {

using TClock = std::chrono::steady_clock;
using std::chrono::milliseconds;
using std::chrono::seconds;

constexpr int kClients = 4;
constexpr int kBatchesOfClient = 10'000;
constexpr seconds kUsualTime{3};

/// As long as ZAN_SOAK_SECONDS says.
seconds TimeToSoak() {
  const char* const asked = std::getenv("ZAN_SOAK_SECONDS");
  return asked != nullptr ? seconds(std::atoi(asked)) : kUsualTime;
}

/// What the clients of one round were told.
struct TRound {
  int Batches = 0;
  std::set<int> Draws;
  std::set<int> Users;
  std::vector<std::string> Faults;

  void Take(const std::vector<std::string>& lines) {
    for (const std::string& line : lines) {
      const std::size_t blank = line.find(' ');
      ASSERT_NE(blank, std::string::npos) << line;
      const std::string kind = line.substr(0, blank);
      const std::string rest = line.substr(blank + 1);
      if (kind == "batch") ++Batches;
      const bool isNew = (kind != "draw" || Draws.insert(std::stoi(rest)).second) &&
                         (kind != "user" || Users.insert(std::stoi(rest)).second);
      EXPECT_TRUE(isNew) << "given twice: " << line;
      if (kind == "fault") Faults.push_back(rest);
    }
  }
};

/// What was seen over the whole time, for the person who asked.
struct TSummary {
  int Kills = 0;
  int ServerKills = 0;
  int Batches = 0;
  std::size_t Users = 0;
  std::size_t Draws = 0;
  int HighestDraw = 0;
  std::map<std::string, int> Faults;

  void Add(const TRound& round) {
    Batches += round.Batches;
    Users += round.Users.size();
    Draws += round.Draws.size();
    if (!round.Draws.empty()) HighestDraw = *round.Draws.rbegin();
    for (const std::string& fault : round.Faults) ++Faults[fault.substr(0, fault.find(" ("))];
  }
  void Print() const {
    std::cout << Kills << " clients killed, the server " << ServerKills << " times. Acknowledged: " << Batches
              << " batches, " << Draws << " numbers, " << Users << " users." << std::endl;
    for (const auto& [fault, times] : Faults)
      std::cout << "  told " << times << " times: " << fault << std::endl;
  }
};

class TSoak {
 public:
  TSoak(TEngine& engine, unsigned seed) : FEngine(&engine), FRandom(seed) {}

  /// Clients work for a while and are killed.
  void RunRound(TRound& round) {
    std::vector<std::unique_ptr<TClientProcess>> clients;
    for (int i = 0; i < kClients; ++i)
      clients.push_back(std::make_unique<TClientProcess>(
          std::vector<std::string>{"mix", FEngine->Url(), std::to_string(Some(0, 1'000'000)),
                                   std::to_string(FirstBatch + i * kBatchesOfClient)}));
    for (const auto& client : clients) ASSERT_EQ(client->ReadLine(), "ready");
    std::this_thread::sleep_for(milliseconds(Some(5, 400)));
    const bool killsServer = FEngine->HasServer() && Some(1, 5) == 1;
    if (killsServer) FEngine->KillServer();
    for (const auto& client : clients) client->Kill();
    for (const auto& client : clients) round.Take(client->ReadRest());
    if (killsServer) FEngine->StartServer();
    Summary.Kills += kClients;
    Summary.ServerKills += killsServer ? 1 : 0;
  }

  /// What was acknowledged is there.
  void Check(zanhost::TDatabase& database, const TRound& round) {
    const int last = FirstBatch + kClients * kBatchesOfClient - 1;
    EXPECT_EQ(HalfBatches(database, FirstBatch, last), "");
    EXPECT_GE(CountBatches(database, FirstBatch, last), round.Batches) << "an acknowledged batch is gone";
    const int lowestDraw = round.Draws.empty() ? Summary.HighestDraw + 1 : *round.Draws.begin();
    EXPECT_GT(lowestDraw, Summary.HighestDraw) << "drawn before";
    std::set<int> missing = round.Users;
    const auto query = database.GetQuery();
    query->SQL().SetText("select OID from STUsers where OID >= " +
                         std::to_string(missing.empty() ? 0 : *missing.begin()));
    for (query->Open(); !query->Eof(); query->Next()) missing.erase(query->Fields(0).AsInteger());
    EXPECT_TRUE(missing.empty()) << "an acknowledged user is gone: " << *missing.begin();
    FirstBatch = last + 1;
    Summary.Add(round);
  }

  TSummary Summary;
  int FirstBatch = 0;

 private:
  int Some(int least, int most) { return std::uniform_int_distribution(least, most)(FRandom); }

  TEngine* FEngine;
  std::mt19937 FRandom;
};

}  // namespace

TEST_P(Conformance, Soak_ManyProcessesOnOneDatabase) {
  if (Engine().Url().empty()) GTEST_SKIP() << "another process cannot reach the databases of this engine";
  Engine().InstallSchema();
  MakeBatchesTable(Database());
  const unsigned seed = std::random_device()();
  std::cout << "seed " << seed << std::endl;
  TSoak soak(Engine(), seed);
  const TClock::time_point end = TClock::now() + TimeToSoak();
  while (TClock::now() < end && !HasFailure()) {
    TRound round;
    soak.RunRound(round);
    // A session of this process does not outlive the server.
    soak.Check(*Engine().OpenSession(), round);
  }
  EXPECT_EQ(TotalIsOffBy(*Engine().OpenSession()), 0);
  soak.Summary.Print();
}

}  // namespace zantest
