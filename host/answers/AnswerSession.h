#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "host/worker/HostSession.h"
#include "host/worker/Installation.h"
#include "host/worker/NoConsole.h"

namespace zanhost {

/// A login's session without a console, one of many on a thread: it is the module's current one only while
/// somebody uses it.
class TAnswerSession {
 public:
  /// `database` is what its functions ask: that of the installation, or a restricted one. Both outlive the
  /// session.
  TAnswerSession(TInstallation& installation, TDatabase& database, const TLogin& login);
  ~TAnswerSession();
  TAnswerSession(const TAnswerSession&) = delete;
  TAnswerSession& operator=(const TAnswerSession&) = delete;

  /// Makes a session current for as long as it lives.
  class TUse {
   public:
    explicit TUse(TAnswerSession& session);
    ~TUse();
    TUse(const TUse&) = delete;
    TUse& operator=(const TUse&) = delete;

   private:
    const TModule& FModule;
    zanrole::TSession* FBefore;
  };

  // REQUIRES of all: a TUse of the session lives.
  THostSessionImpl& Host() { return FHost; }
  const TModule& Module() const { return FModule; }
  /// What its functions have shown since the last call.
  std::vector<std::string> TakeMessages();

  std::chrono::steady_clock::time_point Made() const { return FMade; }

 private:
  const TModule& FModule;
  std::vector<std::string> FMessages;
  TNoConsole FScreen;
  THostSessionImpl FHost;
  zanrole::TSession* FSession;
  std::chrono::steady_clock::time_point FMade = std::chrono::steady_clock::now();
};

}  // namespace zanhost
