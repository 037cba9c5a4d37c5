#include "Role/RoleServiceOperations.h"

#include "Frame/ServiceOperations.h"
#include "Role/RunPermission.h"
#include "Role/TolPermission.h"

namespace zanrole {

namespace {

/// The service as it was found at the first question: GetInstance would turn it back to the login at each.
struct TAskedTolPermission {
  TTolPermission& Service = TTolPermission::GetInstance();
};

}  // namespace

template <>
struct TServiceObject<TRunPermission> {
  static TRunPermission& Get() { return TRunPermission::GetInstance(); }
};

template <>
struct TServiceObject<TTolPermission> {
  static TTolPermission& Get() { return TSession::Current().Slot<TAskedTolPermission>().Service; }
};

namespace {

using TOperationsByName = TStringList (TRunPermission::*)(std::string_view, std::string_view);
using TOperationsByIdentity = TStringList (TRunPermission::*)(std::string_view, int);

void AppendRunPermission(std::vector<TServiceOperation>& operations) {
  const TServiceAppender add(operations, "TRunPermission");
  add("SetUserStr", &TRunPermission::SetUserStr);
  add("LoadPermissionList", &TRunPermission::LoadPermissionList);
  add("ClearPermissionList", &TRunPermission::ClearPermissionList);
  add("FindPermissionInList", &TRunPermission::FindPermissionInList, {"ObjectID"});
  add("GetMenuPermission", &TRunPermission::GetMenuPermission, {"ObjectID"});
  add("GetObjID", &TRunPermission::GetObjID, {"typeName", "objectName"});
  add("GetObjOperates", static_cast<TOperationsByIdentity>(&TRunPermission::GetObjOperates),
      {"typeName", "ObjectID"});
  add("GetObjOperates", static_cast<TOperationsByName>(&TRunPermission::GetObjOperates),
      {"typeName", "objectName"});
  add("GetGroupids", &TRunPermission::GetGroupids);
  add("GetGroups", &TRunPermission::GetGroups);
}

TTolPermission& Rights() { return TServiceObject<TTolPermission>::Get(); }

// Records as lists of texts, for who asks with texts. What is unknown is an empty list.

TStringList ListOf(const TSubDef& object) {
  TStringList list;
  list.SetValue("ID", std::to_string(object.ID));
  list.SetValue("SID", std::to_string(object.SID));
  list.SetValue("Name", object.Name);
  return list;
}

TStringList FindType(int typeID) {
  TStringList list;
  if (const std::optional<TTypeDef> type = Rights().FindType(typeID)) {
    list.SetValue("TypeID", std::to_string(type->TypeID));
    list.SetValue("TypeName", type->TypeName);
  }
  return list;
}

TStringList GetObjectsInfo(int typeID) {
  TStringList names;
  if (std::optional<TTypeDef> type = Rights().FindType(typeID)) {
    Rights().GetObjectsInfo(*type);
    for (const TSubDef& object : type->Objects) names.Add(object.Name);
  }
  return names;
}

TStringList GetObjectByIndex(int index, int typeID) {
  const std::optional<TSubDef> object = Rights().GetObjectByIndex(index, typeID);
  return object ? ListOf(*object) : TStringList();
}

TStringList GetOpratesByTypeName(std::string_view typeName) {
  const TStringList* const oprates = Rights().GetOpratesByTypeName(typeName);
  return oprates != nullptr ? *oprates : TStringList();
}

int GetGroupIDs(int index) {
  const int count = Rights().GetGroupCount();
  if (index < 0 || index >= count)
    throw EZanError("The holder has " + std::to_string(count) + " roles: there is none at this place.");
  return Rights().GetGroupIDs(index);
}

void saveObjPer(int objectID, std::string_view oprate, int permission) {
  Rights().saveObjPer({objectID, std::string(oprate), permission});
}

void DeleteObjPer(int objectID, std::string_view oprate) {
  Rights().DeleteObjPer({objectID, std::string(oprate)});
}

void AppendRegistry(const TServiceAppender& add) {
  add("AddObject", &TTolPermission::AddObject, {"typeID", "name", "owner"});
  add("DeleteObject", static_cast<void (TTolPermission::*)(int)>(&TTolPermission::DeleteObject),
      {"ObjectID"});
  add("DeleteObject",
      static_cast<void (TTolPermission::*)(int, std::string_view)>(&TTolPermission::DeleteObject),
      {"typeID", "name"});
  add("GetObjectIDByName", &TTolPermission::GetObjectIDByName, {"name", "typeID"});
  add("GetObjectsInfo", &GetObjectsInfo, {"typeID"});
  add("GetObjectByIndex", &GetObjectByIndex, {"index", "typeID"});
  add("FindType", &FindType, {"typeID"});
  add("GetOprateCount", &TTolPermission::GetOprateCount, {"typeID"});
  add("GetOprateName", &TTolPermission::GetOprateName, {"index", "typeID"});
  add("GetOpratesByTypeName", &GetOpratesByTypeName, {"typeName"});
  add("GetTypeIDByName", &TTolPermission::GetTypeIDByName, {"typeName"});
}

void AppendHolder(const TServiceAppender& add) {
  add("SetUserID", &TTolPermission::SetUserID, {"userID"});
  add("LoadAllPermissions", &TTolPermission::LoadAllPermissions);
  add("GetGroupCount", &TTolPermission::GetGroupCount);
  add("GetGroupIDs", &GetGroupIDs, {"index"});
  add("GetGroups", &TTolPermission::GetGroups);
  add("Clear", &TTolPermission::Clear);
  add("GetPermission", &TTolPermission::GetPermission, {"ObjectID", "oprate"});
  add("GetUserSelfPermission", &TTolPermission::GetUserSelfPermission, {"ObjectID", "oprate"});
  add("GetGroupsPermission", &TTolPermission::GetGroupsPermission, {"ObjectID", "oprate"});
  add("SetPermission", &TTolPermission::SetPermission, {"ObjectID", "oprate", "allow"});
  add("saveObjPer", &saveObjPer, {"ObjectID", "oprate", "permission"});
  add("DeleteObjPer", &DeleteObjPer, {"ObjectID", "oprate"});
  add("LoadPermissionList", &TTolPermission::LoadPermissionList, {"ObjectID"});
}

}  // namespace

void AppendRoleServiceOperations(std::vector<TServiceOperation>& operations) {
  AppendRunPermission(operations);
  const TServiceAppender addTolPermission(operations, "TTolPermission");
  AppendRegistry(addTolPermission);
  AppendHolder(addTolPermission);
}

}  // namespace zanrole
