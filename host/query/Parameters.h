#pragma once

#include <string>
#include <vector>

#include "host/query/Tokens.h"

namespace zanhost {

/// Puts a "?" in the place of each parameter and gives the names, in the order of the places.
std::vector<std::string> TakeParameters(TTokens& tokens);

/// "select *" and "a.*": what they give changes with the table, and a statement that was prepared before does
/// not see it.
bool ListsAllColumns(const TTokens& tokens);

}  // namespace zanhost
