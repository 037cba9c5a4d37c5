#include "Domain/U_DomainFuncsImp.h"
#include "Domain/U_DomainFuncsImpQuery.h"
#include "Frame/Commlib.h"
#include "Frame/Session.h"

namespace zanrole {

namespace {

/// Nobody was examined yet. The builder has this `OID` too; he is answered without a statement anyway.
constexpr int kNobody = -1;

struct TOperatorCheck {
  int OID = kNobody;
  bool IsAdmin = false;
  bool HasEmpowermentRight = false;
};

// A manager's range counts here, unlike in GetCurUserType.
constexpr const char* kManagedDomains =
    "select DomainID from STDomainMembers where MemberType = 2 and UserOID = %d";
constexpr const char* kEmpowermentRight = "select EmpowermentRight from STUsers where OID = %d";
constexpr const char* kOwnManagerRow =
    "select 2 C from STDomainMembers where MemberType=2 and IsOwned=1 and UserOID=%d";

bool HasEmpowermentRow(int oid) {
  const auto query = TDbProviderFactory::GetQuery();
  OpenStatement(*query, Format(kEmpowermentRight, {oid}));
  return !query->Eof() && query->Fields(0).AsInteger() == 1;
}

/// The flags of the operator, examined once for a login: a manager row that comes or goes later changes
/// nothing.
const TOperatorCheck& CheckedOperator() {
  auto& cache = TSession::Current().Slot<TOperatorCheck>();
  const int oid = SystemInfo().LoginUserOID;
  if (oid == cache.OID && oid != kNobody) return cache;

  TOperatorCheck check{oid};
  check.IsAdmin = isBuilder() || SystemInfo().IsSuperUser;
  if (!check.IsAdmin) check.IsAdmin = QueryExists(Format(kManagedDomains, {oid}));
  if (!check.IsAdmin) check.HasEmpowermentRight = HasEmpowermentRow(oid);
  return cache = check;
}

}  // namespace

bool CheckOperatorIsAdmin() { return CheckedOperator().IsAdmin; }

bool CheckOperatorHasEmpowermentRight() { return CheckedOperator().HasEmpowermentRight; }

int TDomainFuncImpl::GetCurUserType() {
  if (SystemInfo().IsSuperUser) return 1;
  return QueryExists(Format(kOwnManagerRow, {SystemInfo().LoginUserOID})) ? 2 : 0;
}

}  // namespace zanrole
