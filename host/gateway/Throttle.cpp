#include "host/gateway/Throttle.h"

#include <algorithm>
#include <utility>

namespace zanhost {

namespace {

constexpr std::size_t kMostEntries = 20000;
constexpr std::chrono::minutes kForgetAfter{15};
constexpr int kMostDoublings = 20;
// Longer names count as one when they begin alike: nobody fills the memory with them.
constexpr std::size_t kLongestKey = 128;

}  // namespace

std::chrono::seconds TThrottle::Delay(std::string_view key, TTime now) const {
  const auto found = FEntries.find(key.substr(0, kLongestKey));
  if (found == FEntries.end() || found->second.Until <= now) return std::chrono::seconds::zero();
  return std::chrono::ceil<std::chrono::seconds>(found->second.Until - now);
}

void TThrottle::Begin(std::string_view key, TTime now) {
  if (FEntries.size() >= kMostEntries) DropOld(now);
  TEntry& entry = FEntries[std::string(key.substr(0, kLongestKey))];
  if (now - entry.Last > kForgetAfter) entry.Failures = 0;
  entry.Last = now;
  entry.WasRefused = false;
  ++entry.Failures;
  const int doublings = entry.Failures - FRule.FreeTries - 1;
  if (doublings < 0) return;
  const std::chrono::seconds delay(1LL << std::min(doublings, kMostDoublings));
  entry.Until = now + std::min(delay, FRule.LongestDelay);
}

TThrottle::TEntries::iterator TThrottle::Find(std::string_view key) {
  return FEntries.find(key.substr(0, kLongestKey));
}

bool TThrottle::NoteRefusal(std::string_view key) {
  const auto found = Find(key);
  return found != FEntries.end() && !std::exchange(found->second.WasRefused, true);
}

void TThrottle::TakeBack(std::string_view key) {
  const auto found = Find(key);
  if (found == FEntries.end()) return;
  found->second.Until = {};
  if (--found->second.Failures <= 0) FEntries.erase(found);
}

void TThrottle::Forget(std::string_view key) {
  const auto found = Find(key);
  if (found != FEntries.end()) FEntries.erase(found);
}

// Names that nobody tried for a while go first; when somebody fills the table faster, the oldest go.
void TThrottle::DropOld(TTime now) {
  std::erase_if(FEntries, [now](const auto& entry) { return now - entry.second.Last > kForgetAfter; });
  if (FEntries.size() < kMostEntries) return;
  const auto oldest = std::min_element(FEntries.begin(), FEntries.end(), [](const auto& a, const auto& b) {
    return a.second.Last < b.second.Last;
  });
  FEntries.erase(oldest);
}

}  // namespace zanhost
