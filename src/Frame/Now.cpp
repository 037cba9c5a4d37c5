#include "Frame/Now.h"

#include <ctime>

namespace zanrole {

TDateTime Now() {
  using namespace std::chrono;
  const auto now = floor<milliseconds>(system_clock::now());
  const std::time_t seconds = system_clock::to_time_t(now);
  std::tm place{};
  localtime_r(&seconds, &place);
  return TDateTime(now.time_since_epoch() + std::chrono::seconds(place.tm_gmtoff));
}

}  // namespace zanrole
