#include "host/worker/Event.h"

#include <fmt/format.h>

#include <array>
#include <boost/json.hpp>
#include <limits>

namespace zanhost {

namespace json = boost::json;

namespace {

/// What an event of a kind must have besides its number.
enum TNeeds : unsigned { nothing = 0, window = 1, component = 2 };

struct TDoRow {
  std::string_view Word;
  TDo Do;
  unsigned Needs;
};

constexpr std::array kDos{
    TDoRow{"menu", TDo::Menu, nothing},
    TDoRow{"call", TDo::Call, nothing},
    TDoRow{"act", TDo::Act, window | component},
    TDoRow{"set", TDo::Set, window | component},
    TDoRow{"select", TDo::Select, window | component},
    TDoRow{"activate", TDo::Activate, window | component},
    TDoRow{"toggle", TDo::Toggle, window | component},
    TDoRow{"expandAll", TDo::ExpandAll, window | component},
    TDoRow{"mark", TDo::Mark, window | component},
    TDoRow{"edit", TDo::Edit, window | component},
    TDoRow{"drop", TDo::Drop, window | component},
    TDoRow{"sort", TDo::Sort, window | component},
    TDoRow{"view", TDo::View, window | component},
    TDoRow{"close", TDo::Close, window},
    TDoRow{"snapshot", TDo::Snapshot, nothing},
    TDoRow{"language", TDo::Language, nothing},
    TDoRow{"cancel", TDo::Cancel, nothing},
    TDoRow{"quit", TDo::Quit, nothing},
};

const TDoRow& FindDo(std::string_view word) {
  for (const TDoRow& row : kDos) {
    if (row.Word == word) return row;
  }
  throw EProtocolError(fmt::format("\"do\" knows no {}", word));
}

/// The members of one message, read with their types.
class TMembers {
 public:
  explicit TMembers(const json::object& object) : FObject(&object) {}

  const json::value* Find(std::string_view name) const { return FObject->if_contains(name); }

  std::optional<std::int64_t> Number(std::string_view name) const {
    const json::value* const value = Find(name);
    if (value == nullptr || value->is_null()) return std::nullopt;
    if (!value->is_int64()) throw EProtocolError(fmt::format("\"{}\" must be a whole number", name));
    return value->get_int64();
  }

  std::optional<int> Int(std::string_view name, int least = std::numeric_limits<int>::min()) const {
    const std::optional<std::int64_t> number = Number(name);
    if (!number) return std::nullopt;
    if (*number < least || *number > std::numeric_limits<int>::max())
      throw EProtocolError(fmt::format("\"{}\" is out of range", name));
    return static_cast<int>(*number);
  }

  int NeedInt(std::string_view name, int least) const {
    const std::optional<int> number = Int(name, least);
    if (!number) throw EProtocolError(fmt::format("\"{}\" is missing", name));
    return *number;
  }

  std::string Text(std::string_view name) const {
    const json::value* const value = Find(name);
    return value == nullptr ? std::string() : TextOf(name, *value);
  }

  std::string NeedText(std::string_view name) const {
    std::string text = Text(name);
    if (text.empty()) throw EProtocolError(fmt::format("\"{}\" is missing", name));
    return text;
  }

  static std::string TextOf(std::string_view name, const json::value& value) {
    if (!value.is_string()) throw EProtocolError(fmt::format("\"{}\" must be a text", name));
    const json::string& text = value.get_string();
    if (text.find('\0') != json::string::npos)
      throw EProtocolError(fmt::format("\"{}\" holds a null character", name));
    return {text.data(), text.size()};
  }

