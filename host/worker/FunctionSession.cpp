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

template <typename TRunOperation>
auto TFunctionSession::Logged(std::string name, const TRunOperation& run) {
  const auto start = std::chrono::steady_clock::now();
  TOperation operation{FSessionName, FLogin.Login, std::move(name), "ok", {}};
  const auto write = [&] {
    operation.Took =
        std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start);
    FInstallation.Log().Write(operation);
  };
  try {
    auto outcome = run();
    write();
    return outcome;
  } catch (const std::exception& fault) {
    operation.Outcome = OutcomeOf(fault);
    write();
    throw;
  }
}

TCallOutcome TFunctionSession::Call(std::string_view name, const TNamedValues& inputs) {
  return Logged(fmt::format("call {}", name),
                [&] { return CallFunction(FHost.FuncManager(), name, inputs); });
}

zanrole::TServiceAnswer TFunctionSession::Ask(const TServiceQuestion& question) {
  return Logged(fmt::format("ask {}", question.Operation),
                [&] { return AskService(FInstallation.Module(), question); });
}

}  // namespace zanhost
