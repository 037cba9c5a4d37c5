#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zanhost {

// What the data URLs of servers have in common.

/// The text with each %XX replaced by its byte; nothing when a % is not followed by two hexadecimal digits.
std::optional<std::string> DecodedUrlPart(std::string_view text);

/// Cuts `text` at the first `sign` and gives what stood behind it; empty when there is none.
std::string_view CutBehind(std::string_view& text, char sign);

/// The first line of a file that holds a password. Raises EDatabaseError when it cannot be read.
std::string PasswordOfFile(const std::string& file);

}  // namespace zanhost
