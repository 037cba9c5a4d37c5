#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Frame/Host/Rights.h"
#include "Frame/Host/Zandbs.h"
#include "Role/EffectiveRights.h"

// The rows of STPermission for one pair of object and operation, and what follows from them.

namespace zanrole {

/// A value of the column `Permission`; nothing for null.
using TPermissionValue = std::optional<int>;

struct TPermissionRow {
  int HolderOID = 0;
  std::string HolderName;  ///< trimmed; empty when the statement does not ask for it or the holder is gone
  TPermissionValue Value;
};

/// What a value says by itself: 0 denies, and so does a null.
constexpr TSetRight RightOfValue(TPermissionValue value) {
  return value.value_or(0) != 0 ? TSetRight::Allowed : TSetRight::Denied;
}

/// The right that rows of roles give together, as min() finds it: the smallest value counts; a null takes no
/// part unless there is nothing else.
class TRightOfRoles {
 public:
  void Add(TPermissionValue value);
  TSetRight Right() const;
  /// Does the right follow from a row of this value?
  bool FollowsFrom(TPermissionValue value) const {
    const bool takesPart = value.has_value() || !FSmallest;
    return takesPart && RightOfValue(value) == Right();
  }

 private:
  bool FHasRows = false;
  TPermissionValue FSmallest;
};

/// A fresh query on the data database with a statement on a pair, whose parameters :ObjectID and :Oprate are
/// set; the caller sets the others.
std::unique_ptr<TZANQuery> QueryOnPair(std::string_view statement, int objectID, std::string_view oprate);

/// Opens the query and reads its columns UserID, Permission and, where it has it, UserName.
std::vector<TPermissionRow> ReadPermissionRows(TZANQuery& query);

/// The record of a row for the host.
TRightRow RecordOfRow(const TPermissionRow& row, bool isRole);

}  // namespace zanrole
