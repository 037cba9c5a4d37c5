#include "host/platform/UtcTime.h"

#include <fmt/chrono.h>
#include <time.h>

namespace zanhost {

namespace {

// As members of tm count: the clock of the system does not reach much further.
constexpr int kFirstYear = 1970 - 1900;
constexpr int kLastYear = 2200 - 1900;

}  // namespace

std::string UtcText(std::chrono::system_clock::time_point time) {
  return fmt::format("{:%Y-%m-%dT%H:%M:%SZ}", fmt::gmtime(std::chrono::system_clock::to_time_t(time)));
}

std::optional<std::chrono::system_clock::time_point> ParseUtcText(const std::string& text) {
  std::tm parts{};
  if (::strptime(text.c_str(), "%Y-%m-%dT%H:%M:%SZ", &parts) == nullptr) return std::nullopt;
  if (parts.tm_year < kFirstYear || parts.tm_year > kLastYear) return std::nullopt;
  const auto time = std::chrono::system_clock::from_time_t(::timegm(&parts));
  // The 30th of February, and what is written in another way, does not come back as it was.
  if (UtcText(time) != text) return std::nullopt;
  return time;
}

}  // namespace zanhost
