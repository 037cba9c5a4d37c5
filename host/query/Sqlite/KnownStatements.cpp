#include "host/query/Sqlite/KnownStatements.h"

#include <functional>

namespace zanhost {

namespace {

/// By so many characters a statement is looked up. Those that have a literal among them are not known here.
constexpr std::size_t kBeginning = 24;
constexpr std::size_t kMostOfSlot = 8;
constexpr std::size_t kGreatestText = 2048;

}  // namespace

std::size_t TKnownStatements::SlotOf(std::string_view text) {
  return std::hash<std::string_view>()(text.substr(0, kBeginning)) % std::tuple_size_v<decltype(FSlots)>;
}

TSqlitePrepared* TKnownStatements::Find(std::string_view text, TTokens& literals) const {
  for (const TKnown& known : FSlots[SlotOf(text)])
    if (known.Pattern.MatchWhole(text, literals)) return known.Statement.get();
  return nullptr;
}

void TKnownStatements::Note(const TStatementShape& shape, const std::shared_ptr<TSqlitePrepared>& statement) {
  if (shape.Text.size() > kGreatestText) return;
  TStatementPattern pattern(shape, statement->Fixed);
  if (pattern.Beginning().size() < kBeginning) return;
  TSlot& slot = FSlots[SlotOf(shape.Text)];
  if (slot.size() == kMostOfSlot) slot.pop_back();
  slot.insert(slot.begin(), TKnown{std::move(pattern), statement});
}

}  // namespace zanhost
