#include "Domain/DomainAdminStatements.h"

#include "Frame/Dialects.h"

namespace zanrole {

// clang-format off

namespace {

constexpr const char* kManagers = R"(
select b.OID, b.UserID, b.UserName, b.UserDesc, b.UnUsed
 , b.Creator, IsNull(b.CreatorName, c.UserName) CreatorName, b.CreateTime
 , b.ModifierName, b.ModifyTime
 from STDomainMembers a
 inner join STUsers b on a.UserOID = b.OID
 left outer join STUsers c on b.Creator = c.OID
 where a.MemberType = 2 and a.IsOwned = 1 and a.DomainID = )";

constexpr const char* kDomainsOfManagers = R"(
select distinct a.UserOID, c.FullName, b.IsOwned
 from STDomainMembers a
 inner join STDomainMembers b on a.UserOID = b.UserOID
 inner join STDomains c on b.DomainID = c.ID
 where a.MemberType = 2 and a.DomainID = )";

constexpr const char* kAdministrators = R"(
select a.OID, a.UserID, a.UserName, a.UserDesc, a.UnUsed
 , a.Creator, IsNull(a.CreatorName,c.UserName) CreatorName, a.CreateTime
 , a.ModifierName, a.ModifyTime
 from STUsers a
 left outer join STUsers c on a.Creator = c.OID
 where a.uGroup = 0 and a.IsAdministrator = 1
 order by 3)";

}  // namespace

// clang-format on

std::string SelectManagers(int domainID) {
  return NullFuncRewrite(kManagers + std::to_string(domainID) + " order by 3");
}

std::string SelectDomainsOfManagers(int domainID) {
  return kDomainsOfManagers + std::to_string(domainID) + " order by 1, 2";
}

std::string SelectAdministrators() { return NullFuncRewrite(kAdministrators); }

}  // namespace zanrole
