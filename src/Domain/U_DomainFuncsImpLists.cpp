#include "Domain/U_DomainFuncsImp.h"
#include "Domain/U_DomainFuncsImpQuery.h"
#include "Frame/Commlib.h"
#include "Frame/Session.h"

namespace zanrole {

// Lists of domains. Each statement takes the operator.

namespace {

// clang-format off
constexpr const char* kAuthDomainIDs =
    "select DomainID from STDomainMembers where IsOwned = 0 and UserOID = %d order by 1";

constexpr const char* kAuthDomainIDss =
    "select distinct DescendantID from STDomainInherits "
    "where AncestorID in ( select DomainID from STDomainMembers where IsOwned = 0 and UserOID = %d ) "
    "order by 1";

constexpr const char* kAuthDomainCodes =
    "select b.Code from STDomainMembers a inner join STDomains b on a.DomainID = b.ID "
    "where a.IsOwned = 0 and a.UserOID = %d and b.Code is not null "
    "order by 1";

constexpr const char* kAuthDomainCodess =
    "select distinct b.Code from STDomainInherits a inner join STDomains b on a.DescendantID = b.ID "
    "where a.AncestorID in ( select DomainID from STDomainMembers where IsOwned = 0 and UserOID = %d ) "
    "order by 1";

constexpr const char* kOwnDomainIDs =
    "select DomainID from STDomainMembers where IsOwned = 1 and MemberType <> 3 and UserOID = %d order by 1";

constexpr const char* kOwnDomainIDss =
    "select distinct DescendantID from STDomainInherits "
    "where AncestorID in "
    "( select DomainID from STDomainMembers where IsOwned = 1 and MemberType <> 3 and UserOID = %d ) "
    "order by 1";

constexpr const char* kOwnDomainCodes =
    "select b.Code from STDomainMembers a inner join STDomains b on a.DomainID = b.ID "
    "where a.IsOwned = 1 and MemberType <> 3 and a.UserOID = %d and b.Code is not null "
    "order by 1";

constexpr const char* kOwnDomainCodess =
    "select distinct b.Code from STDomainInherits a inner join STDomains b on a.DescendantID = b.ID "
    "where a.AncestorID in "
    "( select DomainID from STDomainMembers where IsOwned = 1 and MemberType <> 3 and UserOID = %d ) "
    "order by 1";

constexpr const char* kCreatedDomainIDs =
    "select DomainID from STDomainMembers where MemberType = 3 and UserOID = %d order by 1";

constexpr const char* kCreatedDomainCodes =
    "select b.Code from STDomainMembers a inner join STDomains b on a.DomainID = b.ID "
    "where a.MemberType = 3 and a.UserOID = %d and b.Code is not null "
    "order by 1";
// clang-format on

std::string DomainList(const char* statement) {
  return QueryList(Format(statement, {SystemInfo().LoginUserOID}));
}

}  // namespace

std::string TDomainFuncImpl::GetAuthDomainIDs() { return DomainList(kAuthDomainIDs); }
std::string TDomainFuncImpl::GetAuthDomainIDss() { return DomainList(kAuthDomainIDss); }
std::string TDomainFuncImpl::GetAuthDomainCodes() { return DomainList(kAuthDomainCodes); }
std::string TDomainFuncImpl::GetAuthDomainCodess() { return DomainList(kAuthDomainCodess); }
std::string TDomainFuncImpl::GetOwnDomainIDs() { return DomainList(kOwnDomainIDs); }
std::string TDomainFuncImpl::GetOwnDomainIDss() { return DomainList(kOwnDomainIDss); }
std::string TDomainFuncImpl::GetOwnDomainCodes() { return DomainList(kOwnDomainCodes); }
std::string TDomainFuncImpl::GetOwnDomainCodess() { return DomainList(kOwnDomainCodess); }
std::string TDomainFuncImpl::GetCreatedDomainIDs() { return DomainList(kCreatedDomainIDs); }
std::string TDomainFuncImpl::GetCreatedDomainCodes() { return DomainList(kCreatedDomainCodes); }

// Lists of users and roles: what is listed, over a select of the members.

namespace {

// clang-format off
constexpr const char* kUserOIDs =
    "select OID from STUsers "
    "where UnUsed <> 1 and uGroup = 0 and IsAdministrator = 0 and OID in (%s ) order by 1";
constexpr const char* kUserLogins =
    "select UserID from STUsers "
    "where UnUsed <> 1 and uGroup = 0 and IsAdministrator = 0 and OID in (%s ) order by 1";
// The second column is not read; one list asks for it all the same.
constexpr const char* kUserLoginsAndNames =
    "select UserID, UserName from STUsers "
    "where UnUsed <> 1 and uGroup = 0 and IsAdministrator = 0 and OID in (%s ) order by 1";
constexpr const char* kRoleOIDs =
    "select OID from STUsers "
    "where UnUsed <> 1 and uGroup = 1 and IsAdministrator = 0 and OID in (%s ) order by 1";

// Members by the operator's domains.
constexpr const char* kUsersOfAuth =
    "select c.UserOID from STDomainMembers a inner join STDomainMembers c on a.DomainID = c.DomainID "
    "where c.MemberType = 0 and c.IsOwned = 1 and a.IsOwned = 0 and a.UserOID = %d";
constexpr const char* kRolesOfAuth =
    "select c.UserOID from STDomainMembers a inner join STDomainMembers c on a.DomainID = c.DomainID "
    "where c.MemberType = 1 and c.IsOwned = 1 and a.IsOwned = 0 and a.UserOID = %d";

constexpr const char* kUsersOfAuthAndLower =
    "select c.UserOID from STDomainMembers a inner join STDomainInherits b on a.DomainID = b.AncestorID "
    "inner join STDomainMembers c on b.DescendantID = c.DomainID "
    "where c.MemberType = 0 and c.IsOwned = 1 and a.IsOwned = 0 and a.UserOID = %d";
constexpr const char* kRolesOfAuthAndLower =
    "select c.UserOID from STDomainMembers a inner join STDomainInherits b on a.DomainID = b.AncestorID "
    "inner join STDomainMembers c on b.DescendantID = c.DomainID "
    "where c.MemberType = 1 and c.IsOwned = 1 and a.IsOwned = 0 and a.UserOID = %d";

constexpr const char* kUsersOfOwn =
    "select b.UserOID from STDomainMembers a inner join STDomainMembers b on a.DomainID = b.DomainID "
    "where a.IsOwned = 1 and a.MemberType <> 3 and b.IsOwned = 1 and b.MemberType = 0 and a.UserOID = %d";
constexpr const char* kUsersOfOwnAndLower =
    "select c.UserOID from STDomainMembers a inner join STDomainInherits b on a.DomainID = b.AncestorID "
    "inner join STDomainMembers c on b.DescendantID = c.DomainID "
    "where a.IsOwned = 1 and a.MemberType <> 3 and a.UserOID = %d and c.IsOwned = 1 and c.MemberType = 0";

// Members by the current domain.
constexpr const char* kUsersOfCurrent =
    "select UserOID from STDomainMembers where MemberType = 0 and IsOwned = 1 and DomainID = %s";
constexpr const char* kUsersOfCurrentAndLower =
    "select a.UserOID from STDomainMembers a inner join STDomainInherits b on a.DomainID = b.DescendantID "
    "where a.MemberType = 0 and a.IsOwned = 1 and b.AncestorID = %s";
// clang-format on

std::string OperatorList(const char* list, const char* members) {
  return QueryList(Format(list, {Format(members, {SystemInfo().LoginUserOID})}));
}

std::string CurrentList(const char* list, const char* members) {
  return QueryList(Format(list, {Format(members, {CurrentDomain().Text})}));
}

}  // namespace

std::string TDomainFuncImpl::GetAuthDomainOIDs() { return OperatorList(kUserOIDs, kUsersOfAuth); }
std::string TDomainFuncImpl::GetAuthDomainOIDss() { return OperatorList(kUserOIDs, kUsersOfAuthAndLower); }
std::string TDomainFuncImpl::GetAuthDomainUserIDs() { return OperatorList(kUserLogins, kUsersOfAuth); }
std::string TDomainFuncImpl::GetAuthDomainUserIDss() {
  return OperatorList(kUserLogins, kUsersOfAuthAndLower);
}
std::string TDomainFuncImpl::GetAuthDomainRoleOIDs() { return OperatorList(kRoleOIDs, kRolesOfAuth); }
std::string TDomainFuncImpl::GetAuthDomainRoleOIDss() {
  return OperatorList(kRoleOIDs, kRolesOfAuthAndLower);
}

std::string TDomainFuncImpl::GetOwnDomainOIDs() { return OperatorList(kUserOIDs, kUsersOfOwn); }
std::string TDomainFuncImpl::GetOwnDomainOIDss() { return OperatorList(kUserOIDs, kUsersOfOwnAndLower); }
std::string TDomainFuncImpl::GetOwnDomainUserIDs() { return OperatorList(kUserLogins, kUsersOfOwn); }
std::string TDomainFuncImpl::GetOwnDomainUserIDss() {
  return OperatorList(kUserLoginsAndNames, kUsersOfOwnAndLower);
}

std::string TDomainFuncImpl::GetCurDomainOIDs() { return CurrentList(kUserOIDs, kUsersOfCurrent); }
std::string TDomainFuncImpl::GetCurDomainOIDss() { return CurrentList(kUserOIDs, kUsersOfCurrentAndLower); }
std::string TDomainFuncImpl::GetCurDomainUserIDs() { return CurrentList(kUserLogins, kUsersOfCurrent); }
std::string TDomainFuncImpl::GetCurDomainUserIDss() {
  return CurrentList(kUserLogins, kUsersOfCurrentAndLower);
}

namespace {

// Takes the operator, and what widens the choice for those who administer everything.
// clang-format off
constexpr const char* kRolesOfAuthAndShared =
    "select a.OID from STUsers a "
    "left outer join STDomainMembers b on b.MemberType = 1 and b.IsOwned = 1 and a.OID = b.UserOID "
    "where a.uGroup = 1 and a.UnUsed <> 1 and a.IsAdministrator = 0 "
    "and ( b.DomainID in ( select DomainID from STDomainMembers where IsOwned = 0 and UserOID = %d ) "
    "or b.DomainID = -100%s ) order by 1";
constexpr const char* kOrOfNoDomain = " or b.DomainID is null";
// clang-format on

}  // namespace

std::string TDomainFuncImpl::GetAuthDomainRolesEx() {
  const bool administersAll = SystemInfo().IsSuperUser || isBuilder();
  return QueryList(
      Format(kRolesOfAuthAndShared, {SystemInfo().LoginUserOID, administersAll ? kOrOfNoDomain : ""}));
}

}  // namespace zanrole
