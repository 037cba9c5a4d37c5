#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Role/TolPermission.h"
#include "tests/support/RecordingHost.h"
#include "tests/unit/Role/Lines.h"

// The holder of TTolPermission and his rights.

namespace zantest {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using namespace zanrole;

const char* const kRoles =
    "Select u.OID as GroupID, u.UserName as GroupName From STUserGroup g, STUsers u "
    "Where g.UserID = 12 And u.OID = g.GroupID";
const char* const kOwn = "Select * From STPermission Where UserID = 12";
const char* const kOfRoles =
    "Select ObjectID, Oprate, min(Permission) Permission From STPermission "
    "where userid in (select GroupID from STUserGroup where UserID = 12) group by ObjectID, Oprate";

using TRows = std::vector<std::vector<TZanValue>>;

void GiveRights(TRecordingHost& host, const TRows& own, const TRows& ofRoles) {
  host.AlwaysAnswer("Where UserID = ", {"UserID", "ObjectID", "Oprate", "Permission"}, own);
  host.AlwaysAnswer("min(Permission)", {"ObjectID", "Oprate", "Permission"}, ofRoles);
}

TZanValue Integer(int value) { return std::int64_t{value}; }

class HolderInEachDialect : public testing::TestWithParam<TDialect> {
 protected:
  TRecordingHost Host{GetParam()};
  TTolPermission Permission;
};

INSTANTIATE_TEST_SUITE_P(EachDialect, HolderInEachDialect,
                         testing::Values(TDialect::SqlServer, TDialect::Oracle, TDialect::MySql));

TEST_P(HolderInEachDialect, ReadsTheRolesAndThenAllRightsInTwoStatements) {
  Permission.SetUserID(12);
  ASSERT_EQ(Host.Statements.size(), 3u);
  EXPECT_EQ(Host.Statements[0].Text, kRoles);
  EXPECT_EQ(Host.Statements[1].Text, kOwn);
  EXPECT_EQ(Host.Statements[2].Text, kOfRoles);
  for (const TRecordedStatement& statement : Host.Statements) EXPECT_EQ(statement.Database, "data");
}

TEST_P(HolderInEachDialect, TheNumberOfStatementsDoesNotGrowWithTheRoles) {
  TRows roles;
  for (int role = 100; role < 400; ++role) roles.push_back({role, "role"});
  Host.Answer("From STUserGroup g", {"GroupID", "GroupName"}, roles);
  Permission.SetUserID(12);
  EXPECT_EQ(Permission.GetGroupCount(), 300);
  EXPECT_EQ(Host.Statements.size(), 3u);
  Permission.LoadAllPermissions();
  EXPECT_EQ(Host.Statements.size(), 5u);
}

TEST_P(HolderInEachDialect, SetPermissionInsertsWithoutAValueOrDeletesFromTheLegacyTable) {
  Permission.SetUserID(12);
  Host.Statements.clear();
  Permission.SetPermission(100, "执行", true);
  Permission.SetPermission(101, "打印", false);
  EXPECT_THAT(Host.Texts(),
              ElementsAre("Insert Into STPermission (UserID, ObjectID, Oprate) Values (12, 100, '执行')",
                          "Delete From Permission Where UserID = 12 And ObjectID = 101 And Oprate = '打印'"));
  for (const TRecordedStatement& statement : Host.Statements) {
    EXPECT_EQ(statement.Database, "data");
    EXPECT_EQ(statement.Kind, "Exec");
  }
}

TEST_P(HolderInEachDialect, SaveObjPerAsksForTheRowAndInsertsOrUpdates) {
  Permission.SetUserID(12);
  Host.Statements.clear();
  Permission.saveObjPer({100, "打印", 0});
  Host.Answer("select 888", {"888"}, {{888}});
  Permission.saveObjPer({100, "打印", 1});
  EXPECT_THAT(
      Host.Texts(),
      ElementsAre(
          "select 888 from stpermission where UserID=:UserID and ObjectID=:ObjectID and Oprate=:Oprate",
          "insert into stpermission (UserID,ObjectID,Oprate,permission) "
          "values(:UserID,:ObjectID,:Oprate,:permission)",
          "select 888 from stpermission where UserID=:UserID and ObjectID=:ObjectID and Oprate=:Oprate",
          "update stpermission set permission=:permission "
          "where UserID=:UserID and ObjectID=:ObjectID and Oprate=:Oprate"));
  EXPECT_THAT(Host.Statements[0].Params,
              ElementsAre(Pair("UserID", Integer(12)), Pair("ObjectID", Integer(100)),
                          Pair("Oprate", TZanValue("打印"))));
  EXPECT_THAT(Host.Statements[1].Params,
              ElementsAre(Pair("UserID", Integer(12)), Pair("ObjectID", Integer(100)),
                          Pair("Oprate", TZanValue("打印")), Pair("permission", Integer(0))));
  EXPECT_THAT(Host.Statements[3].Params,
              ElementsAre(Pair("permission", Integer(1)), Pair("UserID", Integer(12)),
                          Pair("ObjectID", Integer(100)), Pair("Oprate", TZanValue("打印"))));
}

TEST_P(HolderInEachDialect, DeleteObjPerDeletesTheRow) {
  Permission.SetUserID(12);
  Host.Statements.clear();
  Permission.DeleteObjPer({100, "打印", 1});
  EXPECT_THAT(Host.Texts(),
              ElementsAre("delete from stpermission where UserID=:UserID and ObjectID=:ObjectID "
                          "and Oprate=:Oprate"));
  EXPECT_THAT(Host.Statements[0].Params,
              ElementsAre(Pair("UserID", Integer(12)), Pair("ObjectID", Integer(100)),
                          Pair("Oprate", TZanValue("打印"))));
}

TEST_P(HolderInEachDialect, LoadPermissionListAsksOnceForEachMenu) {
  Host.Answer("From STUserGroup g", {"GroupID", "GroupName"}, {{3, "财务"}, {7, "仓库"}});
  Permission.SetUserID(12);
  Host.Statements.clear();
  Host.Answer("objectID=100", {"Permission"}, {{1}, {5}});
  EXPECT_TRUE(Permission.LoadPermissionList(100));
  EXPECT_TRUE(Permission.LoadPermissionList(100));
  EXPECT_THAT(Host.Texts(), ElementsAre("Select * From STPermission Where (UserID In (12, 3, 7)) "
                                        "And (Oprate = '执行')And objectID=100"));
}

TEST(MenuRight, IsDeniedWithoutARowAndByAnyRowThatDenies) {
  TRecordingHost host;
  TTolPermission permission;
  permission.SetUserID(12);
  host.Answer("objectID=101", {"Permission"}, {{1}, {0}, {1}});
  EXPECT_FALSE(permission.LoadPermissionList(100));
  EXPECT_FALSE(permission.LoadPermissionList(101));
}

TEST(MenuRight, IsAskedAnewForAnotherHolder) {
  TRecordingHost host;
  TTolPermission permission;
  permission.SetUserID(12);
  host.Answer("objectID=100", {"Permission"}, {{1}});
  EXPECT_TRUE(permission.LoadPermissionList(100));
  permission.SetUserID(13);
  EXPECT_FALSE(permission.LoadPermissionList(100));
}

TEST(Holder, GetInstanceFollowsTheLoggedInUserAndReadsHimOnce) {
  TRecordingHost host;
  host.Answer("Where g.UserID = 12", {"GroupID", "GroupName"}, {{3, "财务 "}, {7, "仓库"}});
  TTolPermission& permission = TTolPermission::GetInstance();
  EXPECT_EQ(&permission, &TTolPermission::GetInstance());
  EXPECT_EQ(permission.GetGroupCount(), 2);
  EXPECT_EQ(permission.GetGroupIDs(0), 3);
  EXPECT_EQ(permission.GetGroupIDs(1), 7);
  EXPECT_THAT(Lines(permission.GetGroups()), ElementsAre("财务", "仓库"));
  EXPECT_THAT(host.Texts(), ElementsAre(kRoles, kOwn, kOfRoles));
}

TEST(Holder, GetInstanceTurnsBackToTheLoggedInUserAfterACallerHasMovedIt) {
  TRecordingHost host;
  TTolPermission::GetInstance().SetUserID(13);
  host.Statements.clear();
  TTolPermission::GetInstance();
  EXPECT_THAT(host.Texts(), ElementsAre(kRoles, kOwn, kOfRoles));
}

TEST(Holder, NamesOfEarlierHoldersStayInFrontOfTheNamesOfTheNext) {
  TRecordingHost host;
  host.Answer("Where g.UserID = 12", {"GroupID", "GroupName"}, {{3, "财务"}});
  host.Answer("Where g.UserID = 13", {"GroupID", "GroupName"}, {{7, "仓库"}});
  TTolPermission permission;
  permission.SetUserID(12);
  permission.SetUserID(13);
  EXPECT_EQ(permission.GetGroupCount(), 1);
  EXPECT_EQ(permission.GetGroupIDs(0), 7);
  EXPECT_THAT(Lines(permission.GetGroups()), ElementsAre("财务", "仓库"));
}

TEST(Holder, SetUserIDWithTheCurrentHolderDoesNotReload) {
  TRecordingHost host;
  TTolPermission permission;
  permission.SetUserID(12);
  host.Statements.clear();
  permission.SetUserID(12);
  EXPECT_THAT(host.Statements, IsEmpty());
}

TEST(Holder, WhoCouldNotBeReadWholeHasNoRightsAndIsReadAgainAtTheNextCall) {
  for (const int failing : {1, 2, 3}) {
    TRecordingHost host;
    GiveRights(host, {{12, 100, "执行", 1}}, {});
    TTolPermission permission;
    permission.SetUserID(13);
    ASSERT_EQ(permission.GetPermission(100, "执行"), "允许");
    host.FailStatement(failing);
    EXPECT_THROW(permission.SetUserID(12), EDatabaseError);
    EXPECT_EQ(permission.GetPermission(100, "执行"), "") << "statement " << failing;
    permission.SetUserID(12);
    EXPECT_EQ(permission.GetPermission(100, "执行"), "允许");
  }
}

TEST(Holder, AfterDeleteObjectEverythingReadsEmptyUntilAnotherHolderComes) {
  TRecordingHost host;
  host.AlwaysAnswer("Where g.UserID", {"GroupID", "GroupName"}, {{3, "财务"}});
  GiveRights(host, {{12, 100, "执行", 1}}, {{101, "执行", 1}});
  TTolPermission permission;
  permission.SetUserID(12);
  permission.DeleteObject(1);
  for (int turn = 0; turn < 2; ++turn) {
    EXPECT_EQ(permission.GetGroupCount(), 0);
    EXPECT_EQ(permission.GetPermission(100, "执行"), "");
    EXPECT_EQ(permission.GetPermission(101, "执行"), "");
    permission.SetUserID(12);
  }
  permission.SetUserID(13);
  EXPECT_EQ(permission.GetGroupCount(), 1);
  EXPECT_EQ(permission.GetPermission(100, "执行"), "允许");
}

/// One holder with a row for each pair of what he has himself and what his roles have.
class Rights : public testing::Test {
 protected:
  Rights() {
    GiveRights(
        Host,
        {{12, 10, "打印", 1},
         {12, 11, "打印", 1},
         {12, 12, "打印", 1},
         {12, 20, "打印", 0},
         {12, 21, "打印", 0},
         {12, 22, "打印", 0},
         {12, 30, "打印", std::monostate{}}},
        {{11, "打印", 1}, {12, "打印", 0}, {21, "打印", 1}, {22, "打印", 0}, {1, "打印", 7}, {2, "打印", 0}});
    Permission.SetUserID(12);
  }
  TRecordingHost Host;
  TTolPermission Permission;
};

TEST_F(Rights, ARolesDenyIsFinalAndOtherwiseTheOwnRightCounts) {
  EXPECT_EQ(Permission.GetPermission(10, "打印"), "允许") << "own allow, no role's row";
  EXPECT_EQ(Permission.GetPermission(11, "打印"), "允许") << "own allow, role's allow";
  EXPECT_EQ(Permission.GetPermission(12, "打印"), "禁止") << "own allow, role's deny";
  EXPECT_EQ(Permission.GetPermission(20, "打印"), "禁止") << "own deny, no role's row";
  EXPECT_EQ(Permission.GetPermission(21, "打印"), "禁止") << "own deny, role's allow";
  EXPECT_EQ(Permission.GetPermission(22, "打印"), "禁止") << "own deny, role's deny";
  EXPECT_EQ(Permission.GetPermission(1, "打印"), "允许") << "role's allow";
  EXPECT_EQ(Permission.GetPermission(2, "打印"), "禁止") << "role's deny";
  EXPECT_EQ(Permission.GetPermission(3, "打印"), "") << "no rows";
  EXPECT_EQ(Permission.GetPermission(10, "删除"), "") << "another operation";
}

TEST_F(Rights, ARowWithoutAValueDenies) { EXPECT_EQ(Permission.GetPermission(30, "打印"), "禁止"); }

TEST_F(Rights, TheHoldersOwnAndThoseOfHisRolesAreToldApart) {
  EXPECT_EQ(Permission.GetUserSelfPermission(12, "打印"), "允许");
  EXPECT_EQ(Permission.GetGroupsPermission(12, "打印"), "禁止");
  EXPECT_EQ(Permission.GetUserSelfPermission(1, "打印"), "");
  EXPECT_EQ(Permission.GetGroupsPermission(10, "打印"), "");
}

TEST_F(Rights, ToTheSuperUserAllIsAllowedButGetGroupsPermissionTellsWhatTheRowsSay) {
  Host.SystemInfo().IsSuperUser = true;
  for (const int object : {10, 12, 22, 3}) {
    EXPECT_EQ(Permission.GetPermission(object, "打印"), "允许");
    EXPECT_EQ(Permission.GetUserSelfPermission(object, "打印"), "允许");
  }
  EXPECT_EQ(Permission.GetGroupsPermission(11, "打印"), "允许");
  EXPECT_EQ(Permission.GetGroupsPermission(12, "打印"), "禁止");
  EXPECT_EQ(Permission.GetGroupsPermission(3, "打印"), "");
}

TEST_F(Rights, AreAnsweredWithoutAStatement) {
  Host.Statements.clear();
  Permission.GetPermission(10, "打印");
  Permission.GetUserSelfPermission(10, "打印");
  Permission.GetGroupsPermission(10, "打印");
  EXPECT_THAT(Host.Statements, IsEmpty());
}

TEST_F(Rights, AChangeIsNotRepeatedWhileItStands) {
  Host.Statements.clear();
  Permission.SetPermission(100, "执行", true);
  Permission.SetPermission(100, "执行", true);
  EXPECT_EQ(Host.Statements.size(), 1u);
  Permission.SetPermission(100, "执行", false);
  Permission.SetPermission(100, "执行", false);
  EXPECT_EQ(Host.Statements.size(), 2u);
  Permission.SetPermission(100, "执行", true);
  EXPECT_EQ(Host.Statements.size(), 3u);
}

TEST_F(Rights, AChangeShowsOnlyAfterTheRightsAreReadAgain) {
  Permission.SetPermission(10, "打印", false);
  EXPECT_EQ(Permission.GetPermission(10, "打印"), "允许");
}

TEST_F(Rights, ChangesAreForgottenWithTheHolder) {
  Permission.SetPermission(100, "执行", true);
  Permission.SetUserID(13);
  Host.Statements.clear();
  Permission.SetPermission(100, "执行", true);
  EXPECT_THAT(Host.Texts(),
              ElementsAre("Insert Into STPermission (UserID, ObjectID, Oprate) Values (13, 100, '执行')"));
}

TEST_F(Rights, AFailingChangeIsPassedOverInSilence) {
  Host.FailStatement(1);
  EXPECT_NO_THROW(Permission.SetPermission(100, "执行", true));
  EXPECT_THAT(Host.Messages, IsEmpty());
}

TEST_F(Rights, AQuoteInAnOperationIsDoubled) {
  Host.Statements.clear();
  Permission.SetPermission(100, "o'p", true);
  EXPECT_THAT(Host.Texts(),
              ElementsAre("Insert Into STPermission (UserID, ObjectID, Oprate) Values (12, 100, 'o''p')"));
}

TEST_F(Rights, AFailingStatementOfSaveObjPerRaises) {
  for (const int failing : {1, 2}) {
    Host.FailStatement(failing);
    EXPECT_THROW(Permission.saveObjPer({100, "打印", 1}), EDatabaseError);
  }
}

TEST(SetPermission, WithoutAHolderAnAssertionFailsAndNothingIsSent) {
  TRecordingHost host;
  TTolPermission permission;
  try {
    permission.SetPermission(100, "执行", true);
    ADD_FAILURE() << "no assertion failed";
  } catch (const EAssertionFailed& failed) {
    EXPECT_STREQ(failed.what(), "尚未设置登陆用户! (src/Role/TolPermission)");
  }
  EXPECT_THAT(host.Statements, IsEmpty());
}

}  // namespace
}  // namespace zantest
