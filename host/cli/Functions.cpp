#include <fmt/format.h>

#include <boost/json.hpp>

#include "host/cli/Commands.h"
#include "host/cli/CommonOptions.h"
#include "host/worker/FunctionLines.h"
#include "host/worker/FunctionSession.h"

namespace zanhost {

namespace {

constexpr char kExamples[] = R"(Examples:
  zanhost functions --data sqlite:data
  zanhost functions | jq -r 'select(.kind == "system").name'

A line: {"name":"…","description":"…","kind":"system","in":[{"name":"…","type":"string",…}],"out":[…]})";

int ListFunctions(TSessionOptions options) {
  // What there is does not depend on who asks.
  options.Builder = options.User.empty();
  TFunctionSession session(options, [](const std::string&) {});
  for (const TFunction& function : session.Functions())
    fmt::print("{}\n", boost::json::serialize(DescribeFunction(function)));
  for (const std::string& duplicate : session.Duplicates()) fmt::print(stderr, "zanhost: {}\n", duplicate);
  return 0;
}

}  // namespace

void AddFunctionsCommand(CLI::App& program, TRun& run) {
  CLI::App* const command = program.add_subcommand("functions", "List the functions, one JSON line each");
  command->footer(kExamples);
  const auto options = std::make_shared<TSessionOptions>();
  AddCommonOptions(*command, *options);
  command->callback([options, &run] { run = [options] { return ListFunctions(*options); }; });
}

}  // namespace zanhost
