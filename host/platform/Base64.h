#pragma once

#include <string>
#include <string_view>

namespace zanhost {

/// Base64 with the usual alphabet, padded, on one line.
std::string EncodeBase64(std::string_view bytes);

/// The bytes behind a base64 text. Line breaks and blanks between characters are passed over.
/// Raises zanrole::EConvertError for a text that is no base64.
std::string DecodeBase64(std::string_view text);

}  // namespace zanhost
