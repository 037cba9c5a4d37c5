#include "host/query/UrlParts.h"

#include <fmt/format.h>

#include <charconv>
#include <fstream>

#include "Frame/Host/Zandbs.h"

namespace zanhost {

std::optional<std::string> DecodedUrlPart(std::string_view text) {
  std::string decoded;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] != '%') {
      decoded += text[at];
      continue;
    }
    unsigned code = 0;
    const std::string_view digits = text.substr(at + 1, 2);
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), code, 16);
    if (digits.size() < 2 || error != std::errc() || end != digits.data() + 2) return std::nullopt;
    decoded += static_cast<char>(code);
    at += 2;
  }
  return decoded;
}

std::string_view CutBehind(std::string_view& text, char sign) {
  const std::size_t found = text.find(sign);
  if (found == std::string_view::npos) return {};
  const std::string_view behind = text.substr(found + 1);
  text = text.substr(0, found);
  return behind;
}

std::string PasswordOfFile(const std::string& file) {
  std::ifstream stream(file);
  std::string line;
  if (!std::getline(stream, line))
    throw zanrole::EDatabaseError(fmt::format("The password file '{}' cannot be read.", file), {});
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

}  // namespace zanhost
