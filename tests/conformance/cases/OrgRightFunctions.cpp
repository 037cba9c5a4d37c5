#include <gmock/gmock.h>

#include <algorithm>

#include "Frame/TolFuns.h"
#include "OrgRights/U_OrgRigthFuncs.h"
#include "tests/conformance/Conformance.h"
#include "tests/conformance/scenario/World.h"

// The organisation rights queries on an organisation small enough to be checked by hand.

namespace zantest {

namespace {

using testing::ElementsAre;
using TFuncs = zanrole::TOrgRightFuncs;

constexpr std::string_view kOrganisation = R"(
organisation
  company C1 总公司
    person boss 老板
    person ghost 幽灵 unlinked
    department D1 研发部
      position P1 研发经理 head
        person wang 王芳
      position P2 工程师
        person li 李明
        person chen "陈 杰"
        person off 停用 disabled
      department D2 测试组
        position P3 测试组长 head
          person sun 孙伟
        position P4 测试员 unranked
          person zhou 周洁
    department D3 市场部
      position P5 市场专员
        person sun 孙伟 second
        person zhao 赵强 second
  company C3 分公司
    department D4 销售部
      position P6 销售经理 head
        person zhao 赵强
account admin 管理员 administrator
account root 超级 administrator
account retired 前管理员 administrator disabled
account alone 无岗位
)";

class TOrg : public TScenarioWorld {
 public:
  TOrg() { AddText(kOrganisation); }
  /// How a question is told of someone or something.
  std::string operator()(const std::string& name) const { return std::to_string((*this)[name]); }
};

/// The values of a list in brackets, in order.
std::vector<std::string> Values(const std::string& list) {
  EXPECT_EQ(list.front(), '(');
  EXPECT_EQ(list.back(), ')');
  auto values = zanrole::Split(",", list.substr(1, list.size() - 2));
  std::sort(values.begin(), values.end());
  return values;
}

}  // namespace

TEST_P(Conformance, OrgRights_WhoIsNoHeadDoesNotSeeTheHeadOfTheDepartment) {
  Engine().InstallSchema();
  const TOrg org;
  EXPECT_THAT(Values(TFuncs::OrgDeptMemberCodes(org("li"))), ElementsAre("'chen'", "'li'"));
  EXPECT_THAT(Values(TFuncs::OrgDeptMemberCodes(org("wang"))), ElementsAre("'chen'", "'li'", "'wang'"));
  EXPECT_THAT(Values(TFuncs::OrgDeptMemberIDs(org("li"))), ElementsAre(org("li"), org("chen")));
  EXPECT_THAT(Values(TFuncs::OrgDeptMemberNames("'李明'")), ElementsAre("\"'陈 杰'\"", "'李明'"));
}

TEST_P(Conformance, OrgRights_WithoutARankInTheDepartmentNobodyIsSeenThere) {
  Engine().InstallSchema();
  const TOrg org;
  EXPECT_EQ(TFuncs::OrgDeptMemberCodes(org("zhou")), "(NULL)");
  // A position without a rank is the lowest: the head sees it, and with it his other department.
  EXPECT_THAT(Values(TFuncs::OrgDeptMemberCodes(org("sun"))), ElementsAre("'sun'", "'zhao'", "'zhou'"));
}

TEST_P(Conformance, OrgRights_PeopleOfTheSamePosition) {
  Engine().InstallSchema();
  const TOrg org;
  EXPECT_THAT(Values(TFuncs::OrgPositionMemberCodes(org("li"))), ElementsAre("'chen'", "'li'"));
  EXPECT_EQ(TFuncs::OrgPositionMemberIDs(org("wang")), "(" + org("wang") + ")");
  EXPECT_EQ(TFuncs::OrgPositionMemberNames(org("zhou")), "('周洁')");
  EXPECT_EQ(TFuncs::OrgPositionMembers(org("zhou"), "b.Code", true), "('P4')");
}

TEST_P(Conformance, OrgRights_APersonWithoutAPositionIsAlone) {
  Engine().InstallSchema();
  const TOrg org;
  for (const char* name : {"boss", "alone", "admin"}) {
    const std::string user = org(name);
    EXPECT_EQ(TFuncs::OrgDeptMemberIDs(user), "(NULL)");
    EXPECT_EQ(TFuncs::OrgPositionMemberIDs(user), "(NULL)");
    EXPECT_FALSE(TFuncs::OrgUserIsUnderDept(user, org("D1")));
  }
  EXPECT_EQ(TFuncs::OrgCompanyID(org("alone")), "");
  EXPECT_EQ(TFuncs::OrgCompanyIDs(org("alone")), "(NULL)");
  EXPECT_EQ(TFuncs::OrgCompanyName("'幽灵'"), "");
}

