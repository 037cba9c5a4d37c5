#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/query/LiteralBinding.h"
#include "host/query/RecentlyUsed.h"

namespace zanhost {

/// The statements used last, by their shape: texts that differ in bound literals only find one statement.
/// A hit costs no adaptation and no preparation. TStatement is what an engine has made of a statement.
template <typename TStatement>
class TStatementCache {
 public:
  /// Keeps at most `capacity` statements.
  explicit TStatementCache(std::size_t capacity) : FEntries(capacity) {}

  /// Null when the statement is not here. The pointer shares ownership: it outlives a removal.
  std::shared_ptr<TStatement> Find(const TStatementShape& shape) {
    if (!MayHold(shape)) return nullptr;
    const TEntry* entry = FEntries.Find(shape.Shape);
    if (entry != nullptr && !entry->Fixed.empty()) entry = FEntries.Find(KeyOfStatement(shape, *entry));
    return entry != nullptr ? entry->Statement : nullptr;
  }

  /// Does nothing for a statement that is too long, or of which `binding` says that it is not to be kept.
  /// REQUIRES: Find has not found it.
  void Add(const TStatementShape& shape, const TLiteralBinding& binding,
           std::shared_ptr<TStatement> statement) {
    if (!binding.MayBeKept || !MayHold(shape)) return;
    if (binding.Fixed.empty()) {
      FEntries.Add(shape.Shape, {std::move(statement)});
      return;
    }
    TEntry* entry = FEntries.Find(shape.Shape);
    if (entry == nullptr) entry = &FEntries.Add(shape.Shape, {nullptr, binding.Fixed, ++FLastNumber});
    FEntries.Add(std::string(KeyOfStatement(shape, *entry)), {std::move(statement)});
  }

  void Clear() { FEntries.Clear(); }

 private:
  /// Longer statements are lists of values that rarely come again.
  static constexpr std::size_t kGreatestText = 16'384;

  /// A statement; or, under a shape with fixed literals, which these are. Its statements are then kept under
  /// the shape's number together with the fixed literals.
  struct TEntry {
    std::shared_ptr<TStatement> Statement;
    std::vector<std::size_t> Fixed;
    std::uint64_t Number = 0;
  };

  static bool MayHold(const TStatementShape& shape) {
    return shape.HasPlainLiterals && shape.Text.size() <= kGreatestText;
  }

  /// Begins with a zero byte, which no shape holds, and joins literals by it, which none of them holds.
  std::string_view KeyOfStatement(const TStatementShape& shape, const TEntry& entry) {
    FKey.assign(1, '\0').append(reinterpret_cast<const char*>(&entry.Number), sizeof entry.Number);
    for (const std::size_t literal : entry.Fixed) FKey.append(1, '\0').append(shape.Literals[literal].Text);
    return FKey;
  }

  TRecentlyUsed<TEntry> FEntries;
  std::uint64_t FLastNumber = 0;  ///< no number is given twice
  std::string FKey;               ///< room for KeyOfStatement
};

}  // namespace zanhost
