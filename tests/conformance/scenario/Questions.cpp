#include "tests/conformance/scenario/Questions.h"

#include <algorithm>
#include <map>
#include <optional>

#include "Frame/Package.h"
#include "Frame/TolFuns.h"
#include "Role/RunPermission.h"
#include "Role/TolPermission.h"

namespace zantest {

namespace {

using TExpectation = TQuestion::TExpectation;

const std::map<std::string_view, TExpectation> kSigns{
    {"=", TExpectation::Equals}, {"~", TExpectation::SameValues}, {"fails", TExpectation::Fails}};

std::string Value(const std::string& word) { return word == "-" ? std::string{} : word; }

}  // namespace

TQuestion ReadQuestion(const TOutlineLine& line, const TNumbers& numbers) {
  const auto& words = line.Words;
  const auto sign =
      std::find_if(words.begin(), words.end(), [](const auto& w) { return kSigns.contains(w); });
  if (sign == words.begin() || sign == words.end())
    throw line.Error("a question ends with = and an answer, ~ and answers in any order, or fails");
  TQuestion question{.What = words.front(), .Expectation = kSigns.at(*sign)};
  for (auto word = words.begin() + 1; word != sign; ++word)
    question.Arguments.push_back(numbers.Filled(line, Value(*word)));
  const std::size_t answers = question.Expectation == TExpectation::Fails ? 0 : 1;
  if (static_cast<std::size_t>(words.end() - sign - 1) != answers)
    throw line.Error("one answer stands behind the sign: - for an empty one, double quotes around blanks");
  if (answers == 1) question.Expected = numbers.Filled(line, Value(words.back()));
  return question;
}

namespace {

std::string YesOrNo(bool truth) { return truth ? "yes" : "no"; }

void CheckArguments(const TQuestion& question, const TOutlineLine& line, std::size_t wanted) {
  if (question.Arguments.size() != wanted)
    throw line.Error(question.What + " takes " + std::to_string(wanted) + " arguments");
}

std::unique_ptr<zanrole::TBaseFunc> FindSystemFunction(const std::string& name) {
  std::size_t count = 0;
  const zanrole::TFuncClass* const classes = zanrole::ZanroleFuncClasses(&count);
  for (std::size_t i = 0; i < count; ++i) {
    if (classes[i].Type != zanrole::TFuncType::System) continue;
    auto function = classes[i].Create();
    if (function->FuncName() == name) return function;
  }
  return nullptr;
}

/// A system function of the expression language, its inputs in their order.
std::optional<std::string> AskSystemFunction(const TQuestion& question, const TOutlineLine& line) {
  const auto function = FindSystemFunction(question.What);
  if (function == nullptr) return std::nullopt;
  const auto info = function->NewFuncInfo();
  CheckArguments(question, line, static_cast<std::size_t>(info->InParams.Count()));
  auto argument = question.Arguments.begin();
  for (zanrole::TFuncParam& input : info->InParams) input.Value = *argument++;
  function->FuncInfo = info.get();
  function->Execute();
  const zanrole::TFuncParam& output = *info->OutParams.begin();
  if (output.DataType != zanrole::TFuncDataType::Boolean) return output.Value;
  return YesOrNo(zanrole::StrToBool(output.Value));
}

std::string TextOf(const zanrole::TServiceAnswer& answer) {
  if (const auto* truth = std::get_if<bool>(&answer)) return YesOrNo(*truth);
  if (const auto* number = std::get_if<std::int64_t>(&answer)) return std::to_string(*number);
  if (const auto* list = std::get_if<std::vector<std::string>>(&answer)) return zanrole::Join(",", *list);
  const auto* text = std::get_if<std::string>(&answer);
  return text == nullptr ? std::string{} : *text;
}

/// An operation of a service, told without its class.
std::optional<std::string> AskService(const TQuestion& question, const TOutlineLine& line) {
  std::size_t count = 0;
  const zanrole::TServiceOperation* const operations = zanrole::ZanroleServiceOperations(&count);
  const zanrole::TServiceOperation* const end = operations + count;
  const auto* const operation = std::find_if(
      operations, end, [&](const auto& candidate) { return candidate.Name.ends_with("." + question.What); });
  if (operation == end) return std::nullopt;
  CheckArguments(question, line, operation->Arguments.size());
  return TextOf(operation->Ask(question.Arguments));
}

/// "may-open MENU" and "right HOLDER OPERATION OBJECT": plain words for what the menu and the consoles ask.
std::optional<std::string> AskInPlainWords(const TQuestion& question, const TOutlineLine& line) {
  if (question.What == "may-open") {
    CheckArguments(question, line, 1);
    const int menu = zanrole::StrToInt(question.Arguments[0]);
    return YesOrNo(zanrole::TRunPermission::GetInstance().GetMenuPermission(menu));
  }
  if (question.What == "right") {
    CheckArguments(question, line, 3);
    zanrole::TTolPermission rights;
    rights.SetUserID(zanrole::StrToInt(question.Arguments[0]));
    return rights.GetPermission(zanrole::StrToInt(question.Arguments[2]), question.Arguments[1]);
  }
  return std::nullopt;
}

std::vector<std::string> Sorted(const std::string& list) {
  std::vector<std::string> values = zanrole::Split(",", list);
  std::sort(values.begin(), values.end());
  return values;
}

/// A list without the brackets of a list that is made for "in".
std::string WithoutBrackets(const std::string& list) {
  const bool bracketed = list.size() > 1 && list.front() == '(' && list.back() == ')';
  return bracketed ? list.substr(1, list.size() - 2) : list;
}

bool Meets(const TQuestion& question, const std::string& answer) {
  if (question.Expectation == TExpectation::Equals) return answer == question.Expected;
  return Sorted(WithoutBrackets(answer)) == Sorted(WithoutBrackets(question.Expected));
}

}  // namespace

std::string AnswerTo(const TQuestion& question, const TOutlineLine& line) {
  for (const auto ask : {AskSystemFunction, AskService, AskInPlainWords}) {
    if (const auto answer = ask(question, line)) return *answer;
  }
  throw line.Error("nobody answers the question " + question.What);
}

std::string WhyNot(const TQuestion& question, const TOutlineLine& line) {
  try {
    const std::string answer = AnswerTo(question, line);
    if (question.Expectation == TExpectation::Fails)
      return "the question should fail, but the answer is: " + answer;
    if (Meets(question, answer)) return {};
    return "the answer is: " + answer + "\nexpected:      " + question.Expected;
  } catch (const zanrole::EZanError& error) {
    if (question.Expectation == TExpectation::Fails) return {};
    return std::string("the question fails: ") + error.what();
  }
}

}  // namespace zantest
