#pragma once

#include <string_view>
#include <vector>

namespace zanhost {

/// The statements of a script as Oracle's command line clients take them: a statement ends at a ";" that is
/// left out; one that holds others (a block, a routine) ends at a line "/", and its own last ";" stays.
/// Quotes and comments hide what is in them. The views point into the script.
std::vector<std::string_view> SplitOracleScript(std::string_view script);

}  // namespace zanhost
