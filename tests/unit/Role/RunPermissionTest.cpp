#include "Role/RunPermission.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/RecordingHost.h"
#include "tests/unit/Role/Lines.h"

namespace zantest {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace zanrole;

void GiveRoles(TRecordingHost& host) {
  host.Answer("From STUserGroup g", {"GroupID", "GroupName"}, {{" 3 ", "财务 "}, {"7", " 仓库"}});
}

class RunPermission : public testing::TestWithParam<TDialect> {
 protected:
  TRecordingHost Host{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(EachDialect, RunPermission,
                         testing::Values(TDialect::SqlServer, TDialect::Oracle, TDialect::MySql));

TEST_P(RunPermission, ReadsTheRolesAndThenTheMenusOfTheUserAndHisRoles) {
  GiveRoles(Host);
  const TRunPermission& service = TRunPermission::GetInstance();
  ASSERT_EQ(Host.Statements.size(), 2u);
  EXPECT_EQ(Host.Statements[0].Text,
            "Select u.OID as GroupID, u.UserName as GroupName From STUserGroup g, STUsers u "
            "Where g.UserID = 12 And u.OID = g.GroupID");
  EXPECT_EQ(Host.Statements[1].Text,
            "Select Objectid from StPermission Where (oprate='执行')and(userid in (12, 3, 7))  and (objectid "
            "not in "
            "(select objectid from StPermission  where (oprate='执行')and(permission=0)and(userid in (12, 3, "
            "7))))");
  EXPECT_EQ(Host.Statements[0].Database, "data");
  EXPECT_EQ(Host.Statements[1].Database, "data");
  EXPECT_THAT(Lines(service.GetGroupids()), ElementsAre("3", "7"));
  EXPECT_THAT(Lines(service.GetGroups()), ElementsAre("财务", "仓库"));
}

TEST_P(RunPermission, OfAUserWithoutRolesTheListHoldsHimAlone) {
  TRunPermission::GetInstance();
  EXPECT_EQ(
      Host.Statements.at(1).Text,
      "Select Objectid from StPermission Where (oprate='执行')and(userid in (12))  and (objectid not in "
      "(select objectid from StPermission  where (oprate='执行')and(permission=0)and(userid in (12))))");
}

TEST_P(RunPermission, GetObjIDAsksTheRegistryForTheNameWithinTheType) {
  TRunPermission& service = TRunPermission::GetInstance();
  Host.Answer("from ObjectRegister", {"ObjectID", "Object"}, {{55, "x"}, {56, "x"}});
  EXPECT_EQ(service.GetObjID("单据", "o'neil"), 55);
  EXPECT_EQ(Host.Statements.back().Text, "select * from ObjectRegister where Object='o''neil' And TypeID=1");
  EXPECT_EQ(Host.Statements.back().Database, "system");
  EXPECT_EQ(service.GetObjID("单据", "missing"), -1);
}

TEST_P(RunPermission, GetObjOperatesReadsTheRowsOfTheUserAndHisRolesOnce) {
  GiveRoles(Host);
  TRunPermission& service = TRunPermission::GetInstance();
  service.GetObjOperates("单据", 55);
  ASSERT_EQ(Host.Statements.size(), 3u);
  EXPECT_EQ(Host.Statements[2].Text,
            "Select * From STPermission Where UserID In (12, 3, 7) And ObjectID = 55");
  EXPECT_EQ(Host.Statements[2].Database, "data");
}

TEST(RunPermissionMenus, AMenuIsAllowedWhenItIsAmongTheLoadedOnes) {
  TRecordingHost host;
  host.Answer("from StPermission", {"Objectid"}, {{100}, {9}, {100}, {23}});
  const TRunPermission& service = TRunPermission::GetInstance();
  for (const int allowed : {9, 23, 100}) EXPECT_TRUE(service.GetMenuPermission(allowed)) << allowed;
  for (const int denied : {1, 10, 0, -1, 1000}) EXPECT_FALSE(service.GetMenuPermission(denied)) << denied;
  EXPECT_EQ(host.Statements.size(), 2u);
}

TEST(RunPermissionMenus, TheSuperUserMayRunAnyMenuLoadedOrNot) {
  TRecordingHost host;
  host.SystemInfo().IsSuperUser = true;
  const TRunPermission& service = TRunPermission::GetInstance();
  EXPECT_TRUE(service.GetMenuPermission(1));
  EXPECT_FALSE(service.FindPermissionInList(1));
}

TEST(RunPermissionMenus, AreAllDeniedAfterClearUntilTheyAreLoadedAgain) {
  TRecordingHost host;
  host.AlwaysAnswer("from StPermission", {"Objectid"}, {{9}});
  TRunPermission& service = TRunPermission::GetInstance();
  service.ClearPermissionList();
  EXPECT_FALSE(service.GetMenuPermission(9));
  service.LoadPermissionList();
  EXPECT_TRUE(service.GetMenuPermission(9));
  service.LoadPermissionList();
  EXPECT_EQ(host.Statements.size(), 4u);
}

TEST(RunPermissionMenus, TheServiceDoesNotFollowALaterChangeOfUser) {
  TRecordingHost host;
  host.Answer("from StPermission", {"Objectid"}, {{9}});
  TRunPermission::GetInstance();
  host.SystemInfo().LoginUserOID = 13;
  EXPECT_TRUE(TRunPermission::GetInstance().GetMenuPermission(9));
  TRunPermission::GetInstance().SetUserStr();
  EXPECT_THAT(host.Statements.back().Text, testing::HasSubstr("g.UserID = 12 "));
}

TEST(RunPermissionObjects, GetObjOperatesListsDeniedOperationsOfTheTypeOnceAndInOrderOfTheirRows) {
  TRecordingHost host;
  TRunPermission& service = TRunPermission::GetInstance();
  host.Answer("Select * From STPermission", {"Oprate", "Permission"},
              {{"打印 ", 0}, {"增加", 1}, {"删除", 0}, {"打印", 0}, {"显示", 0}, {"修改", 1}});
  EXPECT_THAT(Lines(service.GetObjOperates("单据", 55)), ElementsAre("打印", "删除"));
}

TEST(RunPermissionObjects, ADenyOfARoleCountsBesideAnAllowOfTheUser) {
  TRecordingHost host;
  TRunPermission& service = TRunPermission::GetInstance();
  host.Answer("Select * From STPermission", {"Oprate", "Permission"}, {{"打印", 1}, {"打印", 0}});
  EXPECT_THAT(Lines(service.GetObjOperates("单据", 55)), ElementsAre("打印"));
}

TEST(RunPermissionObjects, AMissingObjectHasNothingDenied) {
  TRecordingHost host;
  TRunPermission& service = TRunPermission::GetInstance();
  EXPECT_THAT(Lines(service.GetObjOperates("单据", "missing")), IsEmpty());
  EXPECT_EQ(host.Statements.back().Text, "Select * From STPermission Where UserID In (12) And ObjectID = -1");
}

TEST(RunPermissionObjects, AnUnknownTypeIsNoObjectAndAnErrorOnlyForADeniedOperation) {
  TRecordingHost host;
  TRunPermission& service = TRunPermission::GetInstance();
  EXPECT_EQ(service.GetObjID("报表", "x"), -1);
  EXPECT_EQ(host.Statements.size(), 2u);
  EXPECT_THAT(Lines(service.GetObjOperates("报表", "x")), IsEmpty());
  host.Answer("Select * From STPermission", {"Oprate", "Permission"}, {{"打印", 0}});
  EXPECT_THROW(service.GetObjOperates("报表", 55), EAssertionFailed);
}

TEST(RunPermissionObjects, IsMadeAgainAtTheNextCallWhenItsStatementsFailed) {
  TRecordingHost host;
  host.FailStatement(2);
  EXPECT_THROW(TRunPermission::GetInstance(), EDatabaseError);
  EXPECT_NO_THROW(TRunPermission::GetInstance());
}

}  // namespace
}  // namespace zantest
