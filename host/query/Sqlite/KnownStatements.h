#pragma once

#include <array>
#include <memory>
#include <string_view>
#include <vector>

#include "host/query/Sqlite/Prepared.h"
#include "host/query/StatementPattern.h"

namespace zanhost {

/// Single statements that came more than once, recognised by their pattern: a hit costs no look at the
/// tokens.
class TKnownStatements {
 public:
  /// Null when the text is none of them. Fills in the literals; fixed ones stay empty. The statement lives
  /// until the next call of Note.
  TSqlitePrepared* Find(std::string_view text, TTokens& literals) const;
  /// Tells of a statement that came again and that Find has not found.
  void Note(const TStatementShape& shape, const std::shared_ptr<TSqlitePrepared>& statement);

 private:
  struct TKnown {
    TStatementPattern Pattern;
    std::shared_ptr<TSqlitePrepared> Statement;
  };
  /// Those whose beginnings have one hash; the one that was noted last in front.
  using TSlot = std::vector<TKnown>;

  static std::size_t SlotOf(std::string_view text);

  std::array<TSlot, 128> FSlots;
};

}  // namespace zanhost
