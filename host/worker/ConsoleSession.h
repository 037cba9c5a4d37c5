#pragma once

#include "host/worker/HostSession.h"
#include "host/worker/Installation.h"
#include "host/worker/SessionLoop.h"

namespace zanhost {

/// A login with a screen: everything from the database to the loop, in the order in which it needs each
/// other.
class TConsoleSession {
 public:
  /// Raises EZanError when the installation or the user cannot be found. `channel` must outlive the session.
  TConsoleSession(const TSessionOptions& options, TLineChannel& channel);
  ~TConsoleSession();
  TConsoleSession(const TConsoleSession&) = delete;
  TConsoleSession& operator=(const TConsoleSession&) = delete;

  TSessionLoop& Loop() { return FLoop; }
  THostSessionImpl& Host() { return FHost; }
  const TModule& Module() const { return FInstallation.Module(); }
  /// Takes the texts of another language, in all open windows too. Raises EProtocolError for one that is not
  /// known.
  void ChooseLanguage(const TEvent& event);

 private:
  void Log(const TOperationReport& report);

  TLineChannel* FChannel;
  TInstallation FInstallation;
  TLogin FLogin;
  std::string FName;
  TSessionLoop FLoop;
  THostSessionImpl FHost;
  TModuleSession FSession;
};

}  // namespace zanhost
