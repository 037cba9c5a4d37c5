#include "Role/EffectiveRights.h"

#include <bit>

namespace zanrole {

namespace {

// Parts of a slot: the number of the operation in 28 bits, the object in 32, two rights in 2 each.
constexpr int kRightBits = 4;
constexpr int kObjectBits = 32;
constexpr int kOwnShift = 0;
constexpr int kRolesShift = 2;

std::uint64_t PairOf(int objectID, std::uint32_t word) {
  return std::uint64_t{word} << kObjectBits | static_cast<std::uint32_t>(objectID);
}

constexpr TSetRight RightAt(std::uint64_t slot, int shift) {
  return static_cast<TSetRight>(slot >> shift & 3u);
}

/// The rule as a table: a processor cannot foresee how rights are set, so that asking by branches would cost
/// more than all the rest.
constexpr auto kEffective = [] {
  std::array<TSetRight, 1 << kRightBits> table{};
  for (std::size_t set = 0; set < table.size(); ++set)
    table[set] = EffectiveRight(RightAt(set, kOwnShift), RightAt(set, kRolesShift));
  return table;
}();

constexpr std::size_t kFirstSlots = 64;

}  // namespace

void TEffectiveRights::AddOwn(int objectID, std::string_view oprate, bool allowed) {
  Add(objectID, oprate, kOwnShift, allowed);
}

void TEffectiveRights::AddOfRoles(int objectID, std::string_view oprate, bool allowed) {
  Add(objectID, oprate, kRolesShift, allowed);
}

void TEffectiveRights::Clear() {
  FWords.Clear();
  FSlots.clear();
  FCount = 0;
}

TSetRight TEffectiveRights::Find(int objectID, std::string_view oprate) const {
  const std::uint32_t word = FWords.Find(oprate);
  if (word == TWordNumbers::NoWord) return TSetRight::NotSet;
  return kEffective[FSlots[SlotOf(PairOf(objectID, word))] & (kEffective.size() - 1)];
}

void TEffectiveRights::Add(int objectID, std::string_view oprate, int shift, bool allowed) {
  if ((FCount + 1) * 4 > FSlots.size() * 3) Grow();
  const std::uint64_t pair = PairOf(objectID, FWords.Add(oprate));
  std::uint64_t& slot = FSlots[SlotOf(pair)];
  if (slot == 0) {
    slot = pair << kRightBits;
    ++FCount;
  }
  if (RightAt(slot, shift) != TSetRight::NotSet) return;
  slot |= static_cast<std::uint64_t>(allowed ? TSetRight::Allowed : TSetRight::Denied) << shift;
}

std::size_t TEffectiveRights::SlotOf(std::uint64_t pair) const {
  // The highest bits of the product: neighbouring objects come to lie far from each other.
  constexpr std::uint64_t kGoldenRatio = 0x9E3779B97F4A7C15u;
  const std::size_t mask = FSlots.size() - 1;
  std::size_t at = static_cast<std::size_t>((pair * kGoldenRatio) >> std::countl_zero(std::uint64_t{mask}));
  while (FSlots[at] != 0 && FSlots[at] >> kRightBits != pair) at = (at + 1) & mask;
  return at;
}

void TEffectiveRights::Grow() {
  std::vector<std::uint64_t> before(FSlots.empty() ? kFirstSlots : FSlots.size() * 2);
  before.swap(FSlots);
  for (const std::uint64_t slot : before)
    if (slot != 0) FSlots[SlotOf(slot >> kRightBits)] = slot;
}

}  // namespace zanrole
