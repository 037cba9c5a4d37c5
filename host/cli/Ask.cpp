#include <fmt/format.h>

#include <boost/json.hpp>
#include <span>

#include "host/cli/Commands.h"
#include "host/cli/CommonOptions.h"
#include "host/worker/FunctionLines.h"
#include "host/worker/FunctionSession.h"

namespace zanhost {

namespace json = boost::json;

namespace {

constexpr char kExamples[] = R"(Examples:
  zanhost ask TOrgRightFuncs.OrgDeptMemberIDs "" --user admin --data sqlite:data
  zanhost ask TTolPermission.SetUserID 12 + TTolPermission.GetPermission 100 执行 --user admin
  zanhost ask --list

Prints one JSON line: {"answer":…} with a text, a number, true or false, a list, or null; or {"error":"…"} with exit
status 1. Several operations, separated by +, run in one session; the answer is that of the last one. A text that
begins with - follows two dashes: zanhost ask --user admin -- TRunPermission.GetObjID 文档 -draft)";

struct TAskCommand {
  TSessionOptions Session;
  bool List = false;
  std::vector<std::string> Words;
};

std::vector<TServiceQuestion> SplitQuestions(const std::vector<std::string>& words) {
  std::vector<TServiceQuestion> questions(1);
  bool namesOperation = true;
  for (const std::string& word : words) {
    if (word == "+") {
      questions.emplace_back();
      namesOperation = true;
    } else if (namesOperation) {
      questions.back().Operation = word;
      namesOperation = false;
    } else {
      questions.back().Arguments.push_back(word);
    }
  }
  if (namesOperation) throw zanrole::EZanError("Say what to ask: CLASS.OPERATION and its arguments.");
  return questions;
}

zanrole::TServiceAnswer AskAll(const TAskCommand& command) {
  RequireOperator(command.Session);
  const std::vector<TServiceQuestion> questions = SplitQuestions(command.Words);
  TFunctionSession session(
      command.Session, [](const std::string& sentence) { fmt::print(stderr, "zanhost: {}\n", sentence); });
  zanrole::TServiceAnswer answer;
  for (const TServiceQuestion& question : questions) answer = session.Ask(question);
  return answer;
}

int AskAndTell(const TAskCommand& command) {
  json::object line;
  int status = 0;
  try {
    line = DescribeAnswer(AskAll(command));
  } catch (const std::exception& fault) {
    line = DescribeFault(fault);
    status = 1;
  }
  fmt::print("{}\n", json::serialize(line));
  return status;
}

int ListOperations() {
  const TModule module = LoadModule(ModuleBesideProgram());
  std::size_t count = 0;
  const zanrole::TServiceOperation* const operations = module.ServiceOperations(&count);
  for (const zanrole::TServiceOperation& operation : std::span(operations, count))
    fmt::print("{}\n", json::serialize(DescribeOperation(operation)));
  return 0;
}

}  // namespace

void AddAskCommand(CLI::App& program, TRun& run) {
  CLI::App* const command = program.add_subcommand("ask", "Ask an operation of the services for its answer");
  command->footer(kExamples);
  const auto options = std::make_shared<TAskCommand>();
  AddCommonOptions(*command, options->Session);
  command->add_flag("--list", options->List, "List the operations with their arguments, one JSON line each");
  command->add_option("QUESTION", options->Words,
                      "CLASS.OPERATION argument … [+ CLASS.OPERATION argument …]");
  command->callback([options, &run] {
    run = [options] { return options->List ? ListOperations() : AskAndTell(*options); };
  });
}

}  // namespace zanhost
