#pragma once

#include <string_view>
#include <vector>

namespace zanhost {

/// The statements of a script as the server's own command line client would take them: a line "delimiter X"
/// says what ends a statement from then on, at first ";". Quotes and comments hide what is in them. Pieces
/// without a statement are left out. The views point into the script.
std::vector<std::string_view> SplitMariaDbScript(std::string_view script);

}  // namespace zanhost
