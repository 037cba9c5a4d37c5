#include "host/answers/FunctionAnswers.h"

#include <fmt/format.h>

#include <boost/json.hpp>
#include <utility>

#include "host/answers/PastingFunctions.h"
#include "host/answers/Reply.h"
#include "host/platform/Log.h"
#include "host/platform/Tokens.h"
#include "host/worker/FunctionLines.h"

namespace zanhost {

namespace json = boost::json;

namespace {

const TFunction& FindFunction(TAnswerSession& session, const std::string& name) {
  const TFunction* const function = session.Host().FuncManager().Find(name, zanrole::TFuncType::System);
  if (function == nullptr)
    throw ERefusedQuestion(404, fmt::format("There is no system function '{}'.", name));
  return *function;
}

json::object DescribeFor(const TFunction& function, const TTokenScope& scope) {
  json::object described = DescribeFunction(function);
  // Only system functions are told here.
  described.stable_erase("kind");
  const bool pastes = PastesText(function.Name);
  described["pastesText"] = pastes;
  described["allowed"] = scope.AllowsFunction(function.Name, pastes);
  return described;
}

TTokenScope ScopeOf(const TQuestion& question) {
  TTokenScope scope;
  scope.Functions = question.Scope;
  return scope;
}

void PutList(json::object& answer, std::string_view name, const std::vector<std::string>& texts) {
  if (!texts.empty()) answer[name] = json::value_from(texts);
}

}  // namespace

json::object AnswerFunctions(TAnswerSession& session, const TQuestion& question) {
  const TTokenScope scope = ScopeOf(question);
  json::array functions;
  for (const TFunction& function : session.Host().FuncManager().Functions())
    if (function.Type == zanrole::TFuncType::System) functions.push_back(DescribeFor(function, scope));
  return {{"functions", std::move(functions)}};
}

json::object AnswerFunction(TAnswerSession& session, const TQuestion& question) {
  return DescribeFor(FindFunction(session, question.Function), ScopeOf(question));
}

json::object AnswerCall(TAnswerSession& session, const TQuestion& question) {
  FindFunction(session, question.Function);
  constexpr int noDomain = -1;
  session.Module().Entries()->SetCurrentDomainID(question.Domain.value_or(noDomain));
  session.TakeMessages();
  try {
    const TCallOutcome outcome =
        CallFunction(session.Host().FuncManager(), question.Function, question.Inputs);
    json::object answer = DescribeOutcome(outcome);
    PutList(answer, "messages", session.TakeMessages());
    PutList(answer, "undeclared", outcome.Undeclared);
    return answer;
  } catch (const zanrole::EZanError& fault) {
    throw ERefusedQuestion(422, "The function failed: " + OutcomeOf(fault));
  }
}

}  // namespace zanhost
