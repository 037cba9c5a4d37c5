#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zantest {

/// Something in a scenario file that cannot be understood. `what()` begins with the file and the line.
class EScenarioError : public std::runtime_error {
 public:
  EScenarioError(const std::string& file, int line, const std::string& problem)
      : std::runtime_error(file + ":" + std::to_string(line) + ": " + problem) {}
};

/// A line of an outline with the lines that are indented below it.
struct TOutlineLine {
  std::string File;
  int Number = 0;                  ///< 1-based; 0 for the outline itself
  std::string Text;                ///< without indentation and comment
  std::vector<std::string> Words;  ///< split at blanks; "two words" between double quotes are one
  std::vector<TOutlineLine> Below;

  /// REQUIRES nothing: raises EScenarioError when the line has no such word. `what` names it for a person.
  const std::string& Word(std::size_t index, const char* what) const;
  EScenarioError Error(const std::string& problem) const { return {File, Number, problem}; }
};

/// Reads an outline: lines below others are indented deeper, "#" begins a comment, empty lines do not count.
/// Raises EScenarioError for tabs, an open quotation and an indentation that fits no line above.
TOutlineLine ReadOutline(const std::string& file, std::string_view text);

}  // namespace zantest
