#pragma once

#include <algorithm>
#include <initializer_list>
#include <string>
#include <string_view>

#include "tests/conformance/scenario/Outline.h"

namespace zantest {

/// What a line says behind its first words: single words ("head") and words with a value ("below P1").
class TOptions {
 public:
  /// Raises EScenarioError for a word that is neither, so that a slip of the pen is not overlooked.
  TOptions(const TOutlineLine& line, std::size_t first, std::initializer_list<std::string_view> flags,
           std::initializer_list<std::string_view> values = {})
      : FLine(line), FFirst(first) {
    for (std::size_t i = first; i < line.Words.size(); ++i) {
      const std::string& word = line.Words[i];
      if (std::find(values.begin(), values.end(), word) != values.end())
        line.Word(++i, "a value");
      else if (std::find(flags.begin(), flags.end(), word) == flags.end())
        throw line.Error("what does \"" + word + "\" mean here?");
    }
  }

  bool Has(std::string_view flag) const { return Find(flag) != FLine.Words.size(); }
  /// The word behind this one; empty when it is not there.
  std::string Value(std::string_view word) const {
    const std::size_t at = Find(word);
    return at == FLine.Words.size() ? std::string{} : FLine.Words[at + 1];
  }

 private:
  std::size_t Find(std::string_view word) const {
    const auto begin =
        FLine.Words.begin() + static_cast<std::ptrdiff_t>(std::min(FFirst, FLine.Words.size()));
    return static_cast<std::size_t>(std::find(begin, FLine.Words.end(), word) - FLine.Words.begin());
  }

  const TOutlineLine& FLine;
  std::size_t FFirst;
};

}  // namespace zantest
