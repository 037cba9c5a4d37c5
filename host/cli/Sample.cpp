#include <fmt/format.h>

#include "host/cli/Commands.h"
#include "host/cli/CommonOptions.h"
#include "host/cli/LoggedOperation.h"
#include "host/platform/Cipher.h"
#include "host/platform/FirstLogin.h"
#include "host/platform/Sample.h"
#include "host/platform/Schema.h"
#include "host/query/DataUrl.h"

namespace zanhost {

namespace {

constexpr char kExamples[] = R"(Examples:
  zanhost sample --data sqlite:data                   a company of 500 people
  zanhost sample --data sqlite:data --people 20000    a larger one

Makes the database when there is none. The administrator's password is made for this installation; it is shown
once and kept in FOLDER/first-login.txt until it is changed.)";

constexpr unsigned kDefaultSeed = 20240102;

struct TSampleCommand {
  TSessionOptions Common;
  int People = 500;
  unsigned Seed = kDefaultSeed;
  bool Quiet = false;
};

void TellSize(const TSampleResult& made) {
  fmt::print(
      "Made a sample company: {} people in {} departments of {} companies, {} accounts, {} roles, {} "
      "domains.\n",
      made.People, made.Departments, made.Companies, made.Users, made.Roles, made.Domains);
}

void TellFirstLogin(const TFirstLogin& first) {
  fmt::print("Administrator: {}\nPassword:      {}\n", first.Login, first.Password);
}

int MakeAndTell(const TSampleCommand& command) {
  const std::filesystem::path folder = FolderOfData(command.Common.Data);
  const std::unique_ptr<TDatabase> database = OpenDatabase(command.Common.Data, TOpenMode::CreateIfMissing);
  const TTracing tracing(*database, command.Common);
  return RunLogged(command.Common, "sample", [&] {
    InstallSchema(*database);
    TSivCipher cipher(KeyFileOf(folder));
    const std::string password = MakeFirstPassword();
    const TSampleResult made = MakeSample(
        *database,
        {.People = command.People, .Seed = command.Seed, .AdminPassword = password, .Cipher = cipher});
    const TFirstLogin first{made.AdminLogin, password};
    WriteFirstLogin(folder, first);
    TellSize(made);
    if (!command.Quiet) TellFirstLogin(first);
    return 0;
  });
}

}  // namespace

void AddSampleCommand(CLI::App& program, TRun& run) {
  CLI::App* const command = program.add_subcommand("sample", "Fill an empty database with a sample company");
  command->footer(kExamples);
  const auto options = std::make_shared<TSampleCommand>();
  AddCommonOptions(*command, options->Common);
  command->add_option("--people", options->People, "Number of people")->type_name("N")->capture_default_str();
  command->add_option("--seed", options->Seed, "Equal seeds make equal companies")
      ->type_name("N")
      ->capture_default_str();
  command->add_flag("--quiet", options->Quiet, "Do not show the password: FOLDER/first-login.txt holds it");
  command->callback([options, &run] { run = [options] { return MakeAndTell(*options); }; });
}

}  // namespace zanhost
