#pragma once

#include <string>
#include <string_view>

#include "Frame/Host/Zandbs.h"

namespace zanrole {

// How the answers about the organisation are read and joined. All raise EDatabaseError for a failing
// statement or a column that the result lacks.

/// The column in the first row, trimmed; empty when there is no row.
std::string FirstText(std::string statement, std::string_view column);

/// The trimmed values of all rows of an open query, joined by commas. Empty values count.
std::string JoinedValues(TZANQuery& query, std::string_view column);
/// The same for a statement.
std::string JoinedValues(std::string statement, std::string_view column);

/// The values of all rows of an open query as they stand, each on a line of its own that CR LF ends.
std::string ValueLines(TZANQuery& query, std::string_view column);
/// The lines as a list: each line end becomes a comma, so that one stands behind the last value too.
std::string LinesAsList(std::string_view lines);

}  // namespace zanrole
