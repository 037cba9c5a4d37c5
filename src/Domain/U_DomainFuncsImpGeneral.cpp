#include "Domain/U_DomainFuncsImp.h"
#include "Domain/U_DomainFuncsImpQuery.h"
#include "Frame/Commlib.h"

namespace zanrole {

namespace {

// Each statement takes the field and the domains. The field may be any expression, so the order of the
// clauses is part of what callers rely on.
// clang-format off
constexpr const char* kDomains = " select distinct %s from STDomains where ID in (%s) order by 1";
constexpr const char* kDomainsAndLower =
    " select distinct b.%s from STDomainInherits a inner join STDomains b on a.DescendantID = b.ID "
    "where a.AncestorID in (%s) order by 1";

constexpr const char* kUsers =
    " select %s from STUsers where UnUsed <> 1 and uGroup = 0 and IsAdministrator = 0 and OID in "
    "( select UserOID from STDomainMembers where MemberType = 0 and DomainID in (%s) ) order by 1";
constexpr const char* kRoles =
    " select %s from STUsers where UnUsed <> 1 and uGroup = 1 and IsAdministrator = 0 and OID in "
    "( select UserOID from STDomainMembers where MemberType = 1 and DomainID in (%s) ) order by 1";
// Managers by ownership alone; users also by their range.
constexpr const char* kManagers =
    " select %s from STUsers where UnUsed <> 1 and uGroup = 0 and OID in "
    "( select UserOID from STDomainMembers where MemberType = 2 and IsOwned = 1 and DomainID in (%s) ) "
    "order by 1";

constexpr const char* kLowerDomains = " select DescendantID from STDomainInherits where AncestorID in (%s) ";
// clang-format on

std::string FieldOr(const char* identity, const std::string& field) {
  return Trim(field).empty() ? identity : field;
}

std::string AccountList(const char* statement, const std::string& field, const std::string& scope,
                        bool includeLower) {
  std::string domains = ResolveDomainScope(scope);
  if (includeLower) domains = Format(kLowerDomains, {domains});
  return QueryList(Format(statement, {FieldOr("OID", field), domains}));
}

/// The value of `ask`. Whatever fails in it is most likely a field or scope of the caller, who is told so.
template <typename TAsk>
std::string Guarded(const char* message, const TAsk& ask) {
  try {
    return ask();
  } catch (const EZanError&) {
    throw EZanError(ResString(message));
  }
}

}  // namespace

std::string TDomainFuncImpl::GetDomains(const std::string& field, const std::string& scope,
                                        bool includeLower) {
  return Guarded("GetDomains执行失败，请检查参数传递是否正确!", [&] {
    const std::string domains = ResolveDomainScope(scope);
    return QueryList(Format(includeLower ? kDomainsAndLower : kDomains, {FieldOr("ID", field), domains}));
  });
}

std::string TDomainFuncImpl::GetDomainUsers(const std::string& field, const std::string& scope,
                                            bool includeLower) {
  return Guarded("GetDomainUsers执行失败，请检查参数传递是否正确!",
                 [&] { return AccountList(kUsers, field, scope, includeLower); });
}

std::string TDomainFuncImpl::GetDomainRoles(const std::string& field, const std::string& scope,
                                            bool includeLower) {
  return Guarded("GetDomainRoles执行失败，请检查参数传递是否正确!",
                 [&] { return AccountList(kRoles, field, scope, includeLower); });
}

std::string TDomainFuncImpl::GetDomainManagers(const std::string& field, const std::string& scope,
                                               bool includeLower) {
  return Guarded("GetDomainManagers执行失败，请检查参数传递是否正确!",
                 [&] { return AccountList(kManagers, field, scope, includeLower); });
}

std::string TDomainFuncImpl::GetDomainInfo(const std::string& field, const std::string& where) {
  const std::string condition = Trim(where).empty() ? "1=1" : where;
  return QueryValue(Format("select %s from STDomains where %s", {FieldOr("ID", field), condition}));
}

}  // namespace zanrole
