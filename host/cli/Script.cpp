#include "host/worker/Worker.h"

#include "host/cli/Commands.h"
#include "host/cli/CommonOptions.h"

namespace zanhost {

namespace {

constexpr char kExamples[] = R"(Examples:
  zanhost script --user admin --data sqlite:data
  printf '%s\n' '{"n":1,"do":"menu","function":"域管理","style":0}' '{"n":2,"do":"quit"}' | zanhost script --builder

Reads one event a line and writes one answer a line, as docs/protocol.md tells.)";

int RunFor(const TSessionOptions& options) {
  RequireOperator(options);
  return RunScript(options);
}

}  // namespace

void AddScriptCommand(CLI::App& program, TRun& run) {
  CLI::App* const command = program.add_subcommand("script", "Drive consoles by JSON lines");
  command->footer(kExamples);
  const auto options = std::make_shared<TSessionOptions>();
  AddCommonOptions(*command, *options);
  AddLanguageOption(*command, *options);
  command->callback([options, &run] { run = [options] { return RunFor(*options); }; });
}

}  // namespace zanhost
