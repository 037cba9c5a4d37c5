#include "Domain/U_DomainFuncsImp.h"
#include "Frame/Package.h"
#include "Role/RunPermission.h"
#include "Role/UserPassword.h"

namespace zanrole {

namespace {

bool GetMenuPermission(int objectID) { return TRunPermission::GetInstance().GetMenuPermission(objectID); }

void SetCurrentDomainID(int domainID) { TDomainFuncImpl::SetCurrentDomainID(domainID); }

void StorePassword(int oid, const std::string& login, const std::string& password) {
  SavePassword(oid, login, password);
}

constexpr TZanroleEntries kEntries{&GetMenuPermission, &SetCurrentDomainID, &StorePassword};

}  // namespace

const TZanroleEntries* ZanroleEntries() { return &kEntries; }

}  // namespace zanrole
