#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/SessionDriver.h"

namespace zantest {

/// A person at the consoles of one login, with the loaded module. Windows are named by their class; of
/// several of one class the one that came up last is meant. What a person could not do fails the test and
/// does nothing.
class TConsoleDriver {
 public:
  TConsoleDriver(const std::string& dataUrl, const std::string& user);
  /// A session of another making. `session` runs on a thread until it returns; it attaches its loop and runs
  /// it, and answers menu, call and language.
  explicit TConsoleDriver(std::function<void(zanhost::TLineChannel& channel)> session);

  void Menu(std::string_view function, int style = 0);
  /// Runs a system function and gives the message that answered it.
  boost::json::object Call(std::string_view function, boost::json::object inputs);
  void Act(std::string_view window, const std::string& action);
  /// Types a text into an edit or memo, or a number into a spin edit.
  void Set(std::string_view window, const std::string& name, std::string_view text);
  void SetNumber(std::string_view window, const std::string& name, int number);
  /// Opens all nodes of a tree.
  void ExpandAll(std::string_view window, const std::string& tree);
  /// Selects, or double clicks, the first row with this text in its first column.
  void Select(std::string_view window, const std::string& name, std::string_view text);
  void Activate(std::string_view window, const std::string& name, std::string_view text);
  void Sort(std::string_view window, const std::string& list, int column);
  void Language(std::string_view language);
  /// Closes the message box by its button and gives the text that it had.
  std::string Answer(const std::string& button);

  bool IsOpen(std::string_view window) const { return FDriver.Client.WindowOf(window) != 0; }
  std::string Caption(std::string_view window) const { return WindowProperty(window, "caption"); }
  /// A property of the window itself as text; empty when it has none of that name.
  std::string WindowProperty(std::string_view window, std::string_view property) const;
  /// All that is known of the windows.
  const TClientModel& Client() const { return FDriver.Client; }
  /// A property as text; empty when it was never sent.
  std::string Property(std::string_view window, const std::string& name, std::string_view property) const;
  bool IsUsable(std::string_view window, const std::string& name) const;
  /// First column of the rows; in a tree two blanks for each level stand before it.
  std::vector<std::string> Rows(std::string_view window, const std::string& name) const;
  /// First column of the selected rows.
  std::vector<std::string> SelectedRows(std::string_view window, const std::string& name) const;
  /// The part that was last given the focus.
  std::string Focused() const { return FDriver.Client.Focused.empty() ? "" : FDriver.Client.Focused.back(); }

 private:
  int Window(std::string_view window) const;
  const TClientModel::TPart& Part(std::string_view window, const std::string& name) const;
  void SendValue(std::string_view window, const std::string& name, const boost::json::value& value);
  void SendRowEvent(std::string_view event, std::string_view window, const std::string& name,
                    std::string_view text);

  TSessionDriver FDriver;
};

}  // namespace zantest
