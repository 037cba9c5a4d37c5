#include "Role/RoleDataProvider.h"
#include "Role/TolPermission.h"
#include "tests/conformance/Conformance.h"

// The rights of a holder (12, with the roles 3 and 4) as they follow from rows.

namespace zantest {

using namespace zanrole;

namespace {

/// Fills the tables of a conformance case.
class TRightRows {
 public:
  explicit TRightRows(zanhost::TDatabase& database) : FDatabase(database) {
    for (const int role : {3, 4, 5})
      Run("insert into STUsers(OID, UserName, uGroup) values(" + std::to_string(role) + ", 'role', 1)");
  }
  void Member(int member, int role) {
    Run("insert into STUserGroup(UserID, GroupID) values(" + std::to_string(member) + ", " +
        std::to_string(role) + ")");
  }
  void Right(int holder, int object, const std::string& permission) {
    Run("insert into STPermission(UserID, ObjectID, Oprate, Permission) values(" + std::to_string(holder) +
        ", " + std::to_string(object) + ", '打印', " + permission + ")");
  }

 private:
  void Run(const std::string& text) { ExecStatement(*FDatabase.GetQuery(), text); }
  zanhost::TDatabase& FDatabase;
};

}  // namespace

TEST_P(Conformance, Permissions_ADenyOfARoleIsFinalAndOtherwiseTheOwnRightCounts) {
  Engine().InstallSchema();
  TRightRows rows(Database());
  rows.Member(12, 3);
  rows.Right(12, 100, "1");
  rows.Right(12, 101, "1");
  rows.Right(3, 101, "0");
  rows.Right(12, 102, "0");
  rows.Right(3, 102, "1");
  rows.Right(3, 103, "1");
  rows.Right(12, 104, "7");
  rows.Right(9, 105, "1");
  TTolPermission permission;
  permission.SetUserID(12);
  EXPECT_EQ(permission.GetPermission(100, "打印"), "允许");
  EXPECT_EQ(permission.GetPermission(101, "打印"), "禁止");
  EXPECT_EQ(permission.GetPermission(102, "打印"), "禁止");
  EXPECT_EQ(permission.GetPermission(103, "打印"), "允许");
  EXPECT_EQ(permission.GetPermission(104, "打印"), "允许");
  EXPECT_EQ(permission.GetPermission(105, "打印"), "");
  EXPECT_EQ(permission.GetPermission(100, "删除"), "");
}

TEST_P(Conformance, Permissions_OneRolesDenyBeatsAnyNumberOfAllows) {
  Engine().InstallSchema();
  TRightRows rows(Database());
  rows.Member(12, 3);
  rows.Member(12, 4);
  rows.Right(3, 100, "1");
  rows.Right(4, 100, "0");
  rows.Right(3, 101, "1");
  rows.Right(4, 101, "null");
  rows.Right(3, 102, "null");
  TTolPermission permission;
  permission.SetUserID(12);
  EXPECT_EQ(permission.GetGroupsPermission(100, "打印"), "禁止");
  EXPECT_EQ(permission.GetGroupsPermission(101, "打印"), "允许") << "a null takes no part";
  EXPECT_EQ(permission.GetGroupsPermission(102, "打印"), "禁止") << "nothing but a null";
}

TEST_P(Conformance, Permissions_ARoleOfARoleGivesNoRight) {
  Engine().InstallSchema();
  TRightRows rows(Database());
  rows.Member(12, 3);
  rows.Member(3, 5);
  rows.Right(5, 100, "1");
  TTolPermission permission;
  permission.SetUserID(12);
  EXPECT_EQ(permission.GetPermission(100, "打印"), "");
  permission.SetUserID(3);
  EXPECT_EQ(permission.GetPermission(100, "打印"), "允许");
}

TEST_P(Conformance, Permissions_MembershipsThatWereSavedGiveTheirRights) {
  Engine().InstallSchema();
  TRightRows rows(Database());
  rows.Right(3, 100, "1");
  TUserInfo role;
  role.oID = 3;
  TUserInfo user;
  user.oID = 12;
  user.ID = "li";
  user.FParentList.Add(&role);
  TRoleDataProvider().SaveUserInfo(user, true, true);
  TTolPermission permission;
  permission.SetUserID(12);
  EXPECT_EQ(permission.GetPermission(100, "打印"), "允许");
  EXPECT_EQ(permission.GetGroupCount(), 1);
  EXPECT_EQ(permission.GetGroupIDs(0), 3);
}

TEST_P(Conformance, Permissions_SaveObjPerInsertsUpdatesAndDeletes) {
  Engine().InstallSchema();
  TTolPermission permission;
  permission.SetUserID(12);
  const auto stored = [&] { return Rows("select UserID, ObjectID, Oprate, Permission from STPermission"); };
  permission.saveObjPer({100, "打印", 1});
  EXPECT_EQ(stored(), (std::vector<TTextRow>{{"12", "100", "打印", "1"}}));
  permission.saveObjPer({100, "打印", 0});
  EXPECT_EQ(stored(), (std::vector<TTextRow>{{"12", "100", "打印", "0"}}));
  permission.LoadAllPermissions();
  EXPECT_EQ(permission.GetPermission(100, "打印"), "禁止");
  permission.DeleteObjPer({100, "打印", 0});
  EXPECT_EQ(stored(), std::vector<TTextRow>{});
}

TEST_P(Conformance, Permissions_SetPermissionAllowsByTheColumnsDefaultAndTakesAwayFromTheLegacyTable) {
  Engine().InstallSchema();
  Exec("insert into Permission(UserID, ObjectID, Oprate, Permission) values(12, 100, '打印', 1)");
  TTolPermission permission;
  permission.SetUserID(12);
  permission.SetPermission(100, "打印", true);
  permission.LoadAllPermissions();
  EXPECT_EQ(permission.GetPermission(100, "打印"), "允许");
  permission.SetPermission(100, "打印", false);
  permission.LoadAllPermissions();
  EXPECT_EQ(permission.GetPermission(100, "打印"), "允许") << "STPermission stays as it was";
  EXPECT_EQ(Cell("select count(*) from Permission"), "0");
}

TEST_P(Conformance, Permissions_AChangeThatFailsIsPassedOverAndTheSessionGoesOn) {
  Engine().InstallSchema();
  TRightRows rows(Database());
  rows.Right(12, 100, "0");
  TTolPermission permission;
  permission.SetUserID(12);
  permission.SetPermission(100, "打印", true);
  EXPECT_EQ(Cell("select Permission from STPermission"), "0");
  permission.SetPermission(101, "打印", true);
  EXPECT_EQ(Cell("select count(*) from STPermission"), "2");
}

TEST_P(Conformance, Permissions_LoadPermissionListAsksTheHolderAndHisRoles) {
  Engine().InstallSchema();
  TRightRows rows(Database());
  rows.Member(12, 3);
  const auto menu = [&](int holder, int object, int permission) {
    Exec("insert into STPermission(UserID, ObjectID, Oprate, Permission) values(" + std::to_string(holder) +
         ", " + std::to_string(object) + ", '执行', " + std::to_string(permission) + ")");
  };
  menu(3, 100, 1);
  menu(12, 101, 1);
  menu(3, 101, 0);
  menu(4, 102, 1);
  TTolPermission permission;
  permission.SetUserID(12);
  EXPECT_TRUE(permission.LoadPermissionList(100));
  EXPECT_FALSE(permission.LoadPermissionList(101));
  EXPECT_FALSE(permission.LoadPermissionList(102));
}

}  // namespace zantest
