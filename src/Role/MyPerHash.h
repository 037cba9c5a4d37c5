#pragma once

#include <deque>
#include <string_view>

#include "Role/MyHash.h"
#include "Role/RightIndex.h"

namespace zanrole {

/// A hash table of rights that owns its elements. Doubles are not looked for: of two rights of one object and
/// operation the older is found.
class ZAN_EXPORT TMyPerHash : public TMyHash {
 public:
  TMyPerHash();
  ~TMyPerHash() override;
  void Clear() override;

  /// The reference lives until Clear. Its pair must not be changed.
  TRightDef& Add(TRightDef right);
  /// The first right of exactly this object and operation in the order of adding; null when there is none.
  TRightDef* FindData(int objectID, std::string_view oprate) const {
    return FIndex.Find(TRightKey(objectID, oprate));
  }

  /// Hash of a pair: the object within 256, plus the sum of the operation's units of UTF-16; reduced.
  static int CalcHashPro(int objectID, std::string_view oprate);
  /// The same of an element, a TRightDef.
  static int PerHashPro(const void* element);

 private:
  /// Elements keep their place as more are added.
  std::deque<TRightDef> FElements;
  TRightIndex FIndex;
};

}  // namespace zanrole
