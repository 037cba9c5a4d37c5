#pragma once

#include <chrono>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>

namespace zanhost {

struct TThrottleRule {
  /// Tries that may fail without a delay.
  int FreeTries;
  /// After the next failed try one second, then twice as long each time, up to this.
  std::chrono::seconds LongestDelay;
};

/// Slows failed logins down, for each login name or each address. A try counts as failed until it succeeds,
/// so tries at the same time do not slip through together.
class TThrottle {
 public:
  using TTime = std::chrono::steady_clock::time_point;

  explicit TThrottle(TThrottleRule rule) : FRule(rule) {}

  /// How long `key` has to wait, zero when it may try. REQUIRES of a try: Begin right after.
  std::chrono::seconds Delay(std::string_view key, TTime now) const;
  void Begin(std::string_view key, TTime now);
  /// The try succeeded: it was none of those that count.
  void TakeBack(std::string_view key);
  /// A try was refused because it has to wait. True for the first one since the last try, so that a storm of
  /// them does not fill the log.
  bool NoteRefusal(std::string_view key);
  /// Forgets what failed before.
  void Forget(std::string_view key);

 private:
  struct TEntry {
    int Failures = 0;
    TTime Last;
    TTime Until;
    bool WasRefused = false;
  };
  using TEntries = std::map<std::string, TEntry, std::less<>>;
  TEntries::iterator Find(std::string_view key);
  void DropOld(TTime now);

  TThrottleRule FRule;
  TEntries FEntries;
};

}  // namespace zanhost
