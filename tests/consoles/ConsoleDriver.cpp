#include "tests/consoles/ConsoleDriver.h"

#include <gtest/gtest.h>

#include "host/worker/ConsoleSession.h"
#include "host/worker/FunctionCall.h"

namespace zantest {

namespace json = boost::json;
using namespace zanhost;

namespace {

void RunSession(const std::string& dataUrl, const std::string& user, TLineChannel& channel) {
  TSessionOptions options;
  options.Data = dataUrl;
  options.User = user;
  TConsoleSession session(options, channel);
  session.Loop().OnCommand = [&](const TEvent& event) -> std::optional<json::object> {
    if (event.Do == TDo::Language)
      session.ChooseLanguage(event);
    else
      RunMenuFunction(session.Host().FuncManager(), event.Function, event.Style, event.Inputs);
    return std::nullopt;
  };
  session.Loop().Attach();
  session.Loop().Run();
}

std::string TextOf(const json::value& value) {
  if (value.is_null()) return {};
  return value.is_string() ? std::string(value.get_string()) : json::serialize(value);
}

std::string FirstCell(const json::object& row) { return TextOf(row.at("cells").as_array().at(0)); }

}  // namespace

TConsoleDriver::TConsoleDriver(const std::string& dataUrl, const std::string& user)
    : FDriver([dataUrl, user](TLineChannel& channel) {
        try {
          RunSession(dataUrl, user, channel);
        } catch (const std::exception& fault) {
          ADD_FAILURE() << "the session has ended: " << fault.what();
        }
      }) {
  FDriver.Start();
}

TConsoleDriver::TConsoleDriver(std::function<void(TLineChannel& channel)> session)
    : FDriver(std::move(session)) {
  FDriver.Start();
}

void TConsoleDriver::Menu(std::string_view function, int style) {
  FDriver.Send({{"do", "menu"}, {"function", function}, {"style", style}});
}

json::object TConsoleDriver::Call(std::string_view function, json::object inputs) {
  return FDriver.Send({{"do", "call"}, {"function", function}, {"in", std::move(inputs)}});
}

void TConsoleDriver::Act(std::string_view window, const std::string& action) {
  ASSERT_TRUE(IsUsable(window, action)) << action << " cannot be pressed";
  FDriver.Act(Window(window), action);
}

void TConsoleDriver::Set(std::string_view window, const std::string& name, std::string_view text) {
  SendValue(window, name, json::string(text));
}

void TConsoleDriver::SetNumber(std::string_view window, const std::string& name, int number) {
  SendValue(window, name, number);
}

void TConsoleDriver::SendValue(std::string_view window, const std::string& name, const json::value& value) {
  ASSERT_TRUE(IsUsable(window, name)) << name << " cannot be changed";
  const int handle = Window(window);
  FDriver.Client.NoteInput(handle, name, "value", value);
  FDriver.Set(handle, name, value);
}

void TConsoleDriver::ExpandAll(std::string_view window, const std::string& tree) {
  FDriver.Send({{"do", "expandAll"}, {"window", Window(window)}, {"name", tree}});
}

void TConsoleDriver::Select(std::string_view window, const std::string& name, std::string_view text) {
  SendRowEvent("select", window, name, text);
}

void TConsoleDriver::Activate(std::string_view window, const std::string& name, std::string_view text) {
  SendRowEvent("activate", window, name, text);
}

void TConsoleDriver::SendRowEvent(std::string_view event, std::string_view window, const std::string& name,
                                  std::string_view text) {
  for (const auto& [index, row] : Part(window, name).Rows) {
    if (FirstCell(row) != text) continue;
    FDriver.Send({{"do", event}, {"window", Window(window)}, {"name", name}, {"id", row.at("id")}});
    return;
  }
  ADD_FAILURE() << name << " shows no row " << text;
}

void TConsoleDriver::Sort(std::string_view window, const std::string& list, int column) {
  FDriver.Send({{"do", "sort"}, {"window", Window(window)}, {"name", list}, {"column", column}});
}

void TConsoleDriver::Language(std::string_view language) {
  FDriver.Send({{"do", "language"}, {"value", language}});
}

std::string TConsoleDriver::Answer(const std::string& button) {
  std::string text = Property("TMessage", "Text", "text");
  Act("TMessage", button);
  return text;
}

std::string TConsoleDriver::WindowProperty(std::string_view window, std::string_view property) const {
  const json::value* const value =
      FDriver.Client.Windows().at(Window(window)).Properties.if_contains(property);
  return value != nullptr ? TextOf(*value) : std::string();
}

std::string TConsoleDriver::Property(std::string_view window, const std::string& name,
                                     std::string_view property) const {
  return TextOf(FDriver.Client.Property(Window(window), name, property));
}

bool TConsoleDriver::IsUsable(std::string_view window, const std::string& name) const {
  for (std::string part = name; !part.empty(); part = Property(window, part, "in")) {
    if (Property(window, part, "enabled") == "false" || Property(window, part, "visible") == "false")
      return false;
  }
  return true;
}

std::vector<std::string> TConsoleDriver::Rows(std::string_view window, const std::string& name) const {
  std::vector<std::string> texts;
  for (const auto& [index, row] : Part(window, name).Rows) {
    const json::value* const level = row.if_contains("level");
    const auto depth = level != nullptr ? static_cast<std::size_t>(level->as_int64()) : 0;
    texts.push_back(std::string(2 * depth, ' ') + FirstCell(row));
  }
  return texts;
}

std::vector<std::string> TConsoleDriver::SelectedRows(std::string_view window,
                                                      const std::string& name) const {
  std::vector<std::string> texts;
  for (const auto& [index, row] : Part(window, name).Rows) {
    const json::value* const selected = row.if_contains("selected");
    if (selected != nullptr && selected->as_bool()) texts.push_back(FirstCell(row));
  }
  return texts;
}

int TConsoleDriver::Window(std::string_view window) const {
  const int handle = FDriver.Client.WindowOf(window);
  if (handle == 0) throw std::runtime_error("no window " + std::string(window));
  return handle;
}

const TClientModel::TPart& TConsoleDriver::Part(std::string_view window, const std::string& name) const {
  return FDriver.Client.Windows().at(Window(window)).Parts.at(name);
}

}  // namespace zantest
