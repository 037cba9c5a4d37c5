#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zanhost {

/// SHA-256 of the text, 64 hexadecimal digits in lower case.
std::string HexDigestOf(std::string_view text);

/// Compares two texts in a time that tells nothing about them but their lengths.
bool SameSecret(std::string_view a, std::string_view b);

/// Random letters and digits of ASCII, each of the 62 as likely as any other: 5.95 bits a sign. Raises
/// zanrole::ECipherError when the system gives no random numbers.
std::string RandomAlphanumerics(std::size_t length);

}  // namespace zanhost
