#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
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

/// Where a parameter of a prepared statement takes its value from.
struct TParameterSource {
  static constexpr std::size_t NoLiteral = static_cast<std::size_t>(-1);
  std::string Name;                 ///< of the parameter in the module's text
  std::size_t Literal = NoLiteral;  ///< or the literal in whose place it stands
};

/// The value of a bound integer: digits alone, of which there are not too many.
std::int64_t IntegerOf(const TToken& literal);
/// The value of a bound text, when it stands in the statement as it is: without doubled quotes.
std::optional<std::string_view> WrittenContent(const TToken& literal);

/// Puts a "?" into the place of each literal that FindLiteralPlaces allows. `tokens` is the adapted statement
/// of `shape`; a rule may have moved, copied or dropped a literal. Statements of one shape with the same
/// fixed literals become the same text.
TLiteralBinding BindLiterals(const TStatementShape& shape, TTokens& tokens);

}  // namespace zanhost
