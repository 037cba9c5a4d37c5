#include "Role/RightHolders.h"

#include <algorithm>
#include <cstdint>
#include <map>

#include "Role/RightRows.h"
#include "Role/UserInfo.h"

namespace zanrole {

namespace {

// clang-format off
// `Place` counts the users behind the page before: no dialect says "the first rows" as another one does.
constexpr const char* kUsersOfPage =
    "Select OID, UserID, UserName, UnUsed, IsAdministrator From"
    " (Select OID, UserID, UserName, UnUsed, IsAdministrator, Row_Number() over (order by OID) as Place"
    " From STUsers Where uGroup = 0 And OID > :AfterOID And (IsAdministrator = 1"
    " Or OID in (Select UserID From STPermission Where ObjectID = :ObjectID And Oprate = :Oprate)"
    " Or OID in (Select g.UserID From STUserGroup g, STPermission p"
    " Where p.UserID = g.GroupID And p.ObjectID = :ObjectID And p.Oprate = :Oprate))) u"
    " Where Place <= :LastPlace order by OID";

// In the order of the rows, as the first of several counts.
constexpr const char* kOwnRowsOfPage =
    "Select UserID, Permission From STPermission Where ObjectID = :ObjectID And Oprate = :Oprate"
    " And UserID > :AfterOID And UserID <= :LastOID";

// A membership counts also when the role's row in STUsers is gone.
constexpr const char* kRowsOfAllRoles =
    "Select p.UserID, p.Permission, r.UserName From STPermission p left join STUsers r on r.OID = p.UserID"
    " Where p.ObjectID = :ObjectID And p.Oprate = :Oprate"
    " And (r.uGroup = 1 Or p.UserID in (Select GroupID From STUserGroup))"
    " order by p.UserID";

constexpr const char* kMembershipsOfPage =
    "Select UserID, GroupID From STUserGroup Where UserID > :AfterOID And UserID <= :LastOID"
    " And GroupID in (Select UserID From STPermission Where ObjectID = :ObjectID And Oprate = :Oprate)";
// clang-format on

constexpr int kSuperUser = 1;

/// A page of users for one pair of object and operation, read statement by statement.
class TPage {
 public:
  TPage(int objectID, std::string_view oprate, int afterOID, int limit)
      : FObjectID(objectID), FOprate(oprate), FAfterOID(afterOID), FLimit(limit) {}

  TRightHolders Read() {
    ReadUsers();
    if (!FPage.Users.empty()) ReadOwnRows();
    ReadRowsOfRoles();
    if (!FPage.Users.empty()) JudgeUsers();
    return std::move(FPage);
  }

 private:
  struct TRights {
    TSetRight Own = TSetRight::NotSet;
    TRightOfRoles OfRoles;
  };

  std::unique_ptr<TZANQuery> Query(const char* statement) const {
    return QueryOnPair(statement, FObjectID, FOprate);
  }

  /// A query for what belongs to the users of the page. REQUIRES: there are some.
  std::unique_ptr<TZANQuery> QueryOnUsers(const char* statement) const {
    auto query = Query(statement);
    query->ParamByName("AfterOID").AsInteger(FAfterOID);
    query->ParamByName("LastOID").AsInteger(FPage.Users.back().OID);
    return query;
  }

  TRightHolder* FindUser(int oid) {
    const auto isBefore = [](const TRightHolder& user, int searched) { return user.OID < searched; };
    const auto user = std::lower_bound(FPage.Users.begin(), FPage.Users.end(), oid, isBefore);
    return user != FPage.Users.end() && user->OID == oid ? &*user : nullptr;
  }

  void ReadUsers();
  void ReadOwnRows();
  void ReadRowsOfRoles();
  void JudgeUsers();

  int FObjectID;
  std::string_view FOprate;
  int FAfterOID;
  int FLimit;
  TRightHolders FPage;
  std::map<int, TRights> FRights;                         ///< by user
  std::map<int, std::vector<TPermissionValue>> FOfRoles;  ///< by role
};

void TPage::ReadUsers() {
  const auto query = Query(kUsersOfPage);
  query->ParamByName("AfterOID").AsInteger(FAfterOID);
  query->ParamByName("LastPlace").AsInteger(std::int64_t{FLimit} + 1);
  for (query->Open(); !query->Eof(); query->Next()) {
    FPage.HasMore = std::ssize(FPage.Users) == FLimit;
    if (FPage.HasMore) return;
    TRightHolder& user = FPage.Users.emplace_back();
    user.OID = query->FieldByName("OID").AsInteger();
    user.Login = query->FieldByName("UserID").AsString();
    user.Name = Trim(query->FieldByName("UserName").AsString());
    user.IsSuperUser = query->FieldByName("IsAdministrator").AsInteger() == kSuperUser;
    user.IsDisabled = query->FieldByName("UnUsed").AsInteger() == usUnUsed;
  }
}

void TPage::ReadOwnRows() {
  for (const TPermissionRow& row : ReadPermissionRows(*QueryOnUsers(kOwnRowsOfPage))) {
    const TRightHolder* const user = FindUser(row.HolderOID);
    if (user == nullptr) continue;
    TRightRow& record = FPage.Rows.emplace_back(RecordOfRow(row, /*isRole*/ false));
    record.HolderLogin = user->Login;
    record.HolderName = user->Name;
    TSetRight& own = FRights[row.HolderOID].Own;
    if (own == TSetRight::NotSet) own = RightOfValue(row.Value);
  }
  std::stable_sort(FPage.Rows.begin(), FPage.Rows.end(),
                   [](const TRightRow& a, const TRightRow& b) { return a.HolderOID < b.HolderOID; });
}

void TPage::ReadRowsOfRoles() {
  for (const TPermissionRow& row : ReadPermissionRows(*Query(kRowsOfAllRoles))) {
    FPage.Rows.push_back(RecordOfRow(row, /*isRole*/ true));
    FOfRoles[row.HolderOID].push_back(row.Value);
  }
}

void TPage::JudgeUsers() {
  const auto memberships = QueryOnUsers(kMembershipsOfPage);
  for (memberships->Open(); !memberships->Eof(); memberships->Next()) {
    TRightOfRoles& ofRoles = FRights[memberships->FieldByName("UserID").AsInteger()].OfRoles;
    for (const TPermissionValue value : FOfRoles[memberships->FieldByName("GroupID").AsInteger()])
      ofRoles.Add(value);
  }
  for (TRightHolder& user : FPage.Users) {
    const TRights& rights = FRights[user.OID];
    user.Right =
        WordOf(user.IsSuperUser ? TSetRight::Allowed : EffectiveRight(rights.Own, rights.OfRoles.Right()));
  }
}

}  // namespace

TRightHolders ReadRightHolders(int objectID, std::string_view oprate, int afterOID, int limit) {
  return TPage(objectID, oprate, afterOID, limit).Read();
}

}  // namespace zanrole
