#include "host/platform/JsonObject.h"

#include <boost/json.hpp>

namespace zanhost {

namespace json = boost::json;

namespace {

std::optional<std::string> ScalarText(const json::value& value) {
  if (value.is_structured()) return std::nullopt;
  if (value.is_null()) return std::string();
  if (const json::string* text = value.if_string()) return std::string(*text);
  return json::serialize(value);
}

}  // namespace

std::optional<TJsonMembers> ParseJsonObject(std::string_view text) {
  json::error_code failure;
  const json::value parsed = json::parse(json::string_view(text.data(), text.size()), failure);
  if (failure || !parsed.is_object()) return std::nullopt;
  TJsonMembers members;
  for (const auto& member : parsed.get_object()) {
    if (std::optional<std::string> scalar = ScalarText(member.value()))
      members.emplace_back(std::string(member.key()), std::move(*scalar));
  }
  return members;
}

}  // namespace zanhost
