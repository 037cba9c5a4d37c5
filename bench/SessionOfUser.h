#pragma once

#include <string>

#include "host/worker/FunctionCall.h"
#include "host/worker/FunctionSession.h"

namespace zanbench {

/// A session of one user of an installation, without a console, as a service holds it.
class TSessionOfUser {
 public:
  TSessionOfUser(const std::string& url, const std::string& login)
      : FInstallation({.Data = url, .User = login}),
        FScreen([](const std::string&) {}),
        FHost({FInstallation.Database(), FInstallation.Resources(), FInstallation.Settings(),
               FInstallation.Module(), FScreen, FScreen},
              zanhost::LoginOf(FInstallation.Database(), login)),
        FSession(FInstallation.Module(), FHost) {}

  /// The first output of a system function, with a comma behind it.
  std::string Ask(const char* function, const zanhost::TNamedValues& inputs = {}) {
    return zanhost::CallFunction(FHost.FuncManager(), function, inputs).Out.at(0).second + ",";
  }

 private:
  zanhost::TInstallation FInstallation;
  zanhost::TNoConsole FScreen;
  zanhost::THostSessionImpl FHost;
  zanhost::TModuleSession FSession;
};

}  // namespace zanbench
