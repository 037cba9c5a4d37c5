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
  /// REQUIRES: shape.HasPlainLiterals, and the brackets of the statement are closed.
  explicit TStatementPattern(const TStatementShape& shape);

  /// The length of the statement that `text` begins with, when that is one of this shape with a semicolon
  /// behind it; 0 otherwise, also for some that are of this shape. Fills in the literals.
  std::size_t Match(std::string_view text, TTokens& literals) const;

 private:
  /// What stands in front of a literal, and the kind of the literal.
  struct TPiece {
    std::string Text;
    TTokenKind Literal;
  };

  std::vector<TPiece> FPieces;
  std::string FEnd;  ///< behind the last literal
};

}  // namespace zanhost
