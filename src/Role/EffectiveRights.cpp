#include "Role/EffectiveRights.h"

#include <algorithm>
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

constexpr std::size_t kFewestSlots = 64;

/// So many that they are filled by no more than three quarters.
std::size_t SlotsFor(std::size_t pairs) {
  return std::max(std::bit_ceil(pairs + pairs / 3 + 1), kFewestSlots);
}

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

void TEffectiveRights::Reserve(std::size_t rights) {
  if (const std::size_t slots = SlotsFor(FCount + rights); slots > FSlots.size()) Resize(slots);
}

TSetRight TEffectiveRights::FindOwn(int objectID, std::string_view oprate) const {
  return RightAt(SlotFor(objectID, oprate), kOwnShift);
}

TSetRight TEffectiveRights::FindOfRoles(int objectID, std::string_view oprate) const {
  return RightAt(SlotFor(objectID, oprate), kRolesShift);
}

TSetRight TEffectiveRights::Find(int objectID, std::string_view oprate) const {
  return kEffective[SlotFor(objectID, oprate) & (kEffective.size() - 1)];
}

std::uint64_t TEffectiveRights::SlotFor(int objectID, std::string_view oprate) const {
  const std::uint32_t word = FWords.Find(oprate);
  return word == TWordNumbers::NoWord ? 0 : FSlots[SlotOf(PairOf(objectID, word))];
}

void TEffectiveRights::Add(int objectID, std::string_view oprate, int shift, bool allowed) {
  Reserve(1);
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

void TEffectiveRights::Resize(std::size_t slots) {
  std::vector<std::uint64_t> before(slots);
  before.swap(FSlots);
  for (const std::uint64_t slot : before)
    if (slot != 0) FSlots[SlotOf(slot >> kRightBits)] = slot;
}

}  // namespace zanrole
