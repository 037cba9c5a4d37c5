#pragma once

#include <string>
#include <vector>

#include "tests/conformance/scenario/Numbers.h"

namespace zantest {

/// A line "WHAT argument … = answer", "… ~ answers, in any order" or "… fails".
struct TQuestion {
  std::string What;
  std::vector<std::string> Arguments;
  enum class TExpectation { Equals, SameValues, Fails } Expectation = TExpectation::Equals;
  std::string Expected;
};

/// Reads a question; "-" is the empty text, "@name" the number of what the scenario names.
/// Raises EScenarioError.
TQuestion ReadQuestion(const TOutlineLine& line, const TNumbers& numbers);

/// Asks the module, as the session that is current. Truth values read "yes" and "no". Raises EScenarioError
/// for a question that nobody answers, or that takes fewer arguments; EDatabaseError when it fails.
std::string AnswerTo(const TQuestion& question, const TOutlineLine& line);

/// Why the answer is not what the line expects; empty when it is.
std::string WhyNot(const TQuestion& question, const TOutlineLine& line);

}  // namespace zantest
