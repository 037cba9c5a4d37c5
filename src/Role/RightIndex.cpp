#include "Role/RightIndex.h"

#include <functional>

namespace zanrole {

namespace {

/// Spreads neighbouring objects over the whole table.
std::size_t HashOf(int objectID, std::string_view oprate) {
  constexpr std::size_t kOdd = 0x9E3779B97F4A7C15u;
  const std::size_t mixed =
      (std::hash<std::string_view>{}(oprate) + static_cast<std::size_t>(objectID)) * kOdd;
  return mixed ^ (mixed >> 32);
}

constexpr std::size_t kFirstSlots = 64;

}  // namespace

TRightKey::TRightKey(int objectID, std::string_view oprate)
    : ObjectID(objectID), Oprate(oprate), Hash(HashOf(objectID, oprate)) {}

void TRightIndex::Add(TRightDef& right) {
  if (FCount * 2 >= FSlots.size()) Grow();
  const TRightKey key(right.ObjectID, right.Oprate);
  TSlot& slot = FSlots[SlotOf(key)];
  if (slot.Right != nullptr) return;
  slot = {key.Hash, &right};
  ++FCount;
}

TRightDef* TRightIndex::Find(const TRightKey& key) const {
  return FSlots.empty() ? nullptr : FSlots[SlotOf(key)].Right;
}

void TRightIndex::Clear() {
  FSlots.clear();
  FCount = 0;
}

std::size_t TRightIndex::SlotOf(const TRightKey& key) const {
  const std::size_t mask = FSlots.size() - 1;
  std::size_t at = key.Hash & mask;
  for (; FSlots[at].Right != nullptr; at = (at + 1) & mask) {
    const TSlot& slot = FSlots[at];
    if (slot.Hash == key.Hash && slot.Right->ObjectID == key.ObjectID && slot.Right->Oprate == key.Oprate)
      break;
  }
  return at;
}

void TRightIndex::Grow() {
  std::vector<TSlot> before(FSlots.empty() ? kFirstSlots : FSlots.size() * 2);
  before.swap(FSlots);
  const std::size_t mask = FSlots.size() - 1;
  for (const TSlot& slot : before) {
    if (slot.Right == nullptr) continue;
    std::size_t at = slot.Hash & mask;
    while (FSlots[at].Right != nullptr) at = (at + 1) & mask;
    FSlots[at] = slot;
  }
}

}  // namespace zanrole
