#pragma once

#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/query/Sqlite/Handles.h"

namespace zanhost {

/// A statement that SQLite has prepared, with what running it needs to know.
struct TPreparedStatement {
  TStatementHandle Handle;
  /// The engine's text when it differs from the module's; otherwise empty.
  std::string Sent;
  /// Names of the parameters, in the engine's order.
  std::vector<std::string> ParamNames;
  /// Names of the columns of the result, valid for as long as the engine has not prepared the statement anew.
  std::vector<std::string> Columns;
  int ColumnsReadAt = -1;
};

/// The statements used last, by the module's text. A hit costs no adaptation and no preparation.
class TStatementCache {
 public:
  /// Keeps at most `capacity` statements, none of them longer than `greatestText` bytes: long texts are lists
  /// of values that rarely come again.
  TStatementCache(std::size_t capacity, std::size_t greatestText)
      : FCapacity(capacity), FGreatestText(greatestText) {}

  /// Null when the statement is not here. The pointer shares ownership: it outlives a removal.
  std::shared_ptr<TPreparedStatement> Find(std::string_view text);
  /// Does nothing for a text that is too long. REQUIRES: the text is not here.
  void Add(std::string_view text, std::shared_ptr<TPreparedStatement> statement);

 private:
  struct TEntry {
    std::string Text;
    std::shared_ptr<TPreparedStatement> Statement;
  };

  std::size_t FCapacity;
  std::size_t FGreatestText;
  std::list<TEntry> FEntries;  ///< the one used last in front
  std::unordered_map<std::string_view, std::list<TEntry>::iterator> FIndex;
};

}  // namespace zanhost
