#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <string>

#include "host/platform/Tokens.h"

namespace zanhost {

/// How often each token may ask. A token that was quiet may ask as much at once as otherwise in one second.
class TTokenRates {
 public:
  using TTime = std::chrono::steady_clock::time_point;

  /// Counts a request. When it is one too many, gives how long to wait.
  std::optional<std::chrono::seconds> Take(const TBearerToken& token, TTime now);

 private:
  /// What a token may still ask, as of a time.
  struct TCredit {
    double Requests = 0;
    TTime At;
  };

  void DropFull(TTime now);

  std::map<std::string, TCredit> FCredits;
};

}  // namespace zanhost
