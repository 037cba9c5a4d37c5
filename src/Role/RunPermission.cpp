#include "Role/RunPermission.h"

#include <algorithm>

#include "Frame/Commlib.h"
#include "Frame/Dialects.h"
#include "Frame/Session.h"
#include "Role/HolderRoles.h"
#include "Role/ZanObjType.h"

namespace zanrole {

namespace {

// A menu is allowed by a row of the user or of any of his roles, unless one row among them denies it.
// Both places take the list of identities.
// clang-format off
constexpr const char* kAllowedMenus =
    "Select Objectid from StPermission Where (oprate='执行')and(userid in %s)"
    "  and (objectid not in "
    "(select objectid from StPermission "
    " where (oprate='执行')and(permission=0)and(userid in %s))"
    ")";

constexpr const char* kObjectByName = "select * from ObjectRegister where Object=%s And TypeID=%d";

constexpr const char* kRowsOfObject = "Select * From STPermission Where UserID In %s And ObjectID = %d";
// clang-format on

}  // namespace

TRunPermission& TRunPermission::GetInstance() { return TSession::Current().Slot<TRunPermission>(); }

TRunPermission::TRunPermission()
    : FUserID(SystemInfo().LoginUserOID),
      FQuery(TDbProviderFactory::GetQuery()),
      FSysQuery(TDbProviderFactory::GetSysQuery()) {
  SetUserStr();
  LoadPermissionList();
}

void TRunPermission::SetUserStr() {
  const THolderRoles holder = ReadHolderRoles(*FQuery, FUserID);
  FUserStr = holder.UserStr;
  FGroupids.Clear();
  FGroupNames.Clear();
  for (const THolderRole& role : holder.Roles) {
    FGroupids.Add(role.GroupID);
    FGroupNames.Add(role.GroupName);
  }
}

void TRunPermission::LoadPermissionList() {
  ClearPermissionList();
  OpenStatement(*FQuery, Format(kAllowedMenus, {FUserStr, FUserStr}));
  for (; !FQuery->Eof(); FQuery->Next()) PermissionList.push_back(FQuery->Fields(0).AsInteger());
  FQuery->Close();
  std::sort(PermissionList.begin(), PermissionList.end());
}

bool TRunPermission::FindPermissionInList(int objectID) const {
  return std::binary_search(PermissionList.begin(), PermissionList.end(), objectID);
}

bool TRunPermission::GetMenuPermission(int objectID) const {
  return SystemInfo().IsSuperUser || FindPermissionInList(objectID);
}

int TRunPermission::GetObjID(std::string_view typeName, std::string_view objectName) {
  const TZanObjType* type = TZanObjTypeManager::Instance().GetType(typeName);
  if (type == nullptr) return -1;
  OpenStatement(*FSysQuery, Format(kObjectByName, {QuotedStr(objectName), type->TypeID()}));
  const int objectID = FSysQuery->Eof() ? -1 : FSysQuery->FieldByName("ObjectID").AsInteger();
  FSysQuery->Close();
  return objectID;
}

TStringList TRunPermission::GetObjOperates(std::string_view typeName, std::string_view objectName) {
  return GetObjOperates(typeName, GetObjID(typeName, objectName));
}

TStringList TRunPermission::GetObjOperates(std::string_view typeName, int objectID) {
  const TZanObjType* type = TZanObjTypeManager::Instance().GetType(typeName);
  TStringList denied;
  OpenStatement(*FQuery, Format(kRowsOfObject, {FUserStr, objectID}));
  for (; !FQuery->Eof(); FQuery->Next()) {
    if (FQuery->FieldByName("permission").AsInteger() != 0) continue;
    if (type == nullptr)
      throw EAssertionFailed("Unknown object type '" + std::string(typeName) + "' (src/Role/RunPermission)");
    const std::string oprate = Trim(FQuery->FieldByName("Oprate").AsString());
    const bool known = type->Oprates().IndexOf(oprate) != TStringList::NotFound;
    if (known && denied.IndexOf(oprate) == TStringList::NotFound) denied.Add(oprate);
  }
  FQuery->Close();
  return denied;
}

}  // namespace zanrole
