#pragma once

#include <string>
#include <string_view>

namespace zanhost {

/// Is it UTF-8 without control characters?
bool IsPlainText(std::string_view text);

/// The text with U+FFFD in the place of each byte that is no part of UTF-8: databases hold such bytes, and no
/// reader of JSON takes them.
std::string ValidUtf8(std::string text);

}  // namespace zanhost
