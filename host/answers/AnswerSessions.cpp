#include "host/answers/AnswerSessions.h"

#include <fmt/format.h>

#include <utility>

#include "host/answers/Reply.h"
#include "host/platform/Accounts.h"
#include "host/query/RestrictedDatabase.h"

namespace zanhost {

namespace {

/// More logins than these make the one that was not asked about for longest read anew.
constexpr std::size_t kMostSessions = 256;

}  // namespace

TAnswerSessions::TAnswerSessions(TInstallation& installation, std::string restrictedData)
    : FInstallation(installation),
      FRestrictedData(std::move(restrictedData)),
      FChanges(installation.Database()),
      FSessions(kMostSessions) {}

TAnswerSession& TAnswerSessions::Find(const TSessionKey& key) {
  FInstallation.Resources().SetLanguage(key.Language);
  if (FChanges.Noticed()) FSessions.Clear();
  const std::string text = fmt::format("{}{}{}", key.IsRestricted ? 'r' : 'o', key.Language, key.Login);
  std::unique_ptr<TAnswerSession>* const known = FSessions.Find(text);
  if (known != nullptr && !FChanges.IsTooOld((*known)->Made())) return **known;
  auto fresh = std::make_unique<TAnswerSession>(FInstallation, DatabaseFor(key), LoginFor(key.Login));
  if (known == nullptr) return *FSessions.Add(text, std::move(fresh));
  *known = std::move(fresh);
  return **known;
}

TLogin TAnswerSessions::LoginFor(const std::string& login) {
  if (login.empty()) return BuilderLogin();
  const std::optional<TAccount> account = FindAccount(FInstallation.Database(), login);
  if (!account) throw ERefusedQuestion(404, fmt::format("There is no user with the login '{}'.", login));
  return LoginOf(*account);
}

TDatabase& TAnswerSessions::DatabaseFor(const TSessionKey& key) {
  if (!key.IsRestricted) return FInstallation.Database();
  if (FRestrictedData.empty())
    throw ERefusedQuestion(403,
                           "This function puts texts of the caller into a statement. The server runs such "
                           "functions only when it is started with --restricted-data.");
  if (FRestricted == nullptr) {
    FRestricted = OpenRestricted(FRestrictedData);
    FRestricted->SetTrace(FInstallation.Trace());
    FInterruptible = FRestricted.get();
  }
  return *FRestricted;
}

void TAnswerSessions::CheckData() { FindAccount(FInstallation.Database(), {}); }

void TAnswerSessions::Interrupt() noexcept {
  FInstallation.Database().Interrupt();
  if (TDatabase* const restricted = FInterruptible) restricted->Interrupt();
}

void TAnswerSessions::ReleaseIdle() noexcept {
  FInstallation.Database().ReleaseIdle();
  if (FRestricted != nullptr) FRestricted->ReleaseIdle();
}

}  // namespace zanhost
