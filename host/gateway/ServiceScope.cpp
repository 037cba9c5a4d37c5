#include "host/gateway/ServiceScope.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

#include "Frame/Host/Classes.h"
#include "host/answers/LoginInputs.h"
#include "host/answers/PastingFunctions.h"

namespace zanhost {

namespace {

/// The name that a token's scope has for a question; empty for those about functions.
std::string_view QuestionName(TQuestionKind kind) {
  switch (kind) {
    case TQuestionKind::Menus:
      return "menus";
    case TQuestionKind::Denied:
      return "denied";
    case TQuestionKind::Right:
      return "rights";
    case TQuestionKind::Holders:
      return "holders";
    default:
      return "";
  }
}

/// What the scope lacks for a function; empty when it lacks nothing.
std::string LackForFunction(const TTokenScope& scope, const std::string& name) {
  const bool pastes = PastesText(name);
  if (scope.AllowsFunction(name, pastes)) return {};
  if (pastes && scope.AllowsFunction(name, false))
    return "This function puts texts of the caller into a statement: the token has to name it.";
  return "The token is not for this function.";
}

/// May the token ask about all logins that an input names?
bool AllowsNamed(const TTokenScope& scope, std::string_view logins) {
  while (!logins.empty()) {
    const std::size_t comma = std::min(logins.find(','), logins.size());
    const std::string login = zanrole::Trim(logins.substr(0, comma));
    if (!login.empty() && !scope.AllowsLogin(login)) return false;
    logins.remove_prefix(std::min(comma + 1, logins.size()));
  }
  return true;
}

bool AllowsInputs(const TTokenScope& scope, const TNamedValues& inputs) {
  return std::all_of(inputs.begin(), inputs.end(), [&scope](const auto& input) {
    return !NamesLogins(input.first) || AllowsNamed(scope, input.second);
  });
}

}  // namespace

std::string LackOf(const TTokenScope& scope, const TQuestion& question) {
  const std::string_view name = QuestionName(question.Kind);
  if (name.empty() && scope.Functions.empty()) return "The token is not for functions.";
  if (!name.empty() && !scope.AllowsQuestion(name)) return fmt::format("The token is not for {}.", name);
  if (question.Kind == TQuestionKind::Call) {
    const std::string lack = LackForFunction(scope, question.Function);
    if (!lack.empty()) return lack;
  }
  if (question.Kind == TQuestionKind::Holders)
    return scope.AllowsAllLogins() ? "" : "Who holds a right is told to tokens for all logins only.";
  const bool isAboutLogin = !question.Login.empty();
  const bool allows = !isAboutLogin || scope.AllowsLogin(question.Login);
  return allows && AllowsInputs(scope, question.Inputs) ? "" : "The token is not for this login.";
}

}  // namespace zanhost