 private:
  const json::object* FObject;
};

json::value ParseJson(std::string_view line) {
  boost::system::error_code error;
  json::value parsed = json::parse(line, error);
  if (error) throw EProtocolError("The message is no JSON: " + error.message());
  if (!parsed.is_object()) throw EProtocolError("The message is no JSON object");
  return parsed;
}

void ReadValue(const TMembers& members, TEvent& event) {
  const json::value* const value = members.Find("value");
  if (value == nullptr || value->is_null()) return;
  if (value->is_bool())
    event.Value = value->get_bool();
  else if (value->is_int64())
    event.Value = value->get_int64();
  else
    event.Value = TMembers::TextOf("value", *value);
}

void ReadMode(const TMembers& members, TEvent& event) {
  const std::string mode = members.Text("mode");
  if (mode == "toggle")
    event.Mode = TSelectMode::Toggle;
  else if (mode == "range")
    event.Mode = TSelectMode::Range;
  else if (!mode.empty() && mode != "set")
    throw EProtocolError(fmt::format("\"mode\" knows no {}", mode));
}

void ReadDrop(const TMembers& members, TEvent& event) {
  event.OntoName = members.Text("name2");
  event.Onto = members.Number("onto");
  if (event.Id) event.Ids.push_back(*event.Id);
  const json::value* const ids = members.Find("ids");
  if (ids != nullptr) {
    if (!ids->is_array()) throw EProtocolError("\"ids\" must be a list");
    for (const json::value& id : ids->get_array()) {
      if (!id.is_int64()) throw EProtocolError("\"ids\" must hold whole numbers");
      event.Ids.push_back(id.get_int64());
    }
  }
  if (event.Ids.empty()) throw EProtocolError("\"id\" is missing");
}

/// Values of functions pass as text, whatever type they have in JSON.
std::string InputText(std::string_view name, const json::value& value) {
  if (value.is_string()) return TMembers::TextOf(name, value);
  if (value.is_null()) return {};
  return json::serialize(value);
}

void ReadInputs(const TMembers& members, std::string_view name, TEvent& event) {
  event.Function = members.NeedText("function");
  const json::value* const inputs = members.Find(name);
  if (inputs == nullptr) return;
  if (!inputs->is_object()) throw EProtocolError(fmt::format("\"{}\" must be an object", name));
  for (const auto& [key, value] : inputs->get_object()) {
    const std::string input(key);
    event.Inputs.emplace_back(input, InputText(input, value));
  }
}

void ReadDetails(const TMembers& members, TEvent& event) {
  event.Id = members.Number("id");
  event.Index = members.Int("index", 0);
  event.Column = members.Int("column", 0);
  switch (event.Do) {
    case TDo::Set:
    case TDo::Edit:
    case TDo::Language:
      ReadValue(members, event);
      break;
    case TDo::Select:
      ReadMode(members, event);
      break;
    case TDo::Drop:
      ReadDrop(members, event);
      break;
    case TDo::View:
      event.First = members.NeedInt("first", 0);
      event.Last = members.NeedInt("last", 0);
      break;
    case TDo::Menu:
      event.Style = members.Int("style").value_or(0);
      ReadInputs(members, "params", event);
      break;
    case TDo::Call:
      ReadInputs(members, "in", event);
      break;
    default:
      break;
  }
}

}  // namespace

TEvent ParseEvent(std::string_view line) {
  const json::value parsed = ParseJson(line);
  const TMembers members(parsed.get_object());
  TEvent event;
  std::optional<std::int64_t> number;
  try {
    number = members.Number("n");
    if (!number || *number < 1) throw EProtocolError("\"n\" must be a number above 0");
    event.Number = *number;
    const TDoRow& row = FindDo(members.NeedText("do"));
    event.Do = row.Do;
    if ((row.Needs & window) != 0) event.Window = members.NeedInt("window", 0);
    if ((row.Needs & component) != 0) event.Name = members.NeedText("name");
    ReadDetails(members, event);
  } catch (const EProtocolError& fault) {
    throw EProtocolError(fault.what(), number);
  }
  return event;
}

TControl ParseControl(std::string_view line) {
  // A look at the text spares most lines a second parse; a client's line never bears this member.
  if (line.find("\"gateway\"") == std::string_view::npos) return TControl::None;
  boost::system::error_code error;
  const json::value parsed = json::parse(line, error);
  if (error || !parsed.is_object()) return TControl::None;
  const json::value* const word = parsed.get_object().if_contains("gateway");
  if (word == nullptr) return TControl::None;
  if (*word == "attach") return TControl::Attach;
  return *word == "detach" ? TControl::Detach : TControl::Other;
}

}  // namespace zanhost
