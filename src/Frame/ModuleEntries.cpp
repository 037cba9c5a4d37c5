#include "Domain/U_DomainFuncsImp.h"
#include "Frame/Package.h"
#include "Role/RightHolders.h"
#include "Role/RightReasons.h"
#include "Role/RunPermission.h"
#include "Role/UserPassword.h"

namespace zanrole {

namespace {

bool GetMenuPermission(int objectID) { return TRunPermission::GetInstance().GetMenuPermission(objectID); }

void SetCurrentDomainID(int domainID) { TDomainFuncImpl::SetCurrentDomainID(domainID); }

void StorePassword(int oid, const std::string& login, const std::string& password) {
  SavePassword(oid, login, password);
}

TRightReason ReasonOfRight(int objectID, const std::string& oprate) { return ExplainRight(objectID, oprate); }

TRightHolders HoldersOfRight(int objectID, const std::string& oprate, int afterOID, int limit) {
  return ReadRightHolders(objectID, oprate, afterOID, limit);
}

constexpr TZanroleEntries kEntries{&GetMenuPermission, &SetCurrentDomainID, &StorePassword, &ReasonOfRight,
                                   &HoldersOfRight};

}  // namespace

const TZanroleEntries* ZanroleEntries() { return &kEntries; }

}  // namespace zanrole
