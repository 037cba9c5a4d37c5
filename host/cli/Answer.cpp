#include "host/answers/AnswerProcess.h"
#include "host/cli/Commands.h"
#include "host/cli/CommonOptions.h"
#include "host/gateway/Options.h"

namespace zanhost {

namespace {

struct TAnswerCommand {
  TSessionOptions Session;
  std::string RestrictedData;
};

}  // namespace

void AddAnswerCommand(CLI::App& program, TRun& run) {
  CLI::App* const command = program.add_subcommand("answer", "The questions of other services")->group("");
  const auto options = std::make_shared<TAnswerCommand>();
  AddCommonOptions(*command, options->Session);
  command->add_option("--restricted-data", options->RestrictedData)->envname(kRestrictedDataVariable);
  command->callback(
      [options, &run] { run = [options] { return RunAnswers(options->Session, options->RestrictedData); }; });
}

}  // namespace zanhost
