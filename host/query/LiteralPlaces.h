#pragma once

#include <vector>

#include "host/query/Tokens.h"

namespace zanhost {

/// How many literals an "in" list may hold, and how many a statement: lists of values come in every length,
/// so that statements with longer ones rarely come again in the same shape.
inline constexpr std::size_t kLongestInList = 16;
inline constexpr std::size_t kMostLiterals = 100;

struct TLiteralPlaces {
  /// For each token: it is a literal in whose place a parameter may stand without changing the result.
  std::vector<bool> Bindable;
  /// More literals than a statement that is kept may have.
  bool IsList = false;
};

/// Looks at an adapted statement. A literal stays one where it is more than a value or where its place
/// decides how the statement is read:
///  - in a select list, also of a union, where it decides the name and the type of a column;
///  - behind order by, group by and limit, where it counts columns or rows or must equal another expression;
///  - in a common table, which may be a recursion whose first select decides the types of its columns;
///  - in the brackets of a type or a window, and in a pattern of like or its escape, whose beginning an index
///    may use;
///  - in the bounds of a between: MariaDB compares bounds of different kinds otherwise when they are bound;
///  - in an "in" list of more than kLongestInList literals;
///  - in anything but a select, insert, update or delete.
TLiteralPlaces FindLiteralPlaces(const TTokens& tokens);

}  // namespace zanhost
