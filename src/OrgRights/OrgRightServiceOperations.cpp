#include "OrgRights/OrgRightServiceOperations.h"

#include "Frame/ServiceOperations.h"
#include "OrgRights/U_OrgRigthFuncs.h"

namespace zanrole {

void AppendOrgRightServiceOperations(std::vector<TServiceOperation>& operations) {
  const TServiceAppender add(operations, "TOrgRightFuncs");
  add("OrgUserOID", &TOrgRightFuncs::OrgUserOID);
  add("OrgDeptMembers", &TOrgRightFuncs::OrgDeptMembers, {"user", "column", "quoted"});
  add("OrgDeptMemberIDs", &TOrgRightFuncs::OrgDeptMemberIDs, {"user"});
  add("OrgDeptMemberCodes", &TOrgRightFuncs::OrgDeptMemberCodes, {"user"});
  add("OrgDeptMemberNames", &TOrgRightFuncs::OrgDeptMemberNames, {"user"});
  add("OrgPositionMembers", &TOrgRightFuncs::OrgPositionMembers, {"user", "column", "quoted"});
  add("OrgPositionMemberIDs", &TOrgRightFuncs::OrgPositionMemberIDs, {"user"});
  add("OrgPositionMemberCodes", &TOrgRightFuncs::OrgPositionMemberCodes, {"user"});
  add("OrgPositionMemberNames", &TOrgRightFuncs::OrgPositionMemberNames, {"user"});
  add("OrgUserIsDeptMember", &TOrgRightFuncs::OrgUserIsDeptMember, {"user", "department"});
  add("OrgUserIsPositionMember", &TOrgRightFuncs::OrgUserIsPositionMember, {"user", "position"});
  add("OrgUserIsUnderDept", &TOrgRightFuncs::OrgUserIsUnderDept, {"user", "department"});
  add("OrgUserIsUnderling", &TOrgRightFuncs::OrgUserIsUnderling, {"user", "superior"});
  add("OrgUserIsSuperior", &TOrgRightFuncs::OrgUserIsSuperior, {"user", "underling"});
  add("OrgGetCompanySQL", &TOrgRightFuncs::OrgGetCompanySQL, {"user", "column"});
  add("OrgGetCompanyManagerSQL", &TOrgRightFuncs::OrgGetCompanyManagerSQL, {"user", "column"});
  add("OrgCompanyID", &TOrgRightFuncs::OrgCompanyID, {"user"});
  add("OrgCompanyName", &TOrgRightFuncs::OrgCompanyName, {"user"});
  add("OrgCompanyIDs", &TOrgRightFuncs::OrgCompanyIDs, {"user"});
  add("OrgCompanyNames", &TOrgRightFuncs::OrgCompanyNames, {"user"});
  add("OrgCompanyManagerID", &TOrgRightFuncs::OrgCompanyManagerID, {"user"});
  add("OrgCompanyManagerCode", &TOrgRightFuncs::OrgCompanyManagerCode, {"user"});
  add("OrgCompanyManagerName", &TOrgRightFuncs::OrgCompanyManagerName, {"user"});
  add("OrgCompanyManagerIDs", &TOrgRightFuncs::OrgCompanyManagerIDs, {"user"});
  add("OrgCompanyManagerCodes", &TOrgRightFuncs::OrgCompanyManagerCodes, {"user"});
  add("OrgCompanyManagerNames", &TOrgRightFuncs::OrgCompanyManagerNames, {"user"});
  add("OrgSuperiorID", &TOrgRightFuncs::OrgSuperiorID, {"user"});
  add("OrgSuperiorIDs", &TOrgRightFuncs::OrgSuperiorIDs, {"user"});
  add("OrgSuperiorCode", &TOrgRightFuncs::OrgSuperiorCode, {"user"});
  add("OrgSuperiorCodes", &TOrgRightFuncs::OrgSuperiorCodes, {"user"});
  add("OrgSuperiorName", &TOrgRightFuncs::OrgSuperiorName, {"user"});
  add("OrgSuperiorNames", &TOrgRightFuncs::OrgSuperiorNames, {"user"});
  add("OrgDeptID", &TOrgRightFuncs::OrgDeptID, {"user"});
  add("OrgDeptIDs", &TOrgRightFuncs::OrgDeptIDs, {"user"});
  add("OrgDeptName", &TOrgRightFuncs::OrgDeptName, {"user"});
  add("OrgDeptNames", &TOrgRightFuncs::OrgDeptNames, {"user"});
  add("OrgPositionID", &TOrgRightFuncs::OrgPositionID, {"user"});
  add("OrgPositionIDs", &TOrgRightFuncs::OrgPositionIDs, {"user"});
  add("OrgPositionName", &TOrgRightFuncs::OrgPositionName, {"user"});
  add("OrgPositionNames", &TOrgRightFuncs::OrgPositionNames, {"user"});
  add("OrgPositionFullName", &TOrgRightFuncs::OrgPositionFullName, {"user"});
  add("OrgPositionFullNames", &TOrgRightFuncs::OrgPositionFullNames, {"user"});
}

}  // namespace zanrole
