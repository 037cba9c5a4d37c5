#include "host/worker/FunctionSession.h"

#include <fmt/format.h>
#include <unistd.h>

#include <chrono>

namespace zanhost {

TLogin ChosenLogin(const TSessionOptions& options, TDatabase& database) {
  if (options.Builder) return BuilderLogin();
  if (options.User.empty()) throw zanrole::EZanError("Say who works here: a user's login, or the builder");
  return LoginOf(database, options.User);
}

std::string NewSessionName() {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return fmt::format("{}-{:x}", getpid(), std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

TFunctionSession::TFunctionSession(const TSessionOptions& options, TNoConsole::TOnMessage onMessage)
    : FInstallation(options),
      FLogin(ChosenLogin(options, FInstallation.Database())),
      FScreen(std::move(onMessage)),
      FHost({FInstallation.Database(), FInstallation.Resources(), FInstallation.Settings(),
             FInstallation.Module(), FScreen, FScreen},
            FLogin),
      FSession(FInstallation.Module(), FHost),
      FSessionName(NewSessionName()) {
  if (options.Domain) FInstallation.Module().Entries()->SetCurrentDomainID(*options.Domain);
}

TCallOutcome TFunctionSession::Call(std::string_view name, const TNamedValues& inputs) {
  const auto start = std::chrono::steady_clock::now();
  TOperation operation{FSessionName, FLogin.Login, fmt::format("call {}", name), "ok", {}};
  const auto write = [&] {
    operation.Took =
        std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start);
    FInstallation.Log().Write(operation);
  };
  try {
    TCallOutcome outcome = CallFunction(FHost.FuncManager(), name, inputs);
    write();
    return outcome;
  } catch (const std::exception& fault) {
    operation.Outcome = OutcomeOf(fault);
    write();
    throw;
  }
}

}  // namespace zanhost
