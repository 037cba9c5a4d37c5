#include "host/gateway/ServiceInput.h"

#include <fmt/format.h>

#include <algorithm>
#include <boost/json.hpp>
#include <charconv>
#include <initializer_list>
#include <limits>

#include "host/answers/Reply.h"
#include "host/platform/Utf8.h"

namespace zanhost {

namespace json = boost::json;

namespace {

constexpr int kUsualHolders = 100;
constexpr int kMostHolders = 1000;
/// The longest text that is asked for by name; more than any column of them holds.
constexpr std::size_t kLongestName = 1000;

[[noreturn]] void RaiseMalformed(const std::string& sentence) { throw ERefusedQuestion(400, sentence); }
[[noreturn]] void RaiseUnfit(const std::string& sentence) { throw ERefusedQuestion(422, sentence); }

int NumberOf(std::string_view text, const char* name, int least, int most) {
  int number = 0;
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool isWhole = fault == std::errc() && end == text.data() + text.size();
  if (!isWhole || number < least || number > most)
    RaiseMalformed(fmt::format("'{}' is a whole number from {} to {}.", name, least, most));
  return number;
}

constexpr int kAnyNumber = std::numeric_limits<int>::max();

/// Says which parameters an address takes, so that a slip is not passed over in silence.
void CheckNames(const TRequest& request, std::initializer_list<std::string_view> taken) {
  for (const auto& [name, value] : request.Query) {
    if (std::find(taken.begin(), taken.end(), name) == taken.end())
      RaiseMalformed(
          "This address takes no such parameter. The description at /api/openapi.json tells which.");
    if (!IsPlainText(value) || value.size() > kLongestName)
      RaiseMalformed(
          fmt::format("The parameter '{}' is no plain text of at most {} bytes.", name, kLongestName));
  }
}

std::string RequiredText(const TRequest& request, const char* name) {
  const std::string_view value = request.QueryValue(name);
  if (value.empty()) RaiseMalformed(fmt::format("The parameter '{}' is missing.", name));
  return std::string(value);
}

std::optional<int> ObjectIDIn(const TRequest& request) {
  if (request.Query.find("objectID") == request.Query.end()) return std::nullopt;
  return NumberOf(request.QueryValue("objectID"), "objectID", 0, kAnyNumber);
}

/// An object by its number, or by type and name.
void ReadObject(TQuestion& question, const TRequest& request) {
  question.ObjectID = ObjectIDIn(request);
  question.Object = request.QueryValue("object");
  if (question.ObjectID.has_value() != question.Object.empty())
    RaiseMalformed("An object is named by 'objectID', or by 'type' and 'object'.");
}

void ReadDenied(TQuestion& question, const TRequest& request) {
  CheckNames(request, {"type", "object", "objectID"});
  question.Type = RequiredText(request, "type");
  ReadObject(question, request);
}

void ReadRight(TQuestion& question, const TRequest& request) {
  CheckNames(request, {"type", "object", "objectID", "operation"});
  question.Operation = RequiredText(request, "operation");
  ReadObject(question, request);
  if (!question.ObjectID) question.Type = RequiredText(request, "type");
}

void ReadHolders(TQuestion& question, const TServiceRoute& route, const TRequest& request) {
  CheckNames(request, {"operation", "after", "limit"});
  question.ObjectID = NumberOf(route.Name, "objectID", 0, kAnyNumber);
  question.Operation = RequiredText(request, "operation");
  const std::string_view after = request.QueryValue("after");
  if (!after.empty()) question.After = NumberOf(after, "after", -1, kAnyNumber);
  const std::string_view limit = request.QueryValue("limit");
  question.Limit = limit.empty() ? kUsualHolders : NumberOf(limit, "limit", 1, kMostHolders);
}

void CheckZeros(std::string_view text) {
  if (text.find('\0') != std::string_view::npos) RaiseUnfit("A text holds no zero character.");
}

std::string InputText(const json::value& value) {
  if (const json::string* text = value.if_string()) {
    CheckZeros(*text);
    return std::string(*text);
  }
  if (value.is_bool() || value.is_int64() || value.is_uint64()) return json::serialize(value);
  RaiseUnfit("A value of 'in' is a text, a whole number, true or false.");
}

std::string LoginIn(const json::object& body, const TTokenScope& scope) {
  const json::value* const given = body.if_contains("login");
  if (given == nullptr) {
    const std::optional<std::string> only = scope.OnlyLogin();
    if (!only) RaiseMalformed("Say as whom the function is evaluated: 'login' is missing.");
    return *only;
  }
  if (!given->is_string()) RaiseMalformed("'login' is a text.");
  std::string login(given->get_string());
  if (login.empty() || login.size() > kLongestName || !IsPlainText(login))
    RaiseMalformed("'login' is a plain text that is not empty.");
  return login;
}

TNamedValues InputsIn(const json::object& body) {
  TNamedValues inputs;
  const json::value* const given = body.if_contains("in");
  if (given == nullptr) return inputs;
  if (!given->is_object()) RaiseMalformed("'in' is an object of inputs by name.");
  for (const auto& [name, value] : given->get_object()) {
    CheckZeros(name);
    inputs.emplace_back(name, InputText(value));
  }
  return inputs;
}

std::optional<int> DomainIn(const json::object& body) {
  const json::value* const given = body.if_contains("domain");
  if (given == nullptr) return std::nullopt;
  boost::system::error_code fault;
  const int domain = given->to_number<int>(fault);
  if (fault || given->is_double()) RaiseMalformed("'domain' is the identity of a domain, a whole number.");
  return domain;
}

json::object ParseBody(const std::string& text) {
  boost::system::error_code fault;
  json::value body = json::parse(text, fault);
  if (fault || !body.is_object()) RaiseMalformed("The body is not a JSON object.");
  return std::move(body.get_object());
}

void ReadCall(TQuestion& question, const TRequest& request, const TTokenScope& scope) {
  CheckNames(request, {});
  const json::object body = ParseBody(request.Body);
  for (const auto& member : body)
    if (member.key() != "in" && member.key() != "login" && member.key() != "domain")
      RaiseMalformed("The body has the members 'in', 'login' and 'domain', and no other.");
  question.Login = LoginIn(body, scope);
  question.Inputs = InputsIn(body);
  question.Domain = DomainIn(body);
}

std::string LanguageOf(const TRequest& request) {
  const std::string_view first = request.Header("accept-language").substr(0, 2);
  return zanrole::SameText(first, "en") ? "en" : "zh";
}

}  // namespace

TQuestion ReadServiceQuestion(const TServiceRoute& route, const TRequest& request, const TTokenScope& scope) {
  TQuestion question;
  question.Kind = *route.Kind;
  question.Language = LanguageOf(request);
  switch (question.Kind) {
    case TQuestionKind::Functions:
    case TQuestionKind::Function:
      CheckNames(request, {});
      question.Function = route.Name;
      question.Scope = scope.Functions;
      break;
    case TQuestionKind::Call:
      question.Function = route.Name;
      ReadCall(question, request, scope);
      break;
    case TQuestionKind::Menus:
      CheckNames(request, {});
      question.Login = route.Name;
      break;
    case TQuestionKind::Denied:
      question.Login = route.Name;
      ReadDenied(question, request);
      break;
    case TQuestionKind::Right:
      question.Login = route.Name;
      ReadRight(question, request);
      break;
    case TQuestionKind::Holders:
      ReadHolders(question, route, request);
      break;
  }
  return question;
}

}  // namespace zanhost
