#include "Domain/DomainServiceOperations.h"

#include "Domain/U_DomainFuncsImp.h"
#include "Frame/ServiceOperations.h"

namespace zanrole {

void AppendDomainServiceOperations(std::vector<TServiceOperation>& operations) {
  const TServiceAppender add(operations, "TDomainFuncImpl");
  add("GetAuthDomainIDs", &TDomainFuncImpl::GetAuthDomainIDs);
  add("GetAuthDomainIDss", &TDomainFuncImpl::GetAuthDomainIDss);
  add("GetAuthDomainCodes", &TDomainFuncImpl::GetAuthDomainCodes);
  add("GetAuthDomainCodess", &TDomainFuncImpl::GetAuthDomainCodess);
  add("GetOwnDomainIDs", &TDomainFuncImpl::GetOwnDomainIDs);
  add("GetOwnDomainIDss", &TDomainFuncImpl::GetOwnDomainIDss);
  add("GetOwnDomainCodes", &TDomainFuncImpl::GetOwnDomainCodes);
  add("GetOwnDomainCodess", &TDomainFuncImpl::GetOwnDomainCodess);
  add("GetCreatedDomainIDs", &TDomainFuncImpl::GetCreatedDomainIDs);
  add("GetCreatedDomainCodes", &TDomainFuncImpl::GetCreatedDomainCodes);
  add("GetAuthDomainOIDs", &TDomainFuncImpl::GetAuthDomainOIDs);
  add("GetAuthDomainOIDss", &TDomainFuncImpl::GetAuthDomainOIDss);
  add("GetAuthDomainUserIDs", &TDomainFuncImpl::GetAuthDomainUserIDs);
  add("GetAuthDomainUserIDss", &TDomainFuncImpl::GetAuthDomainUserIDss);
  add("GetOwnDomainOIDs", &TDomainFuncImpl::GetOwnDomainOIDs);
  add("GetOwnDomainOIDss", &TDomainFuncImpl::GetOwnDomainOIDss);
  add("GetOwnDomainUserIDs", &TDomainFuncImpl::GetOwnDomainUserIDs);
  add("GetOwnDomainUserIDss", &TDomainFuncImpl::GetOwnDomainUserIDss);
  add("GetCurDomainOIDs", &TDomainFuncImpl::GetCurDomainOIDs);
  add("GetCurDomainOIDss", &TDomainFuncImpl::GetCurDomainOIDss);
  add("GetCurDomainUserIDs", &TDomainFuncImpl::GetCurDomainUserIDs);
  add("GetCurDomainUserIDss", &TDomainFuncImpl::GetCurDomainUserIDss);
  add("GetAuthDomainRoleOIDs", &TDomainFuncImpl::GetAuthDomainRoleOIDs);
  add("GetAuthDomainRoleOIDss", &TDomainFuncImpl::GetAuthDomainRoleOIDss);
  add("GetAuthDomainRolesEx", &TDomainFuncImpl::GetAuthDomainRolesEx);
  add("GetCurDomainID", &TDomainFuncImpl::GetCurDomainID);
  add("GetCurDomainCode", &TDomainFuncImpl::GetCurDomainCode);
  add("GetCurDomainNodeCode", &TDomainFuncImpl::GetCurDomainNodeCode);
  add("GetCurDomainName", &TDomainFuncImpl::GetCurDomainName);
  add("GetCurDomainFullName", &TDomainFuncImpl::GetCurDomainFullName);
  add("SetCurrentDomainID", &TDomainFuncImpl::SetCurrentDomainID, {"id"});
  add("CheckDomainAuthById", &TDomainFuncImpl::CheckDomainAuthById, {"id"});
  add("CheckDomainAuthByCode", &TDomainFuncImpl::CheckDomainAuthByCode, {"code"});
  add("CheckDomainAuthByNodeCode", &TDomainFuncImpl::CheckDomainAuthByNodeCode, {"nodeCode"});
  add("CheckDomainAuthByName", &TDomainFuncImpl::CheckDomainAuthByName, {"name"});
  add("GetDomains", &TDomainFuncImpl::GetDomains, {"field", "scope", "includeLower"});
  add("GetDomainUsers", &TDomainFuncImpl::GetDomainUsers, {"field", "scope", "includeLower"});
  add("GetDomainRoles", &TDomainFuncImpl::GetDomainRoles, {"field", "scope", "includeLower"});
  add("GetDomainManagers", &TDomainFuncImpl::GetDomainManagers, {"field", "scope", "includeLower"});
  add("GetDomainInfo", &TDomainFuncImpl::GetDomainInfo, {"field", "where"});
  add("GetCurUserType", &TDomainFuncImpl::GetCurUserType);
}

}  // namespace zanrole
