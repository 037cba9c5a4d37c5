#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "OrgRights/U_OrgRigthFuncs.h"
#include "tests/support/RecordingHost.h"

// The statements of the organisation rights queries, word for word, for user 7 and a second one 9.

namespace zantest {
namespace {

using testing::Each;
using testing::ElementsAre;
using TFuncs = zanrole::TOrgRightFuncs;

struct TExpectedStatement {
  const char* Name;
  std::function<void()> Ask;
  std::string Statement;
};

// clang-format off
const std::string kDeptMembersOf7 =
    "with Depts as ( select c.DjLsh DeptLsh, max(b.isHeadPosition) isHead from PartyH a "
    "left outer join PartyH b on a.Parent = b.DjLsh left outer join PartyH c on b.Parent = c.DjLsh "
    "where a.Type = 'User' and a.isSTUser = 1 and a.UserOID = 7 and b.Type = 'PositionEntity' and c.Type = 'Department' "
    "group by c.DjLsh ) select distinct ";
const std::string kDeptMembersEnd =
    "(b.isHeadPosition,0) <= a.isHead inner join PartyH c on b.DjLsh = c.Parent and c.isSTUser = 1 "
    "left outer join STUsers d on c.UserOID = d.OID and d.UnUsed <> 1 where b.Type = 'PositionEntity' and c.Type = 'User'";
const std::string kFromDepts = " from Depts a inner join PartyH b on a.DeptLsh = b.Parent and ";

const std::string kPositionMembersOf7 =
    " from PartyH a inner join PartyH b on a.Parent = b.DjLsh and b.Type = 'PositionEntity' "
    "inner join PartyH c on b.DjLsh = c.Parent and c.Type = 'User' and c.isSTUser = 1 "
    "left outer join STUsers d on c.UserOID = d.OID and d.UnUsed <> 1 "
    "where a.Type = 'User' and a.isSTUser = 1 and a.UserOID = 7";

const std::string kAllAbove7 =
    "with cte(DjLsh, isHead) as ( select Parent DjLsh, 0 isHead from PartyH "
    "where Type = 'User' and isSTUser = 1 and UserOID = 7 union all select a.Parent DjLsh , "
    "case when a.isHeadPosition > b.isHead then a.isHeadPosition else b.isHead end "
    "from PartyH a inner join cte b on a.DjLsh = b.DjLsh ) ";

std::string Companies(const std::string& column) {
  return kAllAbove7 + "select " + column + ", max(cte.isHead) isHead from cte "
         "inner join PartyH b on cte.DjLsh = b.DjLsh where b.Type = 'Company' group by " + column + " order by 2 desc, 1";
}

std::string Managers(const std::string& column) {
  return kAllAbove7 + "select " + column + ", max(cte.isHead) isHead from cte "
         "inner join PartyH b on cte.DjLsh = b.DjLsh inner join PartyH c on b.DjLsh = c.Parent "
         "where b.Type = 'Company' and c.Type = 'User' and c.isSTUser = 1 and c.UserOID > 0 "
         "group by " + column + " order by 2 desc, 1";
}

const TExpectedStatement kOneStatement[] = {
    {"OrgPositionMembers", [] { TFuncs::OrgPositionMembers("7", "c.Name", true); }, "select distinct c.Name" + kPositionMembersOf7},
    {"OrgPositionMemberIDs", [] { TFuncs::OrgPositionMemberIDs("7"); }, "select distinct d.OID" + kPositionMembersOf7},
    {"OrgPositionMemberCodes", [] { TFuncs::OrgPositionMemberCodes("7"); }, "select distinct d.UserID" + kPositionMembersOf7},
    {"OrgPositionMemberNames", [] { TFuncs::OrgPositionMemberNames("7"); }, "select distinct d.UserName" + kPositionMembersOf7},
    {"OrgUserIsDeptMember", [] { TFuncs::OrgUserIsDeptMember("7", "9"); },
     "select c.DjLsh from PartyH a inner join PartyH b on a.Parent = b.DjLsh and b.Type = 'PositionEntity' "
     "inner join PartyH c on b.Parent = c.DjLsh and c.Type = 'Department' "
     "where a.Type = 'User' and a.isSTUser = 1 and a.UserOID = 7 and c.DjLsh = 9"},
    {"OrgUserIsUnderDept", [] { TFuncs::OrgUserIsUnderDept("7", "9"); },
     "with cte(DjLsh) as ( select b.Parent DjLsh from PartyH a "
     "inner join PartyH b on a.Parent = b.DjLsh and b.Type = 'PositionEntity' "
     "where a.Type = 'User' and a.isSTUser = 1 and a.UserOID = 7 union all "
     "select a.Parent DjLsh from PartyH a inner join cte on a.DjLsh = cte.DjLsh ) "
     "select b.DjLsh from cte inner join PartyH b on cte.DjLsh = b.DjLsh where b.Type = 'Department' and b.DjLsh = 9"},
    {"OrgCompanyID", [] { TFuncs::OrgCompanyID("7"); }, Companies("b.DjLsh")},
    {"OrgCompanyName", [] { TFuncs::OrgCompanyName("7"); }, Companies("b.Name")},
    {"OrgCompanyIDs", [] { TFuncs::OrgCompanyIDs("7"); }, Companies("b.DjLsh")},
    {"OrgCompanyNames", [] { TFuncs::OrgCompanyNames("7"); }, Companies("b.Name")},
    {"OrgCompanyManagerID", [] { TFuncs::OrgCompanyManagerID("7"); }, Managers("c.UserOID")},
    {"OrgCompanyManagerCode", [] { TFuncs::OrgCompanyManagerCode("7"); }, Managers("c.Code")},
    {"OrgCompanyManagerName", [] { TFuncs::OrgCompanyManagerName("7"); }, Managers("c.Name")},
    {"OrgCompanyManagerIDs", [] { TFuncs::OrgCompanyManagerIDs("7"); }, Managers("c.UserOID")},
    {"OrgCompanyManagerCodes", [] { TFuncs::OrgCompanyManagerCodes("7"); }, Managers("c.Code")},
    {"OrgCompanyManagerNames", [] { TFuncs::OrgCompanyManagerNames("7"); }, Managers("c.Name")},
};

const std::string kSuperior =
    "with cte(DeptID) as ( select case a.isHead when 1 then b.Parent else a.DeptID end DeptID from ( "
    "select b.Parent DeptID, max(b.isHeadPosition) isHead from PartyH a "
    "inner join PartyH b on a.Parent = b.DjLsh and b.Type = 'PositionEntity' "
    "where a.Type = 'User' and a.isSTUser = 1 and a.UserOID = 7 group by b.Parent ) a "
    "left outer join PartyH b on a.DeptID = b.DjLsh union all "
    "select a.Parent DeptID from PartyH a inner join cte on a.DjLsh = cte.DeptID ) "
    "select d.DjLsh from cte inner join PartyH b on cte.DeptID = b.DjLsh "
    "and (b.Type = 'Department' or b.Type = 'Company') inner join PartyH c on b.DjLsh = c.Parent and "
    "( (b.Type = 'Department' and c.Type = 'PositionEntity' and c.isHeadPosition = 1) "
    "or (b.Type = 'Company' and c.Type = 'User' and c.isSTUser = 1) ) "
    "left outer join PartyH d on c.DjLsh = d.Parent and d.Type = 'User' and d.isSTUser = 1 "
    "where (b.Type = 'Department' and d.UserOID = 9 ) or (b.Type = 'Company' and c.UserOID = 9 )";

const std::string kAdministrator = "select 1 from STUsers where IsAdministrator = 1 and UnUsed <> 1";
// clang-format on

class OrgRightStatements : public testing::TestWithParam<TDialect> {
 protected:
  TRecordingHost Host{GetParam()};
};

TEST_P(OrgRightStatements, EachQuestionSendsItsOneStatementToTheDataDatabase) {
  for (const TExpectedStatement& expected : kOneStatement) {
    SCOPED_TRACE(expected.Name);
    Host.Statements.clear();
    expected.Ask();
    ASSERT_EQ(Host.Statements.size(), 1u);
    EXPECT_EQ(Squeeze(Host.Statements[0].Text), expected.Statement);
    EXPECT_EQ(Host.Statements[0].Database, "data");
    EXPECT_EQ(Host.Statements[0].Kind, "Open");
  }
}

TEST_P(OrgRightStatements, TheMembersOfADepartmentAreTheOnlyStatementThatDiffersByDialect) {
  TFuncs::OrgDeptMembers("7", "isnull(c.Name, 'x')", true);
  TFuncs::OrgDeptMemberIDs("7");
  TFuncs::OrgDeptMemberCodes("7");
  TFuncs::OrgDeptMemberNames("7");
  const std::string function = GetParam() == TDialect::MySql    ? "IfNull"
                               : GetParam() == TDialect::Oracle ? "nvl"
                                                                : "IsNull";
  const auto statement = [&](const std::string& column) {
    return kDeptMembersOf7 + column + kFromDepts + function + kDeptMembersEnd;
  };
  // The whole text is adapted, the caller's expression with it.
  const std::string callers = GetParam() == TDialect::SqlServer ? "isnull" : function;
  EXPECT_THAT(Host.Texts(), ElementsAre(statement(callers + "(c.Name, 'x')"), statement("d.OID"),
                                        statement("d.UserID"), statement("d.UserName")));
}

TEST_P(OrgRightStatements, UnderlingAsksForTwoAdministratorsAndThenClimbs) {
  EXPECT_FALSE(TFuncs::OrgUserIsUnderling("7", "9"));
  EXPECT_THAT(Host.Texts(),
              ElementsAre(kAdministrator + " and OID = 7", kAdministrator + " and OID = 9", kSuperior));
}

TEST_P(OrgRightStatements, APositionIsProbedThreeTimes) {
  const std::string base =
      "select b.DjLsh from PartyH a inner join PartyH b on a.Parent = b.DjLsh and b.Type = 'PositionEntity' "
      "where a.Type = 'User' and a.isSTUser = 1 and a.UserOID = 7 and ";
  EXPECT_FALSE(TFuncs::OrgUserIsPositionMember("7", "'Head'"));
  EXPECT_THAT(Host.Texts(),
              ElementsAre(base + "b.FullName = 'Head'", base + "b.Name = 'Head'", base + "b.Title = 'Head'"));
  Host.Statements.clear();
  EXPECT_FALSE(TFuncs::OrgUserIsPositionMember("7", "9"));
  EXPECT_EQ(Host.Statements.size(), 3u);
  EXPECT_THAT(Host.Texts(), Each(base + "b.DjLsh = 9"));
}

TEST_P(OrgRightStatements, TheStatementTextsForCompaniesRunNothing) {
  EXPECT_EQ(Squeeze(TFuncs::OrgGetCompanySQL("7", "b.Code")), Companies("b.Code"));
  EXPECT_EQ(Squeeze(TFuncs::OrgGetCompanyManagerSQL("7", "c.Code")), Managers("c.Code"));
  EXPECT_TRUE(Host.Statements.empty());
}

INSTANTIATE_TEST_SUITE_P(Dialects, OrgRightStatements,
                         testing::Values(TDialect::SqlServer, TDialect::Oracle, TDialect::MySql),
                         [](const auto& dialect) {
                           return dialect.param == TDialect::MySql    ? "MySql"
                                  : dialect.param == TDialect::Oracle ? "Oracle"
                                                                      : "SqlServer";
                         });

}  // namespace
}  // namespace zantest
