#include <fmt/format.h>

#include <algorithm>
#include <boost/json.hpp>
#include <set>

#include "host/cli/Commands.h"
#include "host/cli/CommonOptions.h"
#include "host/cli/LoggedOperation.h"
#include "host/platform/TokenFile.h"
#include "host/platform/TokenIssue.h"
#include "host/platform/UtcTime.h"
#include "host/query/DataUrl.h"
#include "host/worker/FunctionSession.h"

namespace zanhost {

namespace json = boost::json;

namespace {

using TClock = std::chrono::system_clock;

constexpr char kExamples[] = R"(Examples:
  zanhost token add --name reports --functions GetDomains --logins '*' --data sqlite:data
  zanhost token list
  zanhost token revoke reports

A token lets another program ask functions and questions about rights over HTTP, without a login and a password.)";

constexpr char kAddExamples[] = R"(Examples:
  zanhost token add --name portal --questions menus,denied --logins '*' --days 365
  zanhost token add --name reports --functions '*' --logins li --expires 2027-01-31 --per-second 10

Prints one JSON line with the token: {"id":"…","token":"zan_…",…}. It is shown this once and kept nowhere; give it to
the program that needs it, and to nobody else. A running server knows it at once.

The function * is every function but those that paste a text of the caller into a statement, which have to be named.)";

constexpr char kListExamples[] = R"(Examples:
  zanhost token list --data sqlite:data
  zanhost token list | jq -r 'select(.expired).id'

One JSON line each: {"id":"…","name":"…","expires":"…","expired":false,…}.)";

constexpr char kRevokeExamples[] = R"(Examples:
  zanhost token revoke reports
  zanhost token revoke 7hGk2Lq9XbTz --data sqlite:data

A running server refuses the token at once. Expired ones are removed by their ID.)";

struct TAddCommand {
  TSessionOptions Session;
  TTokenRequest Request;
  unsigned Days = 90;
  /// --expires; empty when Days count.
  std::string ExpiryDay;
};

struct TRevokeCommand {
  TSessionOptions Session;
  std::string Wanted;
};

std::set<std::string> SystemFunctions(TSessionOptions options) {
  // What there is does not depend on who asks.
  options.Builder = true;
  options.Domain.reset();
  TFunctionSession session(options, [](const std::string&) {});
  std::set<std::string> names;
  for (const TFunction& function : session.Functions())
    if (function.Type == zanrole::TFuncType::System) names.insert(function.Name);
  return names;
}

void RequireFunctions(const TSessionOptions& options, const std::vector<std::string>& wanted) {
  const std::set<std::string> known = SystemFunctions(options);
  for (const std::string& name : wanted)
    if (name != kAnyName && !known.contains(name))
      throw zanrole::EZanError(
          fmt::format("There is no system function '{}'; zanhost functions lists them.", name));
}

TClock::time_point ExpiryOf(const TAddCommand& command, TClock::time_point now) {
  if (command.ExpiryDay.empty()) return now + std::chrono::days(command.Days);
  const auto midnight = ParseUtcText(command.ExpiryDay + "T00:00:00Z");
  if (!midnight)
    throw zanrole::EZanError(
        fmt::format("'{}' is no day to expire on: write it like 2027-01-31.", command.ExpiryDay));
  return *midnight;
}

int AddAndTell(TAddCommand command) {
  const TClock::time_point now = TClock::now();
  command.Request.Expires = ExpiryOf(command, now);
  RequireFunctions(command.Session, command.Request.Scope.Functions);
  return RunLogged(command.Session, "token add " + command.Request.Name, [&] {
    const TNewToken made = AddToken(FolderOfData(command.Session.Data), command.Request, now);
    json::object line = DescribeToken(made.Token);
    line["token"] = made.Text;
    fmt::print("{}\n", json::serialize(line));
    return 0;
  });
}

// Tokens are listed and revoked also while the database cannot be reached.
std::filesystem::path RequireFolder(const TSessionOptions& options) {
  std::filesystem::path folder = FolderOfData(options.Data);
  if (!std::filesystem::is_directory(folder))
    throw zanrole::EZanError(fmt::format("There is no installation in {}.", folder.string()));
  return folder;
}

