#include "host/worker/ConsoleSession.h"

#include "host/worker/FunctionSession.h"

namespace zanhost {

TConsoleSession::TConsoleSession(const TSessionOptions& options, TLineChannel& channel)
    : FChannel(&channel),
      FInstallation(options),
      FLogin(ChosenLogin(options, FInstallation.Database())),
      FName(NewSessionName()),
      FLoop(channel, FInstallation.Resources()),
      FHost({FInstallation.Database(), FInstallation.Resources(), FInstallation.Settings(),
             FInstallation.Module(), FLoop, FLoop},
            FLogin),
      FSession(FInstallation.Module(), FHost) {
  if (options.Domain) FInstallation.Module().Entries()->SetCurrentDomainID(*options.Domain);
  FLoop.OnIdle = [this] { FInstallation.Database().ReleaseIdle(); };
  FChannel->SetOnCancel([this](std::int64_t) { FInstallation.Database().Interrupt(); });
  FLoop.OnOperation = [this](const TOperationReport& report) { Log(report); };
}

TConsoleSession::~TConsoleSession() { FChannel->SetOnCancel(nullptr); }

void TConsoleSession::ChooseLanguage(const TEvent& event) {
  const std::string* const language = std::get_if<std::string>(&event.Value);
  if (language == nullptr || (*language != "zh" && *language != "en"))
    throw EProtocolError("\"value\" must be zh or en");
  FInstallation.Resources().SetLanguage(*language);
  FLoop.RefreshCaptions();
}

void TConsoleSession::Log(const TOperationReport& report) {
  const std::string outcome = report.Fault != nullptr ? OutcomeOf(*report.Fault) : "ok";
  FInstallation.Log().Write(
      {FName, FLogin.IsBuilder ? FLogin.Name : FLogin.Login, report.Name, outcome, report.Took});
}

}  // namespace zanhost
