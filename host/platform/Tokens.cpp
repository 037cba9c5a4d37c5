#include "host/platform/Tokens.h"

#include <algorithm>

#include "host/platform/Secrets.h"
#include "host/platform/TokenFile.h"
#include "host/platform/TokenText.h"

namespace zanhost {

namespace {

// Compared with in the place of a token that there is not; no text has this digest.
constexpr std::string_view kNoHash = "0000000000000000000000000000000000000000000000000000000000000000";

bool Contains(const std::vector<std::string>& names, std::string_view name) {
  return std::ranges::find(names, name) != names.end();
}

bool Allows(const std::vector<std::string>& names, std::string_view name) {
  return Contains(names, kAnyName) || Contains(names, name);
}

}  // namespace

bool TTokenScope::AllowsFunction(std::string_view name, bool pastes) const {
  return pastes ? Contains(Functions, name) : Allows(Functions, name);
}

bool TTokenScope::AllowsQuestion(std::string_view name) const { return Allows(Questions, name); }

bool TTokenScope::AllowsLogin(std::string_view login) const { return Allows(Logins, login); }

bool TTokenScope::AllowsAllLogins() const { return Contains(Logins, kAnyName); }

std::optional<std::string> TTokenScope::OnlyLogin() const {
  if (Logins.size() != 1 || AllowsAllLogins()) return std::nullopt;
  return Logins.front();
}

TTokenVerdict TTokenBook::Check(std::string_view text, std::chrono::system_clock::time_point now,
                                TBearerToken& found) {
  Refresh();
  const auto token = FTokens.find(TokenIdOf(text));
  const bool isKnown = token != FTokens.end();
  const bool isRight = SameSecret(isKnown ? token->second.SecretHash : kNoHash, HexDigestOf(text));
  if (!isKnown || !isRight) return TTokenVerdict::Unknown;
  found = token->second;
  return found.IsExpired(now) ? TTokenVerdict::Expired : TTokenVerdict::Valid;
}

void TTokenBook::Refresh() {
  try {
    const std::optional<TFileStamp> stamp = StampOf(TokenFileOf(FFolder));
    if (!FIsCurrent || stamp != FStamp) ReadAgain(stamp);
    FFault.clear();
  } catch (const std::exception& fault) {
    FTokens.clear();
    FIsCurrent = false;
    const bool isNews = FFault != fault.what();
    FFault = fault.what();
    throw ETokensUnreadable(FFault, isNews);
  }
}

// What is read is at least as new as the stamp.
void TTokenBook::ReadAgain(const std::optional<TFileStamp>& stamp) {
  const bool isSettled = !stamp || IsSettled(*stamp);
  FTokens.clear();
  for (TBearerToken& token : ReadTokens(FFolder)) {
    std::string id = token.Id;
    FTokens.emplace(std::move(id), std::move(token));
  }
  FStamp = stamp;
  FIsCurrent = isSettled;
}

}  // namespace zanhost