TEST_P(Conformance, OrgRights_AnEmptyUserIsTheLoggedInOneAndAnEmptySecondIsNobody) {
  Engine().InstallSchema();
  const TOrg org;
  Host().SystemInfo().LoginUserOID = org["li"];
  EXPECT_EQ(TFuncs::OrgUserOID(), org("li"));
  EXPECT_EQ(TFuncs::OrgPositionMemberIDs(""), TFuncs::OrgPositionMemberIDs(org("li")));
  EXPECT_EQ(TFuncs::OrgCompanyName(""), "总公司");
  EXPECT_TRUE(TFuncs::OrgUserIsUnderDept("", org("D1")));
  EXPECT_TRUE(TFuncs::OrgUserIsUnderling("", org("wang")));
  EXPECT_TRUE(TFuncs::OrgUserIsSuperior(org("wang"), ""));
  for (const auto ask : {TFuncs::OrgUserIsDeptMember, TFuncs::OrgUserIsUnderDept,
                         TFuncs::OrgUserIsPositionMember, TFuncs::OrgUserIsUnderling}) {
    EXPECT_FALSE(ask(org("li"), ""));
  }
  EXPECT_EQ(TFuncs::OrgDeptMemberIDs("nobody"), "(NULL)");
}

TEST_P(Conformance, OrgRights_MemberOfADepartmentMeansDirectlyAndUnderItMeansAnywhereBelow) {
  Engine().InstallSchema();
  const TOrg org;
  EXPECT_TRUE(TFuncs::OrgUserIsDeptMember(org("sun"), org("D2")));
  EXPECT_TRUE(TFuncs::OrgUserIsDeptMember(org("sun"), "'市场部'"));
  EXPECT_FALSE(TFuncs::OrgUserIsDeptMember(org("sun"), org("D1")));
  EXPECT_TRUE(TFuncs::OrgUserIsUnderDept(org("sun"), org("D2")));
  EXPECT_TRUE(TFuncs::OrgUserIsUnderDept("'孙伟'", "'研发部'"));
  EXPECT_FALSE(TFuncs::OrgUserIsUnderDept(org("li"), org("D2")));
  EXPECT_FALSE(TFuncs::OrgUserIsUnderDept(org("li"), org("C1")));
}

TEST_P(Conformance, OrgRights_APositionIsFoundByNumberFullNameNameOrTitle) {
  Engine().InstallSchema();
  const TOrg org;
  Exec("update PartyH set Title = '首席' where Code = 'P2'");
  for (const std::string& position :
       {org("P2"), std::string("'总公司\\研发部\\工程师'"), std::string("'工程师'"), std::string("'首席'")}) {
    EXPECT_TRUE(TFuncs::OrgUserIsPositionMember(org("li"), position)) << position;
    EXPECT_FALSE(TFuncs::OrgUserIsPositionMember(org("wang"), position)) << position;
  }
}

TEST_P(Conformance, OrgRights_SuperiorsAreTheHeadsOfDepartmentsAndTheManagersOfCompaniesOnTheWayUp) {
  Engine().InstallSchema();
  const TOrg org;
  const auto isBelow = [&](const char* user, const char* superior) {
    const bool below = TFuncs::OrgUserIsUnderling(org(user), org(superior));
    EXPECT_EQ(TFuncs::OrgUserIsSuperior(org(superior), org(user)), below);
    return below;
  };
  EXPECT_TRUE(isBelow("li", "wang"));
  EXPECT_TRUE(isBelow("li", "boss"));
  EXPECT_TRUE(isBelow("zhou", "sun"));
  EXPECT_TRUE(isBelow("zhou", "wang"));
  EXPECT_FALSE(isBelow("wang", "li"));
  EXPECT_FALSE(isBelow("li", "chen"));
  EXPECT_FALSE(isBelow("li", "sun"));
  EXPECT_TRUE(TFuncs::OrgUserIsUnderling("'李明'", "'王芳'"));
  // The head begins one level higher: nobody is his own superior.
  EXPECT_FALSE(isBelow("wang", "wang"));
  EXPECT_TRUE(isBelow("sun", "wang"));
  EXPECT_FALSE(isBelow("sun", "sun"));
  // His ordinary position elsewhere begins at its own department.
  Exec("update PartyH set isHeadPosition = 1 where Code = 'P5'");
  Exec("update PartyH set isHeadPosition = 0 where Code = 'P3'");
  EXPECT_TRUE(isBelow("sun", "wang"));
  EXPECT_FALSE(isBelow("sun", "zhao"));
}

