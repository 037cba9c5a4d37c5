#pragma once

#include <string>

#include "Frame/Session.h"
#include "host/worker/HostSession.h"
#include "host/worker/Installation.h"
#include "host/worker/NoConsole.h"

namespace zanbench {

/// A login of an installation, with a session of the logic that is linked into the benchmark. The session is
/// current on the thread that calls Enter.
class TRightsSession {
 public:
  TRightsSession(const std::string& url, const std::string& login)
      : FInstallation({.Data = url, .User = login}),
        FScreen([](const std::string&) {}),
        FHost({FInstallation.Database(), FInstallation.Resources(), FInstallation.Settings(),
               FInstallation.Module(), FScreen, FScreen},
              zanhost::LoginOf(FInstallation.Database(), login)),
        FSession(FHost) {}

  void Enter() { zanrole::TSession::MakeCurrent(&FSession); }

 private:
  zanhost::TInstallation FInstallation;
  zanhost::TNoConsole FScreen;
  zanhost::THostSessionImpl FHost;
  zanrole::TSession FSession;
};

}  // namespace zanbench
