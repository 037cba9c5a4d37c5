#include "Role/RoleDataProvider.h"
#include "Role/UserPassword.h"
#include "tests/conformance/Conformance.h"

// Users and roles as they are stored: rows, password strategy, memberships.

namespace zantest {

using namespace zanrole;

namespace {

/// A record with a number and a name, yet to be stored.
class TNamedUser : public TUserInfo {
 public:
  TNamedUser(int oid, const std::string& login, TUserType type = utUser) {
    oID = oid;
    ID = login;
    Name = login;
    uType = type;
  }
};

constexpr const char* kStrategies =
    "select UserID, NeedReset, CanModify, NeverExpires from STUserPasswordStrategy order by UserID";
constexpr const char* kMemberships = "select UserID, GroupID from STUserGroup order by UserID, GroupID";

/// Booleans are told as a bit by one engine, as a number by another.
std::vector<TTextRow> WithTruths(std::vector<TTextRow> rows) {
  for (TTextRow& row : rows)
    for (std::string& cell : row)
      if (cell == "True" || cell == "False") cell = cell == "True" ? "1" : "0";
  return rows;
}

}  // namespace

TEST_P(Conformance, UserRecords_ANewUserGetsTheNextNumberHisRowAndHisStrategy) {
  Engine().InstallSchema();
  Exec("insert into STUsers(OID, UserID, uGroup) values(41, 'before', 0)");
  TUserInfo user;
  user.ID = "o'neil";
  user.Name = "欧 \\ 尼尔";
  user.Password = "plain";
  user.Categories = "总部\\财务";
  user.CreateTime = TextToDateTime("2020-01-02 03:04:05");
  user.NeverExpires = true;
  TRoleDataProvider().SaveUserInfo(user, true, true);
  EXPECT_EQ(user.oID, 42);
  EXPECT_EQ(
      Rows("select OID, UserID, UserName, Password, uGroup, UnUsed, IsAdministrator, Categories, Creator, "
           "CreatorName from STUsers where OID = 42"),
      (std::vector<TTextRow>{
          {"42", "o'neil", "欧 \\ 尼尔", "plain", "0", "0", "0", "总部\\财务", "12", "操作员"}}));
  const auto query = Query();
  OpenStatement(*query, "select CreateTime from STUsers where OID = 42");
  EXPECT_EQ(query->Fields(0).AsDateTime(), user.CreateTime);
  EXPECT_EQ(WithTruths(Rows(kStrategies)), (std::vector<TTextRow>{{"o'neil", "0", "1", "1"}}));
}

TEST_P(Conformance, UserRecords_TheFirstNumberIsOneAndARoleHasNoStrategy) {
  Engine().InstallSchema();
  TUserInfo role;
  role.Name = "财务";
  role.uType = utRole;
  TRoleDataProvider().SaveUserInfo(role, false, false);
  EXPECT_EQ(Rows("select OID, UserName, uGroup from STUsers"), (std::vector<TTextRow>{{"1", "财务", "1"}}));
  EXPECT_EQ(Cell("select count(*) from STUserPasswordStrategy"), "0");
}

TEST_P(Conformance, UserRecords_AChangeLeavesThePasswordAndNotesWhoAndWhen) {
  Engine().InstallSchema();
  TNamedUser user(7, "li");
  user.Password = "stored";
  TRoleDataProvider provider;
  provider.SaveUserInfo(user, false, false);
  user.Name = "李";
  user.Password = "not to be written";
  user.uState = usUnUsed;
  user.NeedReset = true;
  user.ModifierName = "操作员";
  user.ModifyTime = TextToDateTime("2021-01-02 03:04:05");
  provider.SaveUserInfo(user, false, false);
  EXPECT_EQ(Rows("select UserName, Password, UnUsed, ModifierName from STUsers"),
            (std::vector<TTextRow>{{"李", "stored", "1", "操作员"}}));
  EXPECT_EQ(WithTruths(Rows(kStrategies)), (std::vector<TTextRow>{{"li", "1", "1", "0"}}));
}

TEST_P(Conformance, UserRecords_AUserWithoutAStrategyRowGetsOneAtTheNextSave) {
  Engine().InstallSchema();
  Exec("insert into STUsers(OID, UserID, uGroup) values(7, 'o''neil', 0)");
  Exec("insert into STUsers(OID, UserID, uGroup) values(8, 'li', 0)");
  Exec("insert into STUserPasswordStrategy(UserID, NeedReset) values('li', 1)");
  TNamedUser user(7, "o'neil");
  user.newUser = false;
  user.CanModify = false;
  TRoleDataProvider().SaveUserInfo(user, false, false);
  EXPECT_EQ(WithTruths(Rows(kStrategies)),
            (std::vector<TTextRow>{{"li", "1", "1", "0"}, {"o'neil", "0", "0", "0"}}));
}

TEST_P(Conformance, UserRecords_AStrategyThatStaysAsItIsIsNotInsertedASecondTime) {
  Engine().InstallSchema();
  TNamedUser user(7, "li");
  TRoleDataProvider provider;
  provider.SaveUserInfo(user, false, false);
  provider.SaveUserInfo(user, false, false);
  EXPECT_EQ(Cell("select count(*) from STUserPasswordStrategy"), "1");
}

TEST_P(Conformance, UserRecords_MembershipsOfBothSidesAreReplaced) {
  Engine().InstallSchema();
  Exec("insert into STUserGroup(UserID, GroupID) values(7, 20)");
  Exec("insert into STUserGroup(UserID, GroupID) values(30, 7)");
  Exec("insert into STUserGroup(UserID, GroupID) values(30, 20)");
  TNamedUser role(7, "role", utRole);
  TNamedUser parents[2] = {{21, "a", utRole}, {22, "b", utRole}};
  TNamedUser members[3] = {{31, "c"}, {32, "d"}, {33, "e"}};
  for (TUserInfo& parent : parents) role.FParentList.Add(&parent);
  for (TUserInfo& member : members) role.FChildList.Add(&member);
  TRoleDataProvider().SaveUserInfo(role, true, true);
  EXPECT_EQ(
      Rows(kMemberships),
      (std::vector<TTextRow>{{"7", "21"}, {"7", "22"}, {"30", "20"}, {"31", "7"}, {"32", "7"}, {"33", "7"}}));
}

TEST_P(Conformance, UserRecords_SavingOneSideAloneDropsTheOther) {
  Engine().InstallSchema();
  Exec("insert into STUserGroup(UserID, GroupID) values(30, 7)");
  TNamedUser role(7, "role", utRole);
  TNamedUser parent(21, "a", utRole);
  role.FParentList.Add(&parent);
  TRoleDataProvider provider;
  provider.SaveUserInfo(role, true, false);
  EXPECT_EQ(Rows(kMemberships), (std::vector<TTextRow>{{"7", "21"}}));
  role.FParentList.Clear();
  provider.SaveUserInfo(role, false, false);
  EXPECT_EQ(Rows(kMemberships), (std::vector<TTextRow>{{"7", "21"}}));
  provider.SaveUserInfo(role, false, true);
  EXPECT_EQ(Cell("select count(*) from STUserGroup"), "0");
}

TEST_P(Conformance, UserRecords_TheKeyRejectsANumberThatIsTaken) {
  Engine().InstallSchema();
  Exec("insert into STUsers(OID, UserID, uGroup) values(7, 'wang', 0)");
  TNamedUser user(7, "li");
  EXPECT_THROW(TRoleDataProvider().SaveUserInfo(user, false, false), EDatabaseError);
  EXPECT_TRUE(user.newUser);
  EXPECT_EQ(Cell("select count(*) from STUserPasswordStrategy"), "0");
}

TEST_P(Conformance, UserRecords_SavePasswordTwiceStoresTheSameValue) {
  Engine().InstallSchema();
  TRecordingServices services;
  TNamedUser user(7, "li");
  user.Password = "it's; a \\secret";
  TRoleDataProvider().SaveUserInfo(user, false, false);
  EXPECT_EQ(Cell("select Password from STUsers"), "it's; a \\secret");
  for (int turn = 0; turn < 2; ++turn) {
    SavePassword(user);
    EXPECT_EQ(user.Password, "enc(li:it's; a \\secret)");
    EXPECT_EQ(Cell("select Password from STUsers"), user.Password);
  }
  EXPECT_EQ(Cell("select count(*) from STUserPasswordStrategy where LastModifyTime is not null"), "1");
}

}  // namespace zantest
