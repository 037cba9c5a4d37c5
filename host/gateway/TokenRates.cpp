#include "host/gateway/TokenRates.h"

#include <algorithm>
#include <cmath>

namespace zanhost {

namespace {

constexpr std::size_t kMostCredits = 1000;
constexpr std::chrono::seconds kFullAfter{1};

}  // namespace

std::optional<std::chrono::seconds> TTokenRates::Take(const TBearerToken& token, TTime now) {
  if (FCredits.size() >= kMostCredits) DropFull(now);
  const double perSecond = token.PerSecond;
  const auto [entry, isNew] = FCredits.try_emplace(token.Id, TCredit{perSecond, now});
  TCredit& credit = entry->second;
  const std::chrono::duration<double> passed = now - credit.At;
  credit.Requests = std::min(perSecond, credit.Requests + passed.count() * perSecond);
  credit.At = now;
  if (credit.Requests < 1) {
    const double wait = (1 - credit.Requests) / perSecond;
    return std::chrono::seconds(static_cast<std::int64_t>(std::ceil(wait)));
  }
  credit.Requests -= 1;
  return std::nullopt;
}

// A token that was quiet for so long starts as a new one does.
void TTokenRates::DropFull(TTime now) {
  std::erase_if(FCredits, [now](const auto& entry) { return now - entry.second.At > kFullAfter; });
}

}  // namespace zanhost
