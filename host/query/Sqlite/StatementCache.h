#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/query/LiteralBinding.h"
#include "host/query/Sqlite/Handles.h"

namespace zanhost {

/// A statement that SQLite has prepared, with what running it needs to know.
struct TPreparedStatement {
  /// Where a parameter takes its value from.
  struct TSource {
    static constexpr std::size_t NoLiteral = static_cast<std::size_t>(-1);
    std::string Name;                 ///< of the parameter in the module's text
    std::size_t Literal = NoLiteral;  ///< or the literal in whose place it stands
  };

  TStatementHandle Handle;
  /// In the engine's order of its parameters.
  std::vector<TSource> Sources;
  /// Names of the columns of the result, valid for as long as the engine has not prepared the statement anew.
  std::vector<std::string> Columns;
  int ColumnsReadAt = -1;
};

/// The statements used last, by their shape: texts that differ in bound literals only find one statement.
/// A hit costs no adaptation and no preparation.
class TStatementCache {
 public:
  /// Keeps at most `capacity` statements, none of them longer than `greatestText` bytes.
  TStatementCache(std::size_t capacity, std::size_t greatestText)
      : FCapacity(capacity), FGreatestText(greatestText) {}

  /// Null when the statement is not here. The pointer shares ownership: it outlives a removal.
  std::shared_ptr<TPreparedStatement> Find(const TStatementShape& shape);
  /// Does nothing for a statement that is too long, or of which `binding` says that it is not to be kept.
  /// REQUIRES: Find has not found it.
  void Add(const TStatementShape& shape, const TLiteralBinding& binding,
           std::shared_ptr<TPreparedStatement> statement);

 private:
  /// A statement; or, under a shape with fixed literals, which these are. Its statements are then kept under
  /// the shape's number together with the fixed literals.
  struct TEntry {
    std::string Key;
    std::shared_ptr<TPreparedStatement> Statement;
    std::vector<std::size_t> Fixed;
    std::uint64_t Number = 0;
  };

  bool MayHold(const TStatementShape& shape) const;
  TEntry* FindEntry(std::string_view key);
  void AddEntry(TEntry entry);
  std::string_view KeyOfStatement(const TStatementShape& shape, const TEntry& entry);

  std::size_t FCapacity;
  std::size_t FGreatestText;
  std::list<TEntry> FEntries;  ///< the one used last in front
  std::unordered_map<std::string_view, std::list<TEntry>::iterator> FIndex;
  std::uint64_t FLastNumber = 0;  ///< no number is given twice
  std::string FKey;               ///< room for KeyOfStatement
};

}  // namespace zanhost
