#include "host/worker/Worker.h"

#include "host/cli/Commands.h"
#include "host/cli/CommonOptions.h"

namespace zanhost {

void AddWorkerCommand(CLI::App& program, TRun& run) {
  // The server starts it for each login; nobody else has a use for it.
  CLI::App* const command = program.add_subcommand("worker", "One login of the server")->group("");
  const auto options = std::make_shared<TSessionOptions>();
  AddCommonOptions(*command, *options);
  AddLanguageOption(*command, *options);
  // The server names the folder of the login's files; no console writes any yet.
  command->add_option("--files", "Folder of the files of this login")->type_name("DIR");
  command->callback([options, &run] { run = [options] { return RunWorker(*options); }; });
}

}  // namespace zanhost
