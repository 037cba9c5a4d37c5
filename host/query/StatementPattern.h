#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/query/StatementReader.h"

namespace zanhost {

/// The pieces of a statement between its literals: with them the statements of its shape are recognised
/// without a look at their tokens.
class TStatementPattern {
 public:
  /// The literals whose places `fixed` tells, in ascending order, are part of the pattern.
  /// REQUIRES: shape.HasPlainLiterals, and the brackets of the statement are closed.
  explicit TStatementPattern(const TStatementShape& shape, const std::vector<std::size_t>& fixed = {});

  // Both are also false for some statements that are of this pattern. They fill in the literals; fixed ones
  // stay empty.

  /// The length of the statement that `text` begins with, when that is one of this pattern with a semicolon
  /// behind it; 0 otherwise.
  std::size_t Match(std::string_view text, TTokens& literals) const;
  /// Is the whole text a statement of this pattern?
  bool MatchWhole(std::string_view text, TTokens& literals) const;

  /// What each statement of this pattern begins with: all in front of the first literal that is not fixed.
  std::string_view Beginning() const { return FPieces.empty() ? FEnd : FPieces.front().Text; }

 private:
  /// What stands in front of a literal, the kind of the literal, and its place among all.
  struct TPiece {
    std::string Text;
    TTokenKind Literal;
    std::size_t Place;
  };

  std::size_t MatchBeginning(std::string_view text, TTokens& literals) const;

  std::vector<TPiece> FPieces;
  std::string FEnd;  ///< behind the last literal
  std::size_t FLiterals;
};

}  // namespace zanhost
