#include "tests/conformance/scenario/Questions.h"

#include <algorithm>
#include <functional>
#include <map>
#include <optional>

#include "Frame/Package.h"
#include "Frame/TolFuns.h"
#include "OrgRights/U_OrgRigthFuncs.h"
#include "Role/RunPermission.h"

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

/// How a question outside the table of functions is answered.
struct TAnswerer {
  std::size_t Arguments;
  std::function<std::string(const std::vector<std::string>&)> Answer;
};

std::string YesOrNo(bool truth) { return truth ? "yes" : "no"; }

using TFuncs = zanrole::TOrgRightFuncs;
using TOneArgument = std::string (*)(const std::string&);
using TTwoArguments = bool (*)(const std::string&, const std::string&);

TAnswerer Of(TOneArgument ask) {
  return {1, [ask](const auto& arguments) { return ask(arguments[0]); }};
}
TAnswerer Of(TTwoArguments ask) {
  return {2, [ask](const auto& arguments) { return YesOrNo(ask(arguments[0], arguments[1])); }};
}

const std::map<std::string_view, TAnswerer> kAnswerers{
    {"OrgUserOID", {0, [](const auto&) { return TFuncs::OrgUserOID(); }}},
    {"OrgDeptMemberIDs", Of(TFuncs::OrgDeptMemberIDs)},
    {"OrgDeptMemberCodes", Of(TFuncs::OrgDeptMemberCodes)},
    {"OrgDeptMemberNames", Of(TFuncs::OrgDeptMemberNames)},
    {"OrgPositionMemberIDs", Of(TFuncs::OrgPositionMemberIDs)},
    {"OrgPositionMemberCodes", Of(TFuncs::OrgPositionMemberCodes)},
    {"OrgPositionMemberNames", Of(TFuncs::OrgPositionMemberNames)},
    {"OrgUserIsDeptMember", Of(TFuncs::OrgUserIsDeptMember)},
    {"OrgUserIsPositionMember", Of(TFuncs::OrgUserIsPositionMember)},
    {"OrgUserIsUnderDept", Of(TFuncs::OrgUserIsUnderDept)},
    {"OrgUserIsUnderling", Of(TFuncs::OrgUserIsUnderling)},
    {"OrgUserIsSuperior", Of(TFuncs::OrgUserIsSuperior)},
    {"OrgCompanyID", Of(TFuncs::OrgCompanyID)},
    {"OrgCompanyName", Of(TFuncs::OrgCompanyName)},
    {"OrgCompanyIDs", Of(TFuncs::OrgCompanyIDs)},
    {"OrgCompanyNames", Of(TFuncs::OrgCompanyNames)},
    {"OrgCompanyManagerID", Of(TFuncs::OrgCompanyManagerID)},
    {"OrgCompanyManagerCode", Of(TFuncs::OrgCompanyManagerCode)},
    {"OrgCompanyManagerName", Of(TFuncs::OrgCompanyManagerName)},
    {"OrgCompanyManagerIDs", Of(TFuncs::OrgCompanyManagerIDs)},
    {"OrgCompanyManagerCodes", Of(TFuncs::OrgCompanyManagerCodes)},
    {"OrgCompanyManagerNames", Of(TFuncs::OrgCompanyManagerNames)},
    {"may-open",
     {1,
      [](const auto& arguments) {
        const int menu = zanrole::StrToInt(arguments[0]);
        return YesOrNo(zanrole::TRunPermission::GetInstance().GetMenuPermission(menu));
      }}},
};

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

void CheckArguments(const TQuestion& question, const TOutlineLine& line, std::size_t wanted) {
  if (question.Arguments.size() != wanted)
    throw line.Error(question.What + " takes " + std::to_string(wanted) + " arguments");
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
  if (const auto answer = AskSystemFunction(question, line)) return *answer;
  const auto answerer = kAnswerers.find(question.What);
  if (answerer == kAnswerers.end()) throw line.Error("nobody answers the question " + question.What);
  CheckArguments(question, line, answerer->second.Arguments);
  return answerer->second.Answer(question.Arguments);
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
