#pragma once

#include <functional>
#include <string>

// What the benchmarks share: candidate and floor are measured by turns in one run, and told as one line.

namespace zanbench {

/// A folder that goes with the object.
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

/// Answers the call of this number; both sides must answer alike.
using TAsk = std::function<std::string(int call)>;

/// How often each side is asked.
struct TEffort {
  int Rounds = 200;
  int CallsOfRound = 500;
};

void PrintHead();
/// Prints a line: microseconds of candidate and floor, their ratio, and the candidate's fastest and slowest
/// round. False, and a complaint, when the two give different answers or an empty one.
bool Compare(const char* name, const TAsk& candidate, const TAsk& floor, TEffort effort = {});

}  // namespace zanbench
