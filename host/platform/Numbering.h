#pragma once

#include <string_view>

#include "host/query/Database.h"

namespace zanhost {

/// The next number of a counter ("Party", "user" ...). A counter comes into being at its first use, names
/// fold the case of ASCII letters, and the number is above every number that the counter's table holds. One
/// statement draws it, so two sessions or processes never get the same one. Raises EDatabaseError.
int NewDjLsh(TDatabase& database, std::string_view name);

}  // namespace zanhost
