#include "host/platform/TokenText.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/platform/Secrets.h"

namespace zanhost {

namespace {

constexpr std::string_view kPrefix = "zan_";
constexpr std::size_t kIdLength = 12;
constexpr std::size_t kSecretLength = 43;
constexpr std::size_t kSecretStart = kPrefix.size() + kIdLength + 1;

bool IsAlphanumeric(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool AreAlphanumeric(std::string_view text) { return std::ranges::all_of(text, IsAlphanumeric); }

}  // namespace

std::string NewTokenText() {
  return fmt::format("{}{}_{}", kPrefix, RandomAlphanumerics(kIdLength), RandomAlphanumerics(kSecretLength));
}

std::string_view TokenIdOf(std::string_view text) {
  if (!text.starts_with(kPrefix) || text.size() != kSecretStart + kSecretLength) return {};
  const std::string_view id = text.substr(kPrefix.size(), kIdLength);
  const bool isToken =
      text[kSecretStart - 1] == '_' && AreAlphanumeric(id) && AreAlphanumeric(text.substr(kSecretStart));
  return isToken ? id : std::string_view();
}

}  // namespace zanhost
