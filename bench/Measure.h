#pragma once

#include <functional>
#include <string>
#include <vector>

// What the benchmarks share: candidate and floor are measured by turns in one run, and told as one line.

namespace zanbench {

/// A folder that goes with the object, in memory where the machine has such: what a disk takes is the same
/// for candidate and floor, and much more than either.
class TFolder {
 public:
  TFolder();
  ~TFolder();
  TFolder(const TFolder&) = delete;
  TFolder& operator=(const TFolder&) = delete;
  const std::string& Path() const { return FPath; }

 private:
  std::string FPath;
};

/// The calling thread stays on one processor: a system takes longer to spread threads than a round lasts.
/// Where the machine lacks the processor the thread runs anywhere.
void StayOn(int processor);

/// Answers the call of this number; both sides must answer alike.
using TAsk = std::function<std::string(int call)>;

/// How often each side is asked, unless a comparison says otherwise.
inline constexpr int kUsualCalls = 100'000;

/// One line of a report; times in microseconds.
struct TComparison {
  std::string Name;
  double Candidate = 0;
  double Floor = 0;
  double Goal = 0;  ///< what the ratio of the two should be at most
  double Fastest = 0;
  double Slowest = 0;  ///< rounds of the candidate
  double Ratio() const { return Candidate / Floor; }
  bool IsMet() const { return Ratio() <= Goal; }
};

/// The lines that one program prints. Where ZAN_BENCH_RESULTS names a file they are added to it, as JSON,
/// with what the machine is and the versions of the engines.
class TReport {
 public:
  /// Prints the head. `engine` is name and version.
  TReport(std::string benchmark, std::string engine);

  /// Prints a line, or a complaint when the two give different answers or an empty one. Each side is asked
  /// `calls` times, in short rounds by turns.
  void Compare(const std::string& name, double goal, const TAsk& candidate, const TAsk& floor,
               int calls = kUsualCalls);
  /// Writes the file. What main returns: 0 unless there was a complaint. A missed goal is none: what else the
  /// machine does may be the reason.
  int Finish();

 private:
  void Complain(const std::string& text);

  std::string FBenchmark;
  std::string FEngine;
  std::vector<TComparison> FComparisons;
  bool FComplained = false;
};

}  // namespace zanbench
