#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zanrole {

/// Numbers operation words from 1 on. There are few of them, so that a number is found without leaving the
/// processor's cache, and pairs of object and operation can then be told apart by numbers alone.
class TWordNumbers {
 public:
  static constexpr std::uint32_t NoWord = 0;

  /// NoWord for one that was never added. Words compare exactly.
  std::uint32_t Find(std::string_view word) const;
  std::uint32_t Add(std::string_view word);
  void Clear();

 private:
  struct TSlot {
    std::string Word;
    std::uint32_t Number = NoWord;
  };

  /// Slot of the word, or the free one where it belongs. REQUIRES: there is a free slot.
  std::size_t SlotOf(std::string_view word) const;
  void Grow();

  /// Their number is a power of two, at least twice that of the words; empty without any.
  std::vector<TSlot> FSlots;
  std::uint32_t FCount = 0;
};

}  // namespace zanrole
