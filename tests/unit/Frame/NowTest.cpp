#include "Frame/Now.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <optional>

namespace zantest {
namespace {

using namespace zanrole;
using namespace std::chrono_literals;

/// The process is in another time zone for as long as the object lives.
class TTimeZone {
 public:
  explicit TTimeZone(const char* zone) {
    if (const char* before = std::getenv("TZ")) FBefore = before;
    Enter(zone);
  }
  ~TTimeZone() { Enter(FBefore ? FBefore->c_str() : nullptr); }
  TTimeZone(const TTimeZone&) = delete;
  TTimeZone& operator=(const TTimeZone&) = delete;

 private:
  static void Enter(const char* zone) {
    if (zone != nullptr)
      setenv("TZ", zone, 1);
    else
      unsetenv("TZ");
    tzset();
  }
  std::optional<std::string> FBefore;
};

TDateTime Utc() {
  return TDateTime(
      std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now()).time_since_epoch());
}

TEST(Now, IsTheTimeOfDayAtTheMachinesPlace) {
  {
    const TTimeZone shanghai("CST-8");
    EXPECT_LT(std::chrono::abs(Now() - Utc() - 8h), 1min);
  }
  const TTimeZone newYork("EST5");
  EXPECT_LT(std::chrono::abs(Now() - Utc() + 5h), 1min);
}

}  // namespace
}  // namespace zantest
