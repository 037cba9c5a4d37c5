#include <fmt/format.h>

#include "host/cli/Commands.h"
#include "host/cli/CommonOptions.h"
#include "host/cli/LoggedOperation.h"
#include "host/cli/PasswordInput.h"
#include "host/platform/Accounts.h"
#include "host/platform/FirstLogin.h"
#include "host/query/DataUrl.h"
#include "host/worker/HostSession.h"
#include "host/worker/NoConsole.h"

namespace zanhost {

namespace {

constexpr char kExamples[] = R"(Examples:
  zanhost passwd admin --data sqlite:data                  asks twice, shows nothing
  printf '%s\n' "$NEW" | zanhost passwd admin              takes one line of standard input
  zanhost passwd --data sqlite:data -- -login-with-dash

The next login does not ask for another password. A new password does not enable an account that is disabled.)";

struct TPasswdCommand {
  TSessionOptions Session;
  std::string Login;
};

TAccount RequireAccount(TDatabase& database, const std::string& login) {
  std::optional<TAccount> account = FindAccount(database, login);
  if (!account) throw zanrole::EZanError(fmt::format("There is no user with the login '{}'.", login));
  return *account;
}

TLogin OperatorOf(const TSessionOptions& options, TDatabase& database) {
  return options.User.empty() ? BuilderLogin() : LoginOf(database, options.User);
}

// The module stores the password, so that it is stored the way that the module's own consoles do it.
void StorePassword(TInstallation& installation, const TLogin& who, const TAccount& account,
                   const std::string& password) {
  TNoConsole screen([](const std::string& text) { fmt::print(stderr, "zanhost: {}\n", text); });
  THostSessionImpl host({installation.Database(), installation.Resources(), installation.Settings(),
                         installation.Module(), screen, screen},
                        who);
  const TModuleSession session(installation.Module(), host);
  installation.Module().Entries()->SavePassword(account.OID, account.Login, password);
}

int ChangePassword(const TPasswdCommand& command) {
  TInstallation installation(command.Session);
  const TAccount account = RequireAccount(installation.Database(), command.Login);
  const TLogin who = OperatorOf(command.Session, installation.Database());
  const std::string password = ReadNewPassword();
  return RunLogged(command.Session, "passwd " + account.Login, [&] {
    StorePassword(installation, who, account, password);
    ClearNeedReset(installation.Database(), account.Login);
    ForgetFirstLogin(FolderOfData(command.Session.Data), account.Login);
    fmt::print("The password of {} is changed.\n", account.Login);
    return 0;
  });
}

}  // namespace

void AddPasswdCommand(CLI::App& program, TRun& run) {
  CLI::App* const command = program.add_subcommand("passwd", "Give a user a new password");
  command->footer(kExamples);
  const auto options = std::make_shared<TPasswdCommand>();
  AddCommonOptions(*command, options->Session);
  command->add_option("LOGIN", options->Login, "Login of the user")->required();
  command->callback([options, &run] { run = [options] { return ChangePassword(*options); }; });
}

}  // namespace zanhost
