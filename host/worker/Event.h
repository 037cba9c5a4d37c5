#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "host/worker/FunctionCall.h"

namespace zanhost {

/// A message of the client that is no event, or not one that its target takes. The session goes on.
class EProtocolError : public std::runtime_error {
 public:
  explicit EProtocolError(const std::string& text, std::optional<std::int64_t> number = std::nullopt)
      : std::runtime_error(text), FNumber(number) {}
  /// The event's number, as far as it could be read.
  std::optional<std::int64_t> Number() const { return FNumber; }

 private:
  std::optional<std::int64_t> FNumber;
};

enum class TDo {
  Menu,
  Call,
  Act,
  Set,
  Select,
  Activate,
  Toggle,
  ExpandAll,
  Mark,
  Edit,
  Drop,
  Sort,
  View,
  Close,
  Snapshot,
  Language,
  Cancel,
  Quit
};

enum class TSelectMode { Set, Toggle, Range };

/// One event, its members checked for their types. A member that was not given is empty.
struct TEvent {
  std::int64_t Number = 0;
  TDo Do = TDo::Act;
  int Window = 0;
  /// The component.
  std::string Name;
  std::variant<std::monostate, std::string, std::int64_t, bool> Value;
  std::optional<std::int64_t> Id;
  std::optional<int> Index;
  TSelectMode Mode = TSelectMode::Set;
  std::optional<int> Column;
  int First = 0;
  int Last = 0;
  /// Rows that are dragged.
  std::vector<std::int64_t> Ids;
  /// Nothing: back to where they came from.
  std::optional<std::int64_t> Onto;
  /// The component that the rows are dropped on; empty for the one that they come from.
  std::string OntoName;
  std::string Function;
  int Style = 0;
  /// `params` of a menu function, `in` of a system function.
  TNamedValues Inputs;
};

/// Reads one line. Raises EProtocolError for anything that is not an event as docs/protocol.md describes it.
TEvent ParseEvent(std::string_view line);

/// A line of the gateway itself.
enum class TControl { None, Attach, Detach, Other };

/// None when the line is not the gateway's.
TControl ParseControl(std::string_view line);

}  // namespace zanhost
