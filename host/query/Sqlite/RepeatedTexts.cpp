#include "host/query/Sqlite/RepeatedTexts.h"

#include <functional>

namespace zanhost {

const TRepeatedTexts::TKnown* TRepeatedTexts::Find(std::string_view text) {
  if (text.size() > kGreatestText) return nullptr;
  FHash = std::hash<std::string_view>()(text);
  const TKnown& known = FSlots[FHash % FSlots.size()].Known;
  return known.Text == text ? &known : nullptr;
}

void TRepeatedTexts::Note(std::string_view text, const std::shared_ptr<TSqlitePrepared>& statement) {
  if (text.size() > kGreatestText) return;
  TSlot& slot = FSlots[FHash % FSlots.size()];
  if (slot.LastHash == FHash) {
    slot.Known.Text = text;
    TStatementReader(slot.Known.Text).Read(slot.Known.Shape);
    slot.Known.Statement = statement;
  }
  slot.LastHash = FHash;
}

}  // namespace zanhost
