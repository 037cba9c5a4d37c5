#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "Role/WordNumbers.h"

namespace zanrole {

enum class TSetRight : std::uint8_t { NotSet = 0, Allowed = 1, Denied = 2 };

/// The effective rights of one holder. A pair of object and operation with what is set for it is one number,
/// so that a question costs the same for a hundred rights and for a hundred thousand.
class TEffectiveRights {
 public:
  /// Of several rights of a holder's own, or of his roles, for one pair the first counts.
  void AddOwn(int objectID, std::string_view oprate, bool allowed);
  void AddOfRoles(int objectID, std::string_view oprate, bool allowed);
  void Clear();

  /// A denial by a role is final; otherwise the holder's own right counts before that of his roles.
  TSetRight Find(int objectID, std::string_view oprate) const;

 private:
  void Add(int objectID, std::string_view oprate, int shift, bool allowed);
  std::size_t SlotOf(std::uint64_t pair) const;
  void Grow();

  TWordNumbers FWords;
  /// The pair, and in the lowest bits what is set; 0 for a free slot. Their number is a power of two, never
  /// filled by more than three quarters; empty without any.
  std::vector<std::uint64_t> FSlots;
  std::size_t FCount = 0;
};

}  // namespace zanrole
