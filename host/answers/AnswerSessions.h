#pragma once

#include <atomic>
#include <memory>
#include <string>

#include "host/answers/AnswerSession.h"
#include "host/answers/DataChanges.h"
#include "host/query/RecentlyUsed.h"

namespace zanhost {

/// Which session answers.
struct TSessionKey {
  /// Empty for questions that are about nobody.
  std::string Login;
  /// "zh" or "en": what a session has read in one language stays in it.
  std::string Language;
  /// Runs on the restricted connection.
  bool IsRestricted = false;
};

/// The sessions that an answer process keeps: those used last, as long as the rights they have read hold.
class TAnswerSessions {
 public:
  /// `restrictedData` is the data URL for OpenRestricted; empty where functions that need it are refused.
  TAnswerSessions(TInstallation& installation, std::string restrictedData);

  /// The session of a key, in the language of the key. It lives until the next call. Raises ERefusedQuestion
  /// for an unknown login and where no restricted connection can be had, otherwise EDatabaseError.
  TAnswerSession& Find(const TSessionKey& key);
  /// Raises EDatabaseError when the data cannot be read.
  void CheckData();
  /// Ends the statement that is running. From any thread.
  void Interrupt() noexcept;
  /// To be called when nothing is asked for a while.
  void ReleaseIdle() noexcept;

 private:
  TLogin LoginFor(const std::string& login);
  TDatabase& DatabaseFor(const TSessionKey& key);

  TInstallation& FInstallation;
  std::string FRestrictedData;
  /// Opened at first use.
  std::unique_ptr<TDatabase> FRestricted;
  /// FRestricted for other threads.
  std::atomic<TDatabase*> FInterruptible = nullptr;
  TDataChanges FChanges;
  TRecentlyUsed<std::unique_ptr<TAnswerSession>> FSessions;
};

}  // namespace zanhost