TEST_P(Conformance, OrgRights_AnAdministratorIsAboveEveryoneButAnotherAdministrator) {
  Engine().InstallSchema();
  const TOrg org;
  EXPECT_TRUE(TFuncs::OrgUserIsUnderling(org("li"), org("admin")));
  EXPECT_TRUE(TFuncs::OrgUserIsUnderling(org("boss"), "'管理员'"));
  EXPECT_TRUE(TFuncs::OrgUserIsUnderling("nobody", org("admin")));
  EXPECT_FALSE(TFuncs::OrgUserIsUnderling(org("admin"), org("li")));
  EXPECT_FALSE(TFuncs::OrgUserIsUnderling(org("root"), org("admin")));
  // Another administrator must be found by the climb.
  Exec("update STUsers set IsAdministrator = 1 where UserID in ('li', 'wang')");
  EXPECT_TRUE(TFuncs::OrgUserIsUnderling(org("li"), org("wang")));
  EXPECT_FALSE(TFuncs::OrgUserIsUnderling(org("li"), org("admin")));
  // A disabled account is no administrator.
  EXPECT_FALSE(TFuncs::OrgUserIsUnderling(org("chen"), org("retired")));
}

TEST_P(Conformance, OrgRights_CompaniesReachedThroughAHeadPositionComeFirst) {
  Engine().InstallSchema();
  const TOrg org;
  EXPECT_EQ(TFuncs::OrgCompanyID(org("li")), org("C1"));
  EXPECT_EQ(TFuncs::OrgCompanyNames(org("li")), "('总公司')");
  EXPECT_EQ(TFuncs::OrgCompanyIDs(org("zhao")), "(" + org("C3") + "," + org("C1") + ")");
  EXPECT_EQ(TFuncs::OrgCompanyID(org("zhao")), org("C3"));
  EXPECT_EQ(TFuncs::OrgCompanyName(org("zhao")), "分公司");
  EXPECT_EQ(TFuncs::OrgCompanyNames(org("zhao")), "('分公司','总公司')");
  EXPECT_EQ(Rows(TFuncs::OrgGetCompanySQL(org("zhao"), "b.Code")),
            (std::vector<TTextRow>{{"C3", "1"}, {"C1", "0"}}));
}

TEST_P(Conformance, OrgRights_ManagersOfTheCompanyAreThoseWithAnAccount) {
  Engine().InstallSchema();
  const TOrg org;
  EXPECT_EQ(TFuncs::OrgCompanyManagerID(org("li")), org("boss"));
  EXPECT_EQ(TFuncs::OrgCompanyManagerCode(org("li")), "boss");
  EXPECT_EQ(TFuncs::OrgCompanyManagerName(org("li")), "老板");
  EXPECT_EQ(TFuncs::OrgCompanyManagerIDs(org("zhou")), "(" + org("boss") + ")");
  EXPECT_EQ(TFuncs::OrgCompanyManagerCodes(org("boss")), "('boss')");
  EXPECT_EQ(TFuncs::OrgCompanyManagerNames(org("zhao")), "('老板')");
  EXPECT_EQ(TFuncs::OrgCompanyManagerCodes(org("alone")), "(NULL)");
}

TEST_P(Conformance, OrgRights_AQuoteInANameBreaksTheStatement) {
  Engine().InstallSchema();
  EXPECT_THROW(TFuncs::OrgDeptMemberIDs("'O'Neil'"), zanrole::EDatabaseError);
  EXPECT_THROW(TFuncs::OrgUserIsUnderling("1", "'O'Neil'"), zanrole::EDatabaseError);
  EXPECT_EQ(TFuncs::OrgDeptMemberIDs("'O''Neil'"), "(NULL)");
}

}  // namespace zantest
