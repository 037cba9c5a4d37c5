#include <vector>

#include "Domain/DomainServiceOperations.h"
#include "Frame/Package.h"
#include "OrgRights/OrgRightServiceOperations.h"
#include "Party/PartyServiceOperations.h"
#include "Role/RoleServiceOperations.h"

namespace zanrole {

namespace {

std::vector<TServiceOperation> AllServiceOperations() {
  std::vector<TServiceOperation> operations;
  AppendRoleServiceOperations(operations);
  AppendPartyServiceOperations(operations);
  AppendOrgRightServiceOperations(operations);
  AppendDomainServiceOperations(operations);
  return operations;
}

}  // namespace

const TServiceOperation* ZanroleServiceOperations(std::size_t* count) {
  static const std::vector<TServiceOperation> operations = AllServiceOperations();
  *count = operations.size();
  return operations.data();
}

}  // namespace zanrole
