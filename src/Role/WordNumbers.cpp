#include "Role/WordNumbers.h"

#include <cstring>
#include <utility>

namespace zanrole {

namespace {

template <typename TNumber>
std::uint64_t NumberAt(const char* bytes) {
  TNumber number;
  std::memcpy(&number, bytes, sizeof number);
  return number;
}

/// Of both ends and the length: operation words are short, and tell themselves apart by that.
std::size_t HashOf(std::string_view word) {
  constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15u;
  const char* const begin = word.data();
  const char* const end = begin + word.size();
  std::uint64_t hash = word.size();
  if (word.size() >= 8)
    hash += NumberAt<std::uint64_t>(begin) * 31 + NumberAt<std::uint64_t>(end - 8);
  else if (word.size() >= 4)
    hash += NumberAt<std::uint32_t>(begin) * 31 + NumberAt<std::uint32_t>(end - 4);
  else
    for (const char c : word) hash = hash * 31 + static_cast<unsigned char>(c);
  return static_cast<std::size_t>((hash * kOdd) >> 32);
}

constexpr std::size_t kFirstSlots = 64;

}  // namespace

std::uint32_t TWordNumbers::Find(std::string_view word) const {
  return FSlots.empty() ? NoWord : FSlots[SlotOf(word)].Number;
}

std::uint32_t TWordNumbers::Add(std::string_view word) {
  if (const std::uint32_t known = Find(word); known != NoWord) return known;
  if (FCount * 2 >= FSlots.size()) Grow();
  FSlots[SlotOf(word)] = {std::string(word), ++FCount};
  return FCount;
}

void TWordNumbers::Clear() {
  FSlots.clear();
  FCount = 0;
}

std::size_t TWordNumbers::SlotOf(std::string_view word) const {
  const std::size_t mask = FSlots.size() - 1;
  std::size_t at = HashOf(word) & mask;
  while (FSlots[at].Number != NoWord && FSlots[at].Word != word) at = (at + 1) & mask;
  return at;
}

void TWordNumbers::Grow() {
  std::vector<TSlot> before(FSlots.empty() ? kFirstSlots : FSlots.size() * 2);
  before.swap(FSlots);
  for (TSlot& slot : before)
    if (slot.Number != NoWord) FSlots[SlotOf(slot.Word)] = std::move(slot);
}

}  // namespace zanrole
