#include "bench/Measure.h"

#include <pthread.h>
#include <sched.h>
#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>

#include "bench/ResultsFile.h"

namespace zanbench {

namespace {

/// Shorter than the time for which a system leaves a program the processor: where others want it too, some
/// rounds still pass undisturbed.
constexpr double kMicrosecondsOfRound = 500;

/// Microseconds of a call, of those from `first` on.
double TimeRound(const TAsk& ask, int first, int calls) {
  const auto start = std::chrono::steady_clock::now();
  for (int call = first; call < first + calls; ++call) ask(call);
  const std::chrono::duration<double, std::micro> time = std::chrono::steady_clock::now() - start;
  return time.count() / calls;
}

/// How many calls make a round.
int CallsOfRound(const TAsk& ask) {
  double time = kMicrosecondsOfRound;
  for (int call = 0; call < 5; ++call) time = std::min(time, TimeRound(ask, call, 1));
  return std::max(1, static_cast<int>(kMicrosecondsOfRound / time));
}

/// The time that a tenth of the rounds undercut: other programs on the machine only ever make a round slower.
double QuietTime(std::vector<double> times) {
  const auto tenth = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 10);
  std::nth_element(times.begin(), tenth, times.end());
  return *tenth;
}

void Print(const TComparison& line) {
  std::printf("%-40s %10.3f %10.3f %6.2f %6.2f %-6s %10.3f-%.3f\n", line.Name.c_str(), line.Candidate,
              line.Floor, line.Ratio(), line.Goal, line.IsMet() ? "met" : "MISSED", line.Fastest,
              line.Slowest);
  std::fflush(stdout);
}

}  // namespace

void StayOn(int processor) {
  cpu_set_t processors;
  CPU_ZERO(&processors);
  CPU_SET(processor, &processors);
  pthread_setaffinity_np(pthread_self(), sizeof processors, &processors);
}

TFolder::TFolder() {
  const bool inMemory = access("/dev/shm", W_OK | X_OK) == 0;
  FPath = std::string(inMemory ? "/dev/shm" : "/tmp") + "/zanbenchXXXXXX";
  if (mkdtemp(FPath.data()) == nullptr) std::perror(FPath.c_str());
}

TFolder::~TFolder() { std::filesystem::remove_all(FPath); }

TReport::TReport(std::string benchmark, std::string engine)
    : FBenchmark(std::move(benchmark)), FEngine(std::move(engine)) {
  std::printf("\n%s on %s\n%-40s %10s %10s %6s %6s %-6s %18s\n", FBenchmark.c_str(), FEngine.c_str(),
              "microseconds", "candidate", "floor", "ratio", "goal", "", "spread");
}

void TReport::Compare(const std::string& name, double goal, const TAsk& candidate, const TAsk& floor,
                      int calls) {
  const std::string answer = floor(0);
  if (answer.empty() || answer != candidate(0))
    return Complain(name + ": candidate and floor give different answers, or none");
  std::vector<double> candidateTimes;
  std::vector<double> floorTimes;
  const int ofRound = CallsOfRound(floor);
  for (int call = 0; call < calls; call += ofRound) {
    floorTimes.push_back(TimeRound(floor, call, ofRound));
    candidateTimes.push_back(TimeRound(candidate, call, ofRound));
  }
  const auto [fastest, slowest] = std::minmax_element(candidateTimes.begin(), candidateTimes.end());
  FComparisons.push_back({.Name = name,
                          .Candidate = QuietTime(candidateTimes),
                          .Floor = QuietTime(floorTimes),
                          .Goal = goal,
                          .Fastest = *fastest,
                          .Slowest = *slowest});
  Print(FComparisons.back());
}

int TReport::Finish() {
  const char* const file = std::getenv("ZAN_BENCH_RESULTS");
  if (file != nullptr && !AddResults(file, FBenchmark, FEngine, FComparisons))
    Complain(std::string("The results cannot be written to ") + file);
  return FComplained ? 1 : 0;
}

void TReport::Complain(const std::string& text) {
  std::fprintf(stderr, "%s\n", text.c_str());
  FComplained = true;
}

}  // namespace zanbench
