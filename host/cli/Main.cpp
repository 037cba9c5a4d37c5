#include <cstdio>
#include <exception>

#include <fmt/format.h>

#include "Frame/Host/Zandbs.h"
#include "host/cli/Commands.h"
#include "host/platform/Process.h"

namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

void AddCommands(CLI::App& program, zanhost::TRun& run) {
  zanhost::AddServeCommand(program, run);
  zanhost::AddSampleCommand(program, run);
  zanhost::AddSchemaCommand(program, run);
  zanhost::AddFunctionsCommand(program, run);
  zanhost::AddCallCommand(program, run);
  zanhost::AddAskCommand(program, run);
  zanhost::AddScriptCommand(program, run);
  zanhost::AddPasswdCommand(program, run);
  zanhost::AddBackupCommand(program, run);
  zanhost::AddRestrictedAccountCommand(program, run);
  zanhost::AddTokenCommand(program, run);
  zanhost::AddWorkerCommand(program, run);
  zanhost::AddAnswerCommand(program, run);
}

void Complain(const std::string& sentence) { fmt::print(stderr, "zanhost: {}\n", sentence); }

int Run(const zanhost::TRun& run) {
  try {
    return run();
  } catch (const zanrole::EDatabaseError& fault) {
    // The engine's words; the statement stays out, as it may carry a password.
    Complain(fault.Message());
  } catch (const std::exception& fault) {
    Complain(fault.what());
  }
  return kFailed;
}

}  // namespace

int main(int argc, char** argv) {
  zanhost::KeepPrivate();
  CLI::App program("Reference host of the administration of organisations, users, roles and domains.",
                   "zanhost");
  program.require_subcommand(1);
  program.footer("Help on a command: zanhost COMMAND --help");
  zanhost::TRun run;
  AddCommands(program, run);
  try {
    program.parse(argc, argv);
  } catch (const CLI::Success& answer) {
    return program.exit(answer);
  } catch (const CLI::ParseError& fault) {
    Complain(fmt::format("{} Try: zanhost --help", fault.what()));
    return kWrongUsage;
  }
  return Run(run);
}
