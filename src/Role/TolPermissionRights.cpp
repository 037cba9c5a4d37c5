#include "Frame/Commlib.h"
#include "Frame/Dialects.h"
#include "Frame/Session.h"
#include "Role/HolderRoles.h"
#include "Role/TolPermission.h"

// The holder of TTolPermission and his rights.

namespace zanrole {

namespace {

constexpr std::string_view kAllowed = WordOf(TSetRight::Allowed);

// clang-format off
constexpr const char* kOwnRights = "Select * From STPermission Where UserID = %d";

// The smallest value of a pair decides between roles: one that denies beats any number that allow.
constexpr const char* kRightsOfRoles =
    "Select ObjectID, Oprate, min(Permission) Permission From STPermission"
    " where userid in (select GroupID from STUserGroup where UserID = %d)"
    " group by ObjectID, Oprate";

constexpr const char* kMenuRight =
    "Select * From STPermission Where (UserID In %s) And (Oprate = '执行')And objectID=%d";

// A right that is allowed takes the default of the column `Permission`. One that is taken away is deleted from
// the table `Permission`, not STPermission: rows of the latter stay.
constexpr const char* kAllowRight = "Insert Into STPermission (UserID, ObjectID, Oprate) Values (%d, %d, %s)";
constexpr const char* kTakeRight  = "Delete From Permission Where UserID = %d And ObjectID = %d And Oprate = %s";

constexpr const char* kFindRight =
    "select 888 from stpermission where UserID=:UserID and ObjectID=:ObjectID and Oprate=:Oprate";
constexpr const char* kInsertRight =
    "insert into stpermission (UserID,ObjectID,Oprate,permission) values(:UserID,:ObjectID,:Oprate,:permission)";
constexpr const char* kUpdateRight =
    "update stpermission set permission=:permission where UserID=:UserID and ObjectID=:ObjectID and Oprate=:Oprate";
constexpr const char* kDeleteRight =
    "delete from stpermission where UserID=:UserID and ObjectID=:ObjectID and Oprate=:Oprate";
// clang-format on

/// `add` takes each right of the result.
void ReadRights(TZANQuery& query, std::string_view statement, TEffectiveRights& rights,
                void (TEffectiveRights::*add)(int objectID, std::string_view oprate, bool allowed)) {
  OpenStatement(query, std::string(statement));
  if (!query.Eof()) {
    rights.Reserve(static_cast<std::size_t>(query.DataSet().RowCount()));
    TField& objectID = query.FieldByName("ObjectID");
    TField& oprate = query.FieldByName("Oprate");
    TField& permission = query.FieldByName("Permission");
    for (; !query.Eof(); query.Next())
      (rights.*add)(objectID.AsInteger(), oprate.AsString(), permission.AsInteger() != 0);
  }
  query.Close();
}

}  // namespace

void TTolPermission::SetUserID(int userID) {
  if (userID == FUserID) return;
  Clear();
  PermissionList.clear();
  FUserID = userID;
  FSetUserStr = false;
  try {
    SetUserStr();
    LoadAllPermissions();
  } catch (const EZanError&) {
    // Who could not be read whole is no holder: the next call reads him again.
    Clear();
    FUserID = 0;
    throw;
  }
}

void TTolPermission::SetUserStr() {
  if (FSetUserStr) return;
  const THolderRoles holder = ReadHolderRoles(*FPerQuery, FUserID);
  FUserStr = holder.UserStr;
  for (const THolderRole& role : holder.Roles) {
    FGroupList.push_back(StrToInt(role.GroupID));
    FGroupNames.Add(role.GroupName);
  }
  FSetUserStr = true;
}

void TTolPermission::LoadAllPermissions() {
  FRights.Clear();
  ReadRights(*FPerQuery, Format(kOwnRights, {FUserID}), FRights, &TEffectiveRights::AddOwn);
  ReadRights(*FPerQuery, Format(kRightsOfRoles, {FUserID}), FRights, &TEffectiveRights::AddOfRoles);
}

int TTolPermission::GetGroupCount() {
  SetUserStr();
  return static_cast<int>(FGroupList.size());
}

int TTolPermission::GetGroupIDs(int index) {
  SetUserStr();
  return FGroupList[static_cast<std::size_t>(index)];
}

void TTolPermission::Clear() {
  FHash.Clear();
  FGroupList.clear();
  FRights.Clear();
}

std::string TTolPermission::GetPermission(int objectID, std::string_view oprate) const {
  return std::string(FSystemInfo->IsSuperUser ? kAllowed : WordOf(FRights.Find(objectID, oprate)));
}

std::string TTolPermission::GetUserSelfPermission(int objectID, std::string_view oprate) const {
  return std::string(FSystemInfo->IsSuperUser ? kAllowed : WordOf(FRights.FindOwn(objectID, oprate)));
}

std::string TTolPermission::GetGroupsPermission(int objectID, std::string_view oprate) const {
  return std::string(WordOf(FRights.FindOfRoles(objectID, oprate)));
}

void TTolPermission::SetPermission(int objectID, std::string_view oprate, bool allow) {
  if (FUserID == 0)
    throw EAssertionFailed(TZanResEx::resByExFunc("尚未设置登陆用户!") + " (src/Role/TolPermission)");
  if (TRightDef* changed = FHash.FindData(objectID, oprate)) {
    if (changed->Right == allow) return;
    changed->Right = allow;
  } else {
    FHash.Add({objectID, std::string(oprate), allow, {}});
  }
  try {
    ExecStatement(*FPerQuery,
                  Format(allow ? kAllowRight : kTakeRight, {FUserID, objectID, QuotedStr(oprate)}));
  } catch (const EDatabaseError&) {
    // The right may be there already, or the table `Permission` may not be there at all.
  }
  FPerQuery->Close();
}

void TTolPermission::PrepareForRight(std::string_view statement, const TObjOpraRight& right) {
  FPerQuery->Close();
  FPerQuery->SQL().SetText(std::string(statement));
  FPerQuery->ParamByName("UserID").AsInteger(FUserID);
  FPerQuery->ParamByName("ObjectID").AsInteger(right.objectID);
  FPerQuery->ParamByName("Oprate").AsString(right.oprate);
  if (TParam* permission = FPerQuery->Params().Find("permission")) permission->AsInteger(right.permission);
}

bool TTolPermission::HasRow(const TObjOpraRight& right) {
  PrepareForRight(kFindRight, right);
  FPerQuery->Open();
  const bool hasRow = !FPerQuery->DataSet().IsEmpty();
  FPerQuery->Close();
  return hasRow;
}

void TTolPermission::saveObjPer(const TObjOpraRight& right) {
  PrepareForRight(HasRow(right) ? kUpdateRight : kInsertRight, right);
  FPerQuery->ExecSQL();
}

void TTolPermission::DeleteObjPer(const TObjOpraRight& right) {
  PrepareForRight(kDeleteRight, right);
  FPerQuery->ExecSQL();
}

bool TTolPermission::LoadPermissionList(int objectID) {
  auto known = PermissionList.find(objectID);
  if (known == PermissionList.end()) known = PermissionList.emplace(objectID, ReadMenuRight(objectID)).first;
  return known->second.permission == 1;
}

TObjOpraRight TTolPermission::ReadMenuRight(int objectID) {
  TObjOpraRight right{objectID, "执行", 0};
  OpenStatement(*FPerQuery, Format(kMenuRight, {FUserStr, objectID}));
  right.permission = FPerQuery->Eof() ? 0 : 1;
  for (; !FPerQuery->Eof(); FPerQuery->Next())
    if (FPerQuery->FieldByName("Permission").AsInteger() == 0) right.permission = 0;
  FPerQuery->Close();
  return right;
}

}  // namespace zanrole
