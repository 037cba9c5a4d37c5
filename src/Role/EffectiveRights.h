#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "Role/WordNumbers.h"

namespace zanrole {

enum class TSetRight : std::uint8_t { NotSet = 0, Allowed = 1, Denied = 2 };

/// The word that a right is told by: "允许" (allowed), "禁止" (denied), or an empty text where none is set.
constexpr std::string_view WordOf(TSetRight right) {
  constexpr std::array<std::string_view, 3> words{"", "允许", "禁止"};
  return words[static_cast<std::size_t>(right)];
}

/// A denial by a role is final; otherwise the holder's own right counts before that of his roles.
constexpr bool RolesDecide(TSetRight own, TSetRight ofRoles) {
  return ofRoles == TSetRight::Denied || own == TSetRight::NotSet;
}

/// The effective right, as it follows from the holder's own and that of his roles.
constexpr TSetRight EffectiveRight(TSetRight own, TSetRight ofRoles) {
  return RolesDecide(own, ofRoles) ? ofRoles : own;
}

/// The rights of one holder: his own, those of his roles, and what follows from both. A pair of object and
/// operation with what is set for it is one number, so that a question costs the same for a hundred rights
/// and for a hundred thousand.
class TEffectiveRights {
 public:
  /// Of several rights of a holder's own, or of his roles, for one pair the first counts.
  void AddOwn(int objectID, std::string_view oprate, bool allowed);
  void AddOfRoles(int objectID, std::string_view oprate, bool allowed);
  /// Makes room for so many more rights.
  void Reserve(std::size_t rights);
  void Clear();

  TSetRight FindOwn(int objectID, std::string_view oprate) const;
  TSetRight FindOfRoles(int objectID, std::string_view oprate) const;
  /// The effective right of the holder.
  TSetRight Find(int objectID, std::string_view oprate) const;

 private:
  void Add(int objectID, std::string_view oprate, int shift, bool allowed);
  /// What is set for a pair, with or without the pair itself.
  std::uint64_t SlotFor(int objectID, std::string_view oprate) const;
  std::size_t SlotOf(std::uint64_t pair) const;
  /// REQUIRES: a power of two, more than there are pairs.
  void Resize(std::size_t slots);

  TWordNumbers FWords;
  /// The pair, and in the lowest bits what is set; 0 for a free slot. Their number is a power of two, never
  /// filled by more than three quarters; empty without any.
  std::vector<std::uint64_t> FSlots;
  std::size_t FCount = 0;
};

}  // namespace zanrole
