#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zanrole {

/// The right of a holder on one operation of one object.
struct TRightDef {
  int ObjectID = 0;
  std::string Oprate;
  bool Right = false;    ///< of a right that was changed: it allows
  std::string ExcRight;  ///< of a right that was read: "允许" or "禁止"
};

/// What a right is looked up by. It must not outlive the text.
struct TRightKey {
  TRightKey(int objectID, std::string_view oprate);
  int ObjectID;
  std::string_view Oprate;
  std::size_t Hash;
};

/// Finds a right without regard to how many of them there are: the buckets of TMyPerHash grow long, since
/// there are few operation words. Of several rights of one pair it knows the first.
class TRightIndex {
 public:
  /// `right` is not owned; it must live, and its pair stay as it is, until Clear.
  void Add(TRightDef& right);
  /// Null when there is none.
  TRightDef* Find(const TRightKey& key) const;
  void Clear();

 private:
  struct TSlot {
    std::size_t Hash = 0;
    TRightDef* Right = nullptr;
  };

  /// Slot of the key, or the free one where it belongs.
  std::size_t SlotOf(const TRightKey& key) const;
  void Grow();

  /// Their number is a power of two, at least twice that of the rights; empty without any.
  std::vector<TSlot> FSlots;
  std::size_t FCount = 0;
};

}  // namespace zanrole
