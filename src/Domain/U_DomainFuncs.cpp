#include "Domain/U_DomainFuncs.h"

#include "Domain/U_DomainFuncsAccess.h"
#include "Domain/U_DomainFuncsCurrent.h"
#include "Domain/U_DomainFuncsDomainLists.h"
#include "Domain/U_DomainFuncsGeneral.h"
#include "Domain/U_DomainFuncsUserLists.h"

namespace zanrole {

namespace {

template <typename TFunc>
TFuncClass Row(const char* className) {
  return {className, TFuncType::System,
          []() -> std::unique_ptr<TBaseFunc> { return std::make_unique<TFunc>(); }};
}

}  // namespace

void AppendDomainFuncClasses(std::vector<TFuncClass>& classes) {
  const TFuncClass rows[] = {
      Row<TSysFunc_CurDomainID>("TSysFunc_CurDomainID"),
      Row<TSysFunc_CurDomainCode>("TSysFunc_CurDomainCode"),
      Row<TSysFunc_CurDomainNodeCode>("TSysFunc_CurDomainNodeCode"),
      Row<TSysFunc_CurDomainName>("TSysFunc_CurDomainName"),
      Row<TSysFunc_CurDomainFullName>("TSysFunc_CurDomainFullName"),
      Row<TSysFunc_GetAuthDomainIDs>("TSysFunc_GetAuthDomainIDs"),
      Row<TSysFunc_GetAuthDomainIDss>("TSysFunc_GetAuthDomainIDss"),
      Row<TSysFunc_CheckDomainAuthById>("TSysFunc_CheckDomainAuthById"),
      Row<TSysFunc_CheckDomainAuthByCode>("TSysFunc_CheckDomainAuthByCode"),
      Row<TSysFunc_CheckDomainAuthByNodeCode>("TSysFunc_CheckDomainAuthByNodeCode"),
      Row<TSysFunc_CheckDomainAuthByName>("TSysFunc_CheckDomainAuthByName"),
      Row<TSysFunc_GetOwnDomainIDs>("TSysFunc_GetOwnDomainIDs"),
      Row<TSysFunc_GetOwnDomainIDss>("TSysFunc_GetOwnDomainIDss"),
      Row<TSysFunc_GetAuthDomainOIDs>("TSysFunc_GetAuthDomainOIDs"),
      Row<TSysFunc_GetAuthDomainOIDss>("TSysFunc_GetAuthDomainOIDss"),
      Row<TSysFunc_GetAuthDomainUserIDs>("TSysFunc_GetAuthDomainUserIDs"),
      Row<TSysFunc_GetAuthDomainUserIDss>("TSysFunc_GetAuthDomainUserIDss"),
      Row<TSysFunc_GetOwnDomainOIDs>("TSysFunc_GetOwnDomainOIDs"),
      Row<TSysFunc_GetOwnDomainOIDss>("TSysFunc_GetOwnDomainOIDss"),
      Row<TSysFunc_GetOwnDomainUserIDs>("TSysFunc_GetOwnDomainUserIDs"),
      Row<TSysFunc_GetOwnDomainUserIDss>("TSysFunc_GetOwnDomainUserIDss"),
      Row<TSysFunc_GetCurDomainOIDs>("TSysFunc_GetCurDomainOIDs"),
      Row<TSysFunc_GetCurDomainOIDss>("TSysFunc_GetCurDomainOIDss"),
      Row<TSysFunc_GetCurDomainUserIDs>("TSysFunc_GetCurDomainUserIDs"),
      Row<TSysFunc_GetCurDomainUserIDss>("TSysFunc_GetCurDomainUserIDss"),
      Row<TSysFunc_GetAuthDomainRoleOIDs>("TSysFunc_GetAuthDomainRoleOIDs"),
      Row<TSysFunc_GetAuthDomainRoleOIDss>("TSysFunc_GetAuthDomainRoleOIDss"),
      Row<TSysFunc_GetAuthDomainRolesEx>("TSysFunc_GetAuthDomainRolesEx"),
      Row<TSysFunc_GetCurUserType>("TSysFunc_GetCurUserType"),
      Row<TSysFunc_GetCreatedDomainIDs>("TSysFunc_GetCreatedDomainIDs"),
      Row<TSysFunc_GetCreatedDomainCodes>("TSysFunc_GetCreatedDomainCodes"),
      Row<TSysFunc_GetAuthDomainCodes>("TSysFunc_GetAuthDomainCodes"),
      Row<TSysFunc_GetAuthDomainCodess>("TSysFunc_GetAuthDomainCodess"),
      Row<TSysFunc_GetOwnDomainCodes>("TSysFunc_GetOwnDomainCodes"),
      Row<TSysFunc_GetOwnDomainCodess>("TSysFunc_GetOwnDomainCodess"),
      Row<TSysFunc_GetDomains>("TSysFunc_GetDomains"),
      Row<TSysFunc_GetDomainUsers>("TSysFunc_GetDomainUsers"),
      Row<TSysFunc_GetDomainRoles>("TSysFunc_GetDomainRoles"),
      Row<TSysFunc_GetDomainManagers>("TSysFunc_GetDomainManagers"),
      Row<TSysFunc_GetDomainInfo>("TSysFunc_GetDomainInfo"),
  };
  classes.insert(classes.end(), std::begin(rows), std::end(rows));
}

}  // namespace zanrole
