#pragma once

#include <optional>
#include <unordered_map>
#include <vector>

#include "host/query/StatementPattern.h"

namespace zanhost {

/// The statements of a batch come in a few shapes, and mostly in the same order. This remembers which shape
/// came after which, so that the next statement is recognised without a look at its tokens. TThing is what
/// the engine knows of a shape.
template <typename TThing>
class TRecurringStatements {
 public:
  /// Reads the next statement when it is of the shape that is expected; null otherwise, and nothing is read.
  /// shape.Shape stays empty. Lives until the next call of Note.
  const TThing* Read(TStatementReader& reader, TStatementShape& shape) {
    if (FLast == kNone) return nullptr;
    const std::size_t expected = FKnown[FLast].Next;
    if (expected == kNone || !reader.ReadLike(*FKnown[expected].Pattern, shape)) return nullptr;
    FLast = expected;
    return &FKnown[expected].Thing;
  }

  /// Tells of a statement that the reader read, and which Read did not. All statements of its shape are
  /// treated alike.
  void Note(const TStatementShape& shape, const TThing& thing) {
    const auto [found, isNew] = FIndex.try_emplace(shape.Shape, FKnown.size());
    if (isNew) FKnown.push_back({.Thing = thing});
    TKnown& known = FKnown[found->second];
    // One that comes once needs no pattern.
    if (!isNew && !known.Pattern) known.Pattern.emplace(shape);
    if (FLast != kNone && known.Pattern) FKnown[FLast].Next = found->second;
    FLast = found->second;
  }

  /// Tells of a statement that is not to be remembered.
  void Forget() { FLast = kNone; }

 private:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  struct TKnown {
    TThing Thing;
    std::optional<TStatementPattern> Pattern;
    std::size_t Next = kNone;  ///< the one that came behind this one last; has a pattern
  };

  std::vector<TKnown> FKnown;
  std::unordered_map<std::string, std::size_t> FIndex;
  std::size_t FLast = kNone;
};

}  // namespace zanhost
