#pragma once

#include <cstddef>
#include <vector>

#include "host/query/StatementReader.h"

namespace zanhost {

/// What became of the literals of a statement; each is known by its place among them in the module's text.
struct TLiteralBinding {
  std::vector<std::size_t> Bound;  ///< whose value each "?" takes, in the order of the adapted statement
  std::vector<std::size_t> Fixed;  ///< that still stand in the statement
  /// Statements of this shape may be kept: they hold no list of values that rarely comes again.
  bool MayBeKept = false;
};

/// Puts a "?" into the place of each literal that FindLiteralPlaces allows. `tokens` is the adapted statement
/// of `shape`; a rule may have moved, copied or dropped a literal. Statements of one shape with the same
/// fixed literals become the same text.
TLiteralBinding BindLiterals(const TStatementShape& shape, TTokens& tokens);

}  // namespace zanhost
