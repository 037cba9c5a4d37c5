#include <fmt/format.h>

#include "host/cli/Commands.h"
#include "host/cli/CommonOptions.h"
#include "host/platform/InstalledData.h"
#include "host/query/MariaDb/RestrictedAccount.h"

namespace zanhost {

namespace {

constexpr char kExamples[] = R"(Examples:
  zanhost restricted-account --data mysql://root@localhost/zan --account zan_ask@localhost | mariadb

Make the account before: create user zan_ask@localhost identified by '…'. The statements let it read the tables that are
there now, without the columns that may hold a password; run them again after the schema has changed. They change
nothing by themselves: they are printed.)";

int PrintGrants(const TSessionOptions& options, const std::string& account) {
  const std::unique_ptr<TDatabase> database = OpenInstalledData(options.Data);
  const TTracing tracing(*database, options);
  for (const std::string& grant : RestrictedAccountGrants(*database, account)) fmt::print("{};\n", grant);
  return 0;
}

}  // namespace

void AddRestrictedAccountCommand(CLI::App& program, TRun& run) {
  CLI::App* const command = program.add_subcommand(
      "restricted-account", "Print the rights of the account for functions that hold a text of their caller");
  command->footer(kExamples);
  const auto options = std::make_shared<TSessionOptions>();
  const auto account = std::make_shared<std::string>();
  AddCommonOptions(*command, *options);
  command->add_option("--account", *account, "Account of the MariaDB server")
      ->type_name("NAME[@HOST]")
      ->required();
  command->callback(
      [options, account, &run] { run = [options, account] { return PrintGrants(*options, *account); }; });
}

}  // namespace zanhost
