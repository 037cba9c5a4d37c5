#include <fmt/format.h>

#include "host/cli/Commands.h"
#include "host/cli/CommonOptions.h"
#include "host/cli/LoggedOperation.h"
#include "host/platform/Schema.h"
#include "host/query/DataUrl.h"

namespace zanhost {

namespace {

constexpr char kExamples[] = R"(Examples:
  zanhost schema --data sqlite:/srv/zanrole     make the folder and an empty database, or bring one up to date

Rows that are there are never touched; running it again changes nothing.)";

int InstallAndTell(const TSessionOptions& options) {
  const std::unique_ptr<TDatabase> database = OpenDatabase(options.Data, TOpenMode::CreateIfMissing);
  const TTracing tracing(*database, options);
  return RunLogged(options, "schema", [&] {
    fmt::print("The schema of {} is at version {}.\n", ShownDataUrl(options.Data), InstallSchema(*database));
    return 0;
  });
}

}  // namespace

void AddSchemaCommand(CLI::App& program, TRun& run) {
  CLI::App* const command = program.add_subcommand("schema", "Make the tables, or bring them up to date");
  command->footer(kExamples);
  const auto options = std::make_shared<TSessionOptions>();
  AddCommonOptions(*command, *options);
  command->callback([options, &run] { run = [options] { return InstallAndTell(*options); }; });
}

}  // namespace zanhost
