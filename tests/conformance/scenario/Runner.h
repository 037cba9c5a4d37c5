#pragma once

#include <string>
#include <vector>

#include "host/query/Database.h"

namespace zantest {

/// A line of a scenario file whose answer is not the expected one.
struct TWrongAnswer {
  int Line;
  std::string Question;
  std::string Why;
};

struct TScenarioResult {
  int Questions = 0;
  std::vector<TWrongAnswer> WrongAnswers;
};

/// Makes what the text tells in an installed, empty database and asks its questions, line by line. `file` is
/// named in errors. Raises EScenarioError.
TScenarioResult RunScenario(zanhost::TDatabase& database, const std::string& file, const std::string& text);

}  // namespace zantest
