#pragma once

#include <vector>

#include "Frame/Host/Forms.h"
#include "Role/UserInfo.h"

namespace zanrole {

/// Users and roles that a list shows in the order in which they were added.
class TUserRows {
 public:
  /// Takes over the rows of `list`, which must outlive this object.
  explicit TUserRows(TListView& list);
  TUserRows(const TUserRows&) = delete;
  TUserRows& operator=(const TUserRows&) = delete;

  /// Adds a row with the record as it is now: name, login where it is wanted, description, group. The icon
  /// tells kind and state. The record must outlive the rows.
  void AddAItem(TUserInfo& user, bool withID);
  void Clear();
  /// The record of a row of the list. REQUIRES: the row exists.
  TUserInfo* UserOf(std::int64_t rowID) const;

 private:
  struct TItem {
    TUserInfo* User;
    TListRow Row;
  };

  TListView& FList;
  std::vector<TItem> FItems;
};

}  // namespace zanrole
