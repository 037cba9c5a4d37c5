#include "Role/RoleServiceOperations.h"

#include "Frame/ServiceOperations.h"
#include "Role/RunPermission.h"

namespace zanrole {

template <>
struct TServiceObject<TRunPermission> {
  static TRunPermission& Get() { return TRunPermission::GetInstance(); }
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

}  // namespace

void AppendRoleServiceOperations(std::vector<TServiceOperation>& operations) {
  AppendRunPermission(operations);
}

}  // namespace zanrole
