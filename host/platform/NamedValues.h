#pragma once

#include <string>
#include <utility>
#include <vector>

namespace zanhost {

/// Parameters of a function with their values, as texts.
using TNamedValues = std::vector<std::pair<std::string, std::string>>;

}  // namespace zanhost
