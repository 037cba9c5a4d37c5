#include "host/gateway/ProtocolLines.h"

#include <algorithm>
#include <boost/json/object.hpp>
#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>
#include <boost/json/value.hpp>

namespace zanhost {

namespace json = boost::json;

namespace {

TClientEvent Refused(std::string_view why, std::optional<std::int64_t> number = std::nullopt) {
  TClientEvent event;
  event.Refusal = ErrorLine(why, number);
  return event;
}

std::optional<std::int64_t> NumberOf(const json::object& object, std::string_view name) {
  const json::value* value = object.if_contains(name);
  return value != nullptr && value->is_int64() ? std::optional(value->get_int64()) : std::nullopt;
}

std::string_view TextOf(const json::object& object, std::string_view name) {
  const json::value* value = object.if_contains(name);
  return value != nullptr && value->is_string() ? std::string_view(value->get_string()) : std::string_view();
}

// In JSON a line break can only stand between two tokens, so a blank in its place changes nothing.
std::string OnOneLine(std::string_view message) {
  std::string line(message);
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
  return line;
}

}  // namespace

TClientEvent CheckClientEvent(std::string_view message) {
  boost::system::error_code fault;
  const json::value value = json::parse(message, fault);
  if (fault || !value.is_object()) return Refused("The message is not one JSON object.");
  const json::object& object = value.get_object();
  const std::optional<std::int64_t> number = NumberOf(object, "n");
  const std::string_view operation = TextOf(object, "do");
  if (operation.empty()) return Refused("The event does not say what to do.", number);
  if (object.contains("gateway")) return Refused("Lines of the gateway are not for clients.", number);
  TClientEvent event;
  event.Line = OnOneLine(message);
  event.Number = number;
  if (operation == "language") event.Language = TextOf(object, "value");
  return event;
}

std::string ErrorLine(std::string_view text, std::optional<std::int64_t> event) {
  json::object line{{"error", text}};
  if (event) line["n"] = *event;
  return json::serialize(line);
}

std::string ByeLine(std::string_view reason, std::string_view detail) {
  json::object line{{"bye", reason}};
  if (!detail.empty()) line["detail"] = detail;
  return json::serialize(line);
}

std::string UploadedLine(std::int64_t window, std::string_view path) {
  return json::serialize(json::object{{"gateway", "uploaded"}, {"window", window}, {"path", path}});
}

}  // namespace zanhost
