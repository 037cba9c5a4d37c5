#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "tests/consoles/ConsoleDriver.h"
#include "tests/support/FaultyDatabase.h"

namespace zantest {

/// The super user `OID` 1 with the current domain 2, at consoles and functions of the linked module. Each
/// step looks whether a fault was shown; if so the person reads it, closes the box and stops.
class TPerson {
 public:
  /// Thrown out of a step in which a fault was shown.
  struct TSawFault {};

  /// `database` must outlive the person.
  explicit TPerson(TFaultyDatabase& database);

  void Menu(std::string_view function);
  void Act(std::string_view window, const std::string& action);
  void Select(std::string_view window, const std::string& name, std::string_view text);
  void Activate(std::string_view window, const std::string& name, std::string_view text);
  void Set(std::string_view window, const std::string& name, std::string_view text);
  void ExpandAll(std::string_view window, const std::string& tree);
  /// Presses a button of the question that is open.
  void Answer(const std::string& button);
  /// The value of the output "Result".
  std::string Call(std::string_view function, const boost::json::object& inputs);

  TConsoleDriver& Screen() { return FScreen; }
  /// Texts of the faults that were shown, each as often as it was shown.
  const std::vector<std::string>& Faults() const { return FFaults; }
  /// "TFormDomains.ActRefresh" for each action that was pressed.
  const std::set<std::string>& Pressed() const { return FPressed; }
  /// The same for each action that any window had.
  const std::set<std::string>& Offered() const { return FOffered; }

 private:
  void Look();

  TConsoleDriver FScreen;
  std::vector<std::string> FFaults;
  std::set<std::string> FPressed;
  std::set<std::string> FOffered;
};

}  // namespace zantest
