#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Domain/U_DomainFuncsImp.h"
#include "tests/support/RecordingHost.h"
#include "tests/unit/Domain/DomainCall.h"

// Each function without inputs sends exactly one statement: this one, for operator 12 and current domain 5.

namespace zantest {
namespace {

using namespace zanrole;

struct TExpectedStatement {
  const char* Function;
  const char* Statement;
};

// clang-format off
constexpr TExpectedStatement kExpected[] = {
    {"GetCurDomainCode", "select Code from STDomains where ID = 5"},
    {"GetCurDomainNodeCode", "select FullCode from STDomains where ID = 5"},
    {"GetCurDomainName", "select Name from STDomains where ID = 5"},
    {"GetCurDomainFullName", "select FullName from STDomains where ID = 5"},
    {"GetAuthDomainIDs", "select DomainID from STDomainMembers where IsOwned = 0 and UserOID = 12 order by 1"},
    {"GetAuthDomainIDss", "select distinct DescendantID from STDomainInherits where AncestorID in ( select DomainID from STDomainMembers where IsOwned = 0 and UserOID = 12 ) order by 1"},
    {"GetOwnDomainIDs", "select DomainID from STDomainMembers where IsOwned = 1 and MemberType <> 3 and UserOID = 12 order by 1"},
    {"GetOwnDomainIDss", "select distinct DescendantID from STDomainInherits where AncestorID in ( select DomainID from STDomainMembers where IsOwned = 1 and MemberType <> 3 and UserOID = 12 ) order by 1"},
    {"GetAuthDomainOIDs", "select OID from STUsers where UnUsed <> 1 and uGroup = 0 and IsAdministrator = 0 and OID in (select c.UserOID from STDomainMembers a inner join STDomainMembers c on a.DomainID = c.DomainID where c.MemberType = 0 and c.IsOwned = 1 and a.IsOwned = 0 and a.UserOID = 12 ) order by 1"},
    {"GetAuthDomainOIDss", "select OID from STUsers where UnUsed <> 1 and uGroup = 0 and IsAdministrator = 0 and OID in (select c.UserOID from STDomainMembers a inner join STDomainInherits b on a.DomainID = b.AncestorID inner join STDomainMembers c on b.DescendantID = c.DomainID where c.MemberType = 0 and c.IsOwned = 1 and a.IsOwned = 0 and a.UserOID = 12 ) order by 1"},
    {"GetAuthDomainUserIDs", "select UserID from STUsers where UnUsed <> 1 and uGroup = 0 and IsAdministrator = 0 and OID in (select c.UserOID from STDomainMembers a inner join STDomainMembers c on a.DomainID = c.DomainID where c.MemberType = 0 and c.IsOwned = 1 and a.IsOwned = 0 and a.UserOID = 12 ) order by 1"},
    {"GetAuthDomainUserIDss", "select UserID from STUsers where UnUsed <> 1 and uGroup = 0 and IsAdministrator = 0 and OID in (select c.UserOID from STDomainMembers a inner join STDomainInherits b on a.DomainID = b.AncestorID inner join STDomainMembers c on b.DescendantID = c.DomainID where c.MemberType = 0 and c.IsOwned = 1 and a.IsOwned = 0 and a.UserOID = 12 ) order by 1"},
    {"GetOwnDomainOIDs", "select OID from STUsers where UnUsed <> 1 and uGroup = 0 and IsAdministrator = 0 and OID in (select b.UserOID from STDomainMembers a inner join STDomainMembers b on a.DomainID = b.DomainID where a.IsOwned = 1 and a.MemberType <> 3 and b.IsOwned = 1 and b.MemberType = 0 and a.UserOID = 12 ) order by 1"},
    {"GetOwnDomainOIDss", "select OID from STUsers where UnUsed <> 1 and uGroup = 0 and IsAdministrator = 0 and OID in (select c.UserOID from STDomainMembers a inner join STDomainInherits b on a.DomainID = b.AncestorID inner join STDomainMembers c on b.DescendantID = c.DomainID where a.IsOwned = 1 and a.MemberType <> 3 and a.UserOID = 12 and c.IsOwned = 1 and c.MemberType = 0 ) order by 1"},
    {"GetOwnDomainUserIDs", "select UserID from STUsers where UnUsed <> 1 and uGroup = 0 and IsAdministrator = 0 and OID in (select b.UserOID from STDomainMembers a inner join STDomainMembers b on a.DomainID = b.DomainID where a.IsOwned = 1 and a.MemberType <> 3 and b.IsOwned = 1 and b.MemberType = 0 and a.UserOID = 12 ) order by 1"},
    {"GetOwnDomainUserIDss", "select UserID, UserName from STUsers where UnUsed <> 1 and uGroup = 0 and IsAdministrator = 0 and OID in (select c.UserOID from STDomainMembers a inner join STDomainInherits b on a.DomainID = b.AncestorID inner join STDomainMembers c on b.DescendantID = c.DomainID where a.IsOwned = 1 and a.MemberType <> 3 and a.UserOID = 12 and c.IsOwned = 1 and c.MemberType = 0 ) order by 1"},
    {"GetCurDomainOIDs", "select OID from STUsers where UnUsed <> 1 and uGroup = 0 and IsAdministrator = 0 and OID in (select UserOID from STDomainMembers where MemberType = 0 and IsOwned = 1 and DomainID = 5 ) order by 1"},
    {"GetCurDomainOIDss", "select OID from STUsers where UnUsed <> 1 and uGroup = 0 and IsAdministrator = 0 and OID in (select a.UserOID from STDomainMembers a inner join STDomainInherits b on a.DomainID = b.DescendantID where a.MemberType = 0 and a.IsOwned = 1 and b.AncestorID = 5 ) order by 1"},
    {"GetCurDomainUserIDs", "select UserID from STUsers where UnUsed <> 1 and uGroup = 0 and IsAdministrator = 0 and OID in (select UserOID from STDomainMembers where MemberType = 0 and IsOwned = 1 and DomainID = 5 ) order by 1"},
    {"GetCurDomainUserIDss", "select UserID from STUsers where UnUsed <> 1 and uGroup = 0 and IsAdministrator = 0 and OID in (select a.UserOID from STDomainMembers a inner join STDomainInherits b on a.DomainID = b.DescendantID where a.MemberType = 0 and a.IsOwned = 1 and b.AncestorID = 5 ) order by 1"},
    {"GetAuthDomainRoleOIDs", "select OID from STUsers where UnUsed <> 1 and uGroup = 1 and IsAdministrator = 0 and OID in (select c.UserOID from STDomainMembers a inner join STDomainMembers c on a.DomainID = c.DomainID where c.MemberType = 1 and c.IsOwned = 1 and a.IsOwned = 0 and a.UserOID = 12 ) order by 1"},
    {"GetAuthDomainRoleOIDss", "select OID from STUsers where UnUsed <> 1 and uGroup = 1 and IsAdministrator = 0 and OID in (select c.UserOID from STDomainMembers a inner join STDomainInherits b on a.DomainID = b.AncestorID inner join STDomainMembers c on b.DescendantID = c.DomainID where c.MemberType = 1 and c.IsOwned = 1 and a.IsOwned = 0 and a.UserOID = 12 ) order by 1"},
    {"GetAuthDomainRolesEx", "select a.OID from STUsers a left outer join STDomainMembers b on b.MemberType = 1 and b.IsOwned = 1 and a.OID = b.UserOID where a.uGroup = 1 and a.UnUsed <> 1 and a.IsAdministrator = 0 and ( b.DomainID in ( select DomainID from STDomainMembers where IsOwned = 0 and UserOID = 12 ) or b.DomainID = -100 ) order by 1"},
    {"GetCurUserType", "select 2 C from STDomainMembers where MemberType=2 and IsOwned=1 and UserOID=12"},
    {"GetCreatedDomainIDs", "select DomainID from STDomainMembers where MemberType = 3 and UserOID = 12 order by 1"},
    {"GetCreatedDomainCodes", "select b.Code from STDomainMembers a inner join STDomains b on a.DomainID = b.ID where a.MemberType = 3 and a.UserOID = 12 and b.Code is not null order by 1"},
    {"GetAuthDomainCodes", "select b.Code from STDomainMembers a inner join STDomains b on a.DomainID = b.ID where a.IsOwned = 0 and a.UserOID = 12 and b.Code is not null order by 1"},
    {"GetAuthDomainCodess", "select distinct b.Code from STDomainInherits a inner join STDomains b on a.DescendantID = b.ID where a.AncestorID in ( select DomainID from STDomainMembers where IsOwned = 0 and UserOID = 12 ) order by 1"},
    {"GetOwnDomainCodes", "select b.Code from STDomainMembers a inner join STDomains b on a.DomainID = b.ID where a.IsOwned = 1 and MemberType <> 3 and a.UserOID = 12 and b.Code is not null order by 1"},
    {"GetOwnDomainCodess", "select distinct b.Code from STDomainInherits a inner join STDomains b on a.DescendantID = b.ID where a.AncestorID in ( select DomainID from STDomainMembers where IsOwned = 1 and MemberType <> 3 and UserOID = 12 ) order by 1"},
};
// clang-format on

class DomainFuncStatements : public testing::TestWithParam<std::tuple<TDialect, TExpectedStatement>> {};

TEST_P(DomainFuncStatements, SendsExactlyItsStatementAndGivesWhatComesBack) {
  const auto& [dialect, expected] = GetParam();
  TRecordingHost host(dialect);
  TDomainFuncImpl::SetCurrentDomainID(5);
  host.Answer("select", {"X", "Y"}, {{"2", "unread"}});

  TDomainCall call(expected.Function);
  EXPECT_TRUE(call.Execute());

  ASSERT_EQ(host.Statements.size(), 1u);
  EXPECT_EQ(host.Statements[0].Text, expected.Statement);
  EXPECT_EQ(host.Statements[0].Database, "data");
  EXPECT_EQ(host.Statements[0].Kind, "Open");
  EXPECT_EQ(call.Result(), "2");
}

TEST_P(DomainFuncStatements, SendsNothingWhenTheCallWantsNoResult) {
  const auto& [dialect, expected] = GetParam();
  TRecordingHost host(dialect);
  TDomainCall call(expected.Function);
  call.Info->OutParams = {};
  EXPECT_TRUE(call.Execute());
  EXPECT_TRUE(host.Statements.empty());
}

std::string CaseName(const testing::TestParamInfo<std::tuple<TDialect, TExpectedStatement>>& info) {
  static constexpr const char* kDialects[] = {"SqlServer", "Oracle", "MySql"};
  const auto& [dialect, expected] = info.param;
  return std::string(kDialects[static_cast<int>(dialect)]) + "_" + expected.Function;
}

INSTANTIATE_TEST_SUITE_P(EachDialect, DomainFuncStatements,
                         testing::Combine(testing::Values(TDialect::SqlServer, TDialect::Oracle,
                                                          TDialect::MySql),
                                          testing::ValuesIn(kExpected)),
                         CaseName);

}  // namespace
}  // namespace zantest
