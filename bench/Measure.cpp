#include "bench/Measure.h"

#include <stdlib.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <vector>

namespace zanbench {

namespace {

double MicrosecondsOfRound(const TAsk& ask, int calls) {
  std::size_t read = 0;
  const auto start = std::chrono::steady_clock::now();
  for (int call = 0; call < calls; ++call) read += ask(call).size();
  const std::chrono::duration<double, std::micro> time = std::chrono::steady_clock::now() - start;
  if (read == 0) std::fprintf(stderr, "the question has no answer\n");
  return time.count() / calls;
}

/// The time that a tenth of the rounds undercut: other programs on the machine only ever make a round slower.
double QuietTime(std::vector<double> times) {
  const auto tenth = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 10);
  std::nth_element(times.begin(), tenth, times.end());
  return *tenth;
}

}  // namespace

TFolder::TFolder() {
  std::string pattern = "/tmp/zanbenchXXXXXX";
  FPath = mkdtemp(pattern.data());
}

TFolder::~TFolder() { std::filesystem::remove_all(FPath); }

void PrintHead() {
  std::printf("%-40s %10s %10s %8s %15s\n", "microseconds", "candidate", "floor", "ratio", "spread");
}

bool Compare(const char* name, const TAsk& candidate, const TAsk& floor, TEffort effort) {
  const std::string answer = floor(0);
  if (answer.empty() || answer != candidate(0)) {
    std::fprintf(stderr, "%s: candidate and floor give different answers, or none\n", name);
    return false;
  }
  std::vector<double> candidateTimes;
  std::vector<double> floorTimes;
  for (int round = 0; round < effort.Rounds; ++round) {
    floorTimes.push_back(MicrosecondsOfRound(floor, effort.CallsOfRound));
    candidateTimes.push_back(MicrosecondsOfRound(candidate, effort.CallsOfRound));
  }
  const double quiet = QuietTime(candidateTimes);
  const double bare = QuietTime(floorTimes);
  const auto [fastest, slowest] = std::minmax_element(candidateTimes.begin(), candidateTimes.end());
  std::printf("%-40s %10.3f %10.3f %8.2f %9.3f-%.3f\n", name, quiet, bare, quiet / bare, *fastest, *slowest);
  return true;
}

}  // namespace zanbench
