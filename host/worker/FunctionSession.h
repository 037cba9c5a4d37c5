#pragma once

#include "host/worker/FunctionCall.h"
#include "host/worker/HostSession.h"
#include "host/worker/Installation.h"
#include "host/worker/NoConsole.h"
#include "host/worker/ServiceQuestion.h"

namespace zanhost {

/// A session of one login without a console: system functions are run in it by name. Lives on one thread.
class TFunctionSession {
 public:
  /// `onMessage` gets the text of each message that a function shows. Raises EZanError when the installation
  /// or the user cannot be found.
  TFunctionSession(const TSessionOptions& options, TNoConsole::TOnMessage onMessage);

  /// As zanhost::CallFunction; writes one line to the installation's log.
  TCallOutcome Call(std::string_view name, const TNamedValues& inputs);
  /// As zanhost::AskService; writes one line to the installation's log.
  zanrole::TServiceAnswer Ask(const TServiceQuestion& question);
  /// All functions of the installation, in the order of the module's table.
  const std::vector<TFunction>& Functions() { return FHost.FuncManager().Functions(); }
  /// As THostFuncManager::Duplicates.
  const std::vector<std::string>& Duplicates() { return FHost.FuncManager().Duplicates(); }

 private:
  /// Runs an operation and writes a line about it to the installation's log.
  template <typename TRunOperation>
  auto Logged(std::string name, const TRunOperation& run);

  TInstallation FInstallation;
  TLogin FLogin;
  TNoConsole FScreen;
  THostSessionImpl FHost;
  TModuleSession FSession;
  std::string FSessionName;
};

/// The login that the options ask for. Raises EZanError when there is no such user, or none is named.
TLogin ChosenLogin(const TSessionOptions& options, TDatabase& database);

/// A name for a session that tells it from others in the log: the process and the time of its start.
std::string NewSessionName();

}  // namespace zanhost
