#include <fmt/format.h>

#include <boost/json.hpp>

#include "host/cli/Commands.h"
#include "host/cli/CommonOptions.h"
#include "host/worker/FunctionLines.h"
#include "host/worker/FunctionSession.h"

namespace zanhost {

namespace {

constexpr char kExamples[] = R"(Examples:
  zanhost call GetCurDomainName --builder --domain 3
  zanhost call CheckDomainAuthByName "域名称=Head office" --user admin --data sqlite:data

Prints one JSON line: {"result":true,"out":{"Result":"1,2"}}, or {"error":"…"} with exit status 1. An argument is
split at its first =; what follows reaches the function as it stands. A parameter that the function does not declare
is passed on, with a warning. Messages that the function shows go to standard error.)";

struct TCallCommand {
  TSessionOptions Session;
  std::string Function;
  std::vector<std::string> Arguments;
};

TNamedValues SplitArguments(const std::vector<std::string>& arguments) {
  TNamedValues values;
  for (const std::string& argument : arguments) {
    const std::size_t equals = argument.find('=');
    if (equals == std::string::npos || equals == 0)
      throw zanrole::EZanError(fmt::format("'{}' is no argument of a function: write name=value", argument));
    values.emplace_back(argument.substr(0, equals), argument.substr(equals + 1));
  }
  return values;
}

void Warn(const std::string& sentence) { fmt::print(stderr, "zanhost: {}\n", sentence); }

TCallOutcome CallAndWarn(const TCallCommand& command) {
  RequireOperator(command.Session);
  const TNamedValues values = SplitArguments(command.Arguments);
  TFunctionSession session(command.Session, Warn);
  TCallOutcome outcome = session.Call(command.Function, values);
  for (const std::string& name : outcome.Undeclared)
    Warn(fmt::format("{} declares no parameter '{}'; it was passed on", command.Function, name));
  return outcome;
}

int CallAndTell(const TCallCommand& command) {
  boost::json::object line;
  int status = 0;
  try {
    line = DescribeOutcome(CallAndWarn(command));
  } catch (const std::exception& fault) {
    line = DescribeFault(fault);
    status = 1;
  }
  fmt::print("{}\n", boost::json::serialize(line));
  return status;
}

}  // namespace

void AddCallCommand(CLI::App& program, TRun& run) {
  CLI::App* const command = program.add_subcommand("call", "Run a system function and print its answer");
  command->footer(kExamples);
  const auto options = std::make_shared<TCallCommand>();
  AddCommonOptions(*command, options->Session);
  command->add_option("FUNCTION", options->Function, "Name of a system function")->required();
  command->add_option("ARGUMENT", options->Arguments, "name=value for each parameter");
  command->callback([options, &run] { run = [options] { return CallAndTell(*options); }; });
}

}  // namespace zanhost
