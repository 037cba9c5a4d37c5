#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace zanhost {

/// "2027-01-31T08:00:00Z"; what is less than a second is left out.
std::string UtcText(std::chrono::system_clock::time_point time);

/// Reads what UtcText writes; nothing for any other text and for days that no calendar has. Years 1970 to
/// 2200.
std::optional<std::chrono::system_clock::time_point> ParseUtcText(const std::string& text);

}  // namespace zanhost
