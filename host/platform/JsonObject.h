#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zanhost {

using TJsonMembers = std::vector<std::pair<std::string, std::string>>;

/// The members of a JSON object in their order, scalars as text ("12", "true", empty for null), nested values
/// left out; nothing when the text is no object.
std::optional<TJsonMembers> ParseJsonObject(std::string_view text);

}  // namespace zanhost
