#pragma once

#include <string_view>
#include <vector>

namespace zanhost {

/// The pieces of a script that lines with nothing but `word` (in any case) separate: "go" of SQL Server's
/// clients, "/" of Oracle's. Pieces without a statement are left out. The views point into the script.
std::vector<std::string_view> SplitAtLines(std::string_view script, std::string_view word);

}  // namespace zanhost
