#include "Role/UserRows.h"

namespace zanrole {

namespace {

/// By kind, and by whether the account is disabled.
constexpr const char* kIcons[] = {"user", "user-disabled", "role", "role-disabled"};

const char* IconOf(const TUserInfo& user) { return kIcons[user.uType * 2 + (user.uState == usUsed ? 0 : 1)]; }

}  // namespace

TUserRows::TUserRows(TListView& list) : FList(list) {
  FList.OnRowCount = [this] { return static_cast<int>(FItems.size()); };
  FList.OnRow = [this](int index) { return FItems[static_cast<std::size_t>(index)].Row; };
  FList.OnIndexOf = [this](std::int64_t id) {
    return id >= 0 && id < FList.RowCount() ? static_cast<int>(id) : -1;
  };
}

void TUserRows::AddAItem(TUserInfo& user, bool withID) {
  TListRow row;
  row.Id = static_cast<std::int64_t>(FItems.size());
  row.Icon = IconOf(user);
  row.Cells.push_back(user.Name);
  if (withID) row.Cells.push_back(user.ID);
  row.Cells.push_back(user.Describe);
  row.Cells.push_back(user.Categories);
  FItems.push_back({&user, std::move(row)});
}

void TUserRows::Clear() {
  FItems.clear();
  FList.Selection.clear();
  FList.Focused = -1;
}

TUserInfo* TUserRows::UserOf(std::int64_t rowID) const {
  return FItems[static_cast<std::size_t>(rowID)].User;
}

}  // namespace zanrole
