#include "host/answers/Question.h"

#include <algorithm>
#include <array>
#include <boost/json.hpp>
#include <utility>

#include "Frame/Host/Classes.h"

namespace zanhost {

namespace json = boost::json;

namespace {

using TKindWord = std::pair<TQuestionKind, std::string_view>;

constexpr std::array kKindWords{
    TKindWord{TQuestionKind::Functions, "functions"}, TKindWord{TQuestionKind::Function, "function"},
    TKindWord{TQuestionKind::Call, "call"},           TKindWord{TQuestionKind::Menus, "menus"},
    TKindWord{TQuestionKind::Denied, "denied"},       TKindWord{TQuestionKind::Right, "right"},
    TKindWord{TQuestionKind::Holders, "holders"}};

TQuestionKind KindOf(std::string_view word) {
  const auto found = std::find_if(kKindWords.begin(), kKindWords.end(),
                                  [word](const TKindWord& entry) { return entry.second == word; });
  if (found == kKindWords.end()) throw zanrole::EZanError("There is no such question: " + std::string(word));
  return found->first;
}

std::string TextOf(const json::object& object, std::string_view name) {
  const json::value* const value = object.if_contains(name);
  return value != nullptr ? std::string(value->as_string()) : std::string();
}

std::optional<int> NumberOf(const json::object& object, std::string_view name) {
  const json::value* const value = object.if_contains(name);
  return value != nullptr ? std::optional(json::value_to<int>(*value)) : std::nullopt;
}

TNamedValues InputsOf(const json::object& object) {
  TNamedValues inputs;
  if (const json::value* const given = object.if_contains("in"))
    for (const auto& [name, value] : given->as_object()) inputs.emplace_back(name, value.as_string());
  return inputs;
}

std::vector<std::string> ScopeOf(const json::object& object) {
  const json::value* const scope = object.if_contains("scope");
  return scope != nullptr ? json::value_to<std::vector<std::string>>(*scope) : std::vector<std::string>();
}

TQuestion QuestionOf(const json::object& line) {
  TQuestion question;
  question.Number = line.at("number").as_int64();
  question.Kind = KindOf(TextOf(line, "ask"));
  question.Login = TextOf(line, "login");
  question.Language = TextOf(line, "language");
  question.Function = TextOf(line, "function");
  question.Scope = ScopeOf(line);
  question.Inputs = InputsOf(line);
  question.Domain = NumberOf(line, "domain");
  question.ObjectID = NumberOf(line, "objectID");
  question.Type = TextOf(line, "type");
  question.Object = TextOf(line, "object");
  question.Operation = TextOf(line, "operation");
  question.After = NumberOf(line, "after").value_or(question.After);
  question.Limit = NumberOf(line, "limit").value_or(question.Limit);
  return question;
}

void PutText(json::object& line, std::string_view name, const std::string& text) {
  if (!text.empty()) line[name] = text;
}

void PutNumber(json::object& line, std::string_view name, std::optional<int> number) {
  if (number) line[name] = *number;
}

}  // namespace

std::string_view WordOf(TQuestionKind kind) {
  return std::find_if(kKindWords.begin(), kKindWords.end(),
                      [kind](const TKindWord& entry) { return entry.first == kind; })
      ->second;
}

std::string QuestionLine(const TQuestion& question) {
  json::object line{{"number", question.Number},
                    {"ask", WordOf(question.Kind)},
                    {"language", question.Language},
                    {"after", question.After},
                    {"limit", question.Limit}};
  PutText(line, "login", question.Login);
  PutText(line, "function", question.Function);
  PutText(line, "type", question.Type);
  PutText(line, "object", question.Object);
  PutText(line, "operation", question.Operation);
  PutNumber(line, "domain", question.Domain);
  PutNumber(line, "objectID", question.ObjectID);
  if (!question.Scope.empty()) line["scope"] = json::value_from(question.Scope);
  json::object inputs;
  for (const auto& [name, value] : question.Inputs) inputs[name] = value;
  if (!inputs.empty()) line["in"] = std::move(inputs);
  return json::serialize(line);
}

TQuestion ParseQuestion(std::string_view line) {
  try {
    return QuestionOf(json::parse(json::string_view(line.data(), line.size())).as_object());
  } catch (const boost::system::system_error& fault) {
    throw zanrole::EZanError(std::string("This is no question: ") + fault.what());
  } catch (const std::out_of_range& fault) {
    throw zanrole::EZanError(std::string("This is no question: ") + fault.what());
  } catch (const std::invalid_argument& fault) {
    throw zanrole::EZanError(std::string("This is no question: ") + fault.what());
  }
}

}  // namespace zanhost
