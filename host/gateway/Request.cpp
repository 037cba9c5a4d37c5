#include "host/gateway/Request.h"

#include <fmt/format.h>

#include <charconv>

namespace zanhost {

namespace {

std::string_view Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// Calls `use` with each part; stops when it gives true.
template <typename TUse>
void EachPart(std::string_view text, char separator, TUse use) {
  while (!text.empty()) {
    const auto end = text.find(separator);
    if (use(Trimmed(text.substr(0, end)))) return;
    text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
  }
}

template <typename TMap>
std::string_view Lookup(const TMap& map, std::string_view name) {
  const auto found = map.find(name);
  return found == map.end() ? std::string_view() : std::string_view(found->second);
}

bool IsPlain(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '-' || c == '_' ||
         c == '.';
}

}  // namespace

std::string_view TRequest::Header(std::string_view name) const { return Lookup(Headers, name); }

std::string_view TRequest::QueryValue(std::string_view name) const { return Lookup(Query, name); }

void ReadTarget(TRequest& request, std::string_view target) {
  const auto question = target.find('?');
  request.Path = target.substr(0, question);
  if (question == std::string_view::npos) return;
  EachPart(target.substr(question + 1), '&', [&request](std::string_view part) {
    const auto equals = part.find('=');
    const auto name = PercentDecoded(part.substr(0, equals));
    const auto value =
        PercentDecoded(equals == std::string_view::npos ? std::string_view() : part.substr(equals + 1));
    if (name && value) request.Query.emplace(*name, *value);
    return false;
  });
}

void BelieveProxy(TRequest& request) {
  std::string_view last;
  EachPart(request.Header("x-forwarded-for"), ',', [&last](std::string_view part) {
    last = part;
    return false;
  });
  if (!last.empty()) request.Address = last;
  request.IsSecure = request.Header("x-forwarded-proto") == "https";
}

std::optional<std::string> PercentDecoded(std::string_view text) {
  std::string decoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '%') {
      decoded += text[i];
      continue;
    }
    if (i + 2 >= text.size()) return std::nullopt;
    const char* digits = text.data() + i + 1;
    unsigned char byte = 0;
    const auto [end, fault] = std::from_chars(digits, digits + 2, byte, 16);
    if (fault != std::errc() || end != digits + 2) return std::nullopt;
    decoded += static_cast<char>(byte);
    i += 2;
  }
  return decoded;
}

std::string PercentEncoded(std::string_view text) {
  std::string encoded;
  for (const char c : text) {
    if (IsPlain(c))
      encoded += c;
    else
      encoded += fmt::format("%{:02X}", static_cast<unsigned char>(c));
  }
  return encoded;
}

std::string_view CookieOf(const TRequest& request, std::string_view name) {
  std::string_view value;
  EachPart(request.Header("cookie"), ';', [&](std::string_view part) {
    const bool isIt = part.size() > name.size() && part.starts_with(name) && part[name.size()] == '=';
    if (isIt) value = part.substr(name.size() + 1);
    return isIt;
  });
  return value;
}

bool IsSameOrigin(const TRequest& request) {
  const std::string_view host = request.Header("host");
  return !host.empty() &&
         request.Header("origin") == fmt::format("{}://{}", request.IsSecure ? "https" : "http", host);
}

}  // namespace zanhost