int ListTokens(const TSessionOptions& options) {
  const TClock::time_point now = TClock::now();
  for (const TBearerToken& token : ReadTokens(RequireFolder(options))) {
    json::object line = DescribeToken(token);
    line["expired"] = token.IsExpired(now);
    fmt::print("{}\n", json::serialize(line));
  }
  return 0;
}

int RevokeAndTell(const TRevokeCommand& command) {
  const std::filesystem::path folder = RequireFolder(command.Session);
  // The log gets what was found, not what was typed: that may be the text of a token.
  const TBearerToken token = FindToken(folder, command.Wanted, TClock::now());
  return RunLogged(command.Session, fmt::format("token revoke {} {}", token.Id, token.Name), [&] {
    RevokeToken(folder, token.Id);
    fmt::print("The token {} ({}) is revoked.\n", token.Id, token.Name);
    return 0;
  });
}

void AddNames(CLI::App& command, const std::string& option, std::vector<std::string>& names,
              const std::string& description) {
  command.add_option(option, names, description)->type_name("A,B")->delimiter(',')->allow_extra_args(false);
}

void AddScopeOptions(CLI::App& command, TTokenScope& scope) {
  AddNames(command, "--functions", scope.Functions, "System functions that it may call; * is all");
  AddNames(command, "--questions", scope.Questions,
           "Questions that it may ask: menus, denied, rights, holders; * is all");
  AddNames(command, "--logins", scope.Logins, "Logins that it may ask about; * is all");
}

void AddLimits(CLI::App& command, TAddCommand& options) {
  CLI::Option* const days = command.add_option("--days", options.Days, "It expires after so many days")
                                ->type_name("N")
                                ->check(CLI::Range(1U, 10000U))
                                ->capture_default_str();
  command.add_option("--expires", options.ExpiryDay, "The day (UTC) from whose beginning on it is not valid")
      ->type_name("YYYY-MM-DD")
      ->excludes(days);
  command.add_option("--per-second", options.Request.PerSecond, "Requests in one second")
      ->type_name("N")
      ->check(CLI::Range(1U, 100000U))
      ->capture_default_str();
}

void AddAddCommand(CLI::App& token, TRun& run) {
  CLI::App* const command = token.add_subcommand("add", "Make a token and show it once");
  command->footer(kAddExamples);
  const auto options = std::make_shared<TAddCommand>();
  AddCommonOptions(*command, options->Session);
  command->add_option("--name", options->Request.Name, "What people call it")->required();
  AddScopeOptions(*command, options->Request.Scope);
  AddLimits(*command, *options);
  command->callback([options, &run] { run = [options] { return AddAndTell(*options); }; });
}

void AddListCommand(CLI::App& token, TRun& run) {
  CLI::App* const command = token.add_subcommand("list", "List the tokens, one JSON line each");
  command->footer(kListExamples);
  const auto options = std::make_shared<TSessionOptions>();
  AddCommonOptions(*command, *options);
  command->callback([options, &run] { run = [options] { return ListTokens(*options); }; });
}

void AddRevokeCommand(CLI::App& token, TRun& run) {
  CLI::App* const command = token.add_subcommand("revoke", "Make a token invalid at once");
  command->footer(kRevokeExamples);
  const auto options = std::make_shared<TRevokeCommand>();
  AddCommonOptions(*command, options->Session);
  command->add_option("TOKEN", options->Wanted, "Its ID, or its name when it is in force")->required();
  command->callback([options, &run] { run = [options] { return RevokeAndTell(*options); }; });
}

}  // namespace

void AddTokenCommand(CLI::App& program, TRun& run) {
  CLI::App* const command = program.add_subcommand("token", "Make, list and revoke tokens for programs");
  command->require_subcommand(1);
  command->footer(kExamples);
  AddAddCommand(*command, run);
  AddListCommand(*command, run);
  AddRevokeCommand(*command, run);
}

}  // namespace zanhost
