#include "Role/RoleDataProvider.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/RecordingHost.h"

namespace zantest {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using namespace zanrole;

const char* const kLargest = "Select Max(OID) as MID From STUsers";
const char* const kInsertUser =
    "Insert Into STUsers (OID, UserID, UserName, UserDesc, Password, uGroup, UnUsed , IsAdministrator, "
    "Property1, Property2, Categories , DomainUserName, Creator, CreatorName, CreateTime) Values (:OID, "
    ":UserID, :UserName, :UserDesc, :Password, :uGroup, :UnUsed , :IsAdministrator, :Property1, :Property2, "
    ":Categories , :DomainUserName, :Creator, :CreatorName, :CreateTime)";
const char* const kUpdateUser =
    "Update STUsers Set UserID=:UserID, UserName=:UserName, UserDesc=:UserDesc, uGroup=:uGroup, "
    "UnUsed=:UnUsed, IsAdministrator=:IsAdministrator, Property1=:Property1, Property2=:Property2, "
    "Categories=:Categories, DomainUserName=:DomainUserName, ModifierName=:ModifierName, "
    "ModifyTime=:ModifyTime Where OID=:OID";
const char* const kInsertStrategy =
    "INSERT INTO STUserPasswordStrategy(UserID, NeedReset, CanModify, NeverExpires) "
    "VALUES(:UserID, :NeedReset, :CanModify, :NeverExpires)";
const char* const kUpdateStrategy =
    "BEGIN Update STUserPasswordStrategy Set NeedReset = :NeedReset, CanModify = :CanModify, "
    "NeverExpires = :NeverExpires Where UserID = :UserID; ";

TZanValue Integer(int value) { return std::int64_t{value}; }

class SaveUserInfo : public testing::TestWithParam<TDialect> {
 protected:
  SaveUserInfo() {
    User.oID = 7;
    User.ID = "o'neil";
    User.Name = "李";
    User.Describe = "d";
    User.Password = "secret";
    User.Property1 = "p1";
    User.Property2 = "p2";
    User.Categories = "a\\b";
    User.DomainUserName = "domain\\li";
    User.CreateTime = Created;
    User.ModifierName = "操作员";
    User.ModifyTime = Modified;
  }

  /// What a Boolean column takes in the dialect.
  TZanValue Boolean(bool value) const {
    if (GetParam() == TDialect::SqlServer) return value;
    return Integer(value ? 1 : 0);
  }
  static TUserInfo& WithOID(TUserInfo& user, int oid) {
    user.oID = oid;
    return user;
  }

  TRecordingHost Host{GetParam()};
  TRoleDataProvider Provider;
  const TDateTime Created = TextToDateTime("2020-01-02 03:04:05");
  const TDateTime Modified = TextToDateTime("2021-01-02 03:04:05");
  TUserInfo User;
};

INSTANTIATE_TEST_SUITE_P(EachDialect, SaveUserInfo,
                         testing::Values(TDialect::SqlServer, TDialect::Oracle, TDialect::MySql));

TEST_P(SaveUserInfo, GetOIDGivesTheLargestPlusOneAndOneForAnEmptyTable) {
  Host.Answer(kLargest, {"MID"}, {{41}});
  Host.Answer(kLargest, {"MID"}, {{std::monostate{}}});
  EXPECT_EQ(Provider.GetOID(), 42);
  EXPECT_EQ(Provider.GetOID(), 1);
  EXPECT_EQ(Host.Statements[0].Text, kLargest);
  EXPECT_EQ(Host.Statements[0].Database, "data");
}

TEST_P(SaveUserInfo, ANewUserGetsANumberThenHisRowThenHisStrategy) {
  User.oID = 0;
  User.NeedReset = true;
  User.CanModify = false;
  Host.Answer(kLargest, {"MID"}, {{41}});
  Provider.SaveUserInfo(User, false, false);
  EXPECT_THAT(Host.Texts(), ElementsAre(kLargest, kInsertUser, kInsertStrategy));
  EXPECT_EQ(User.oID, 42);
  EXPECT_THAT(Host.Statements[1].Params,
              ElementsAre(Pair("OID", Integer(42)), Pair("UserID", TZanValue("o'neil")),
                          Pair("UserName", TZanValue("李")), Pair("UserDesc", TZanValue("d")),
                          Pair("Password", TZanValue("secret")), Pair("uGroup", Integer(0)),
                          Pair("UnUsed", Integer(0)), Pair("IsAdministrator", Integer(0)),
                          Pair("Property1", TZanValue("p1")), Pair("Property2", TZanValue("p2")),
                          Pair("Categories", TZanValue("a\\b")),
                          Pair("DomainUserName", TZanValue("domain\\li")), Pair("Creator", Integer(12)),
                          Pair("CreatorName", TZanValue("操作员")), Pair("CreateTime", TZanValue(Created))));
  EXPECT_THAT(Host.Statements[2].Params,
              ElementsAre(Pair("UserID", TZanValue("o'neil")), Pair("NeedReset", Boolean(true)),
                          Pair("CanModify", Boolean(false)), Pair("NeverExpires", Boolean(false))));
  for (const TRecordedStatement& statement : Host.Statements) EXPECT_EQ(statement.Database, "data");
}

TEST_P(SaveUserInfo, ANumberThatTheRecordHasAlreadyIsKept) {
  Provider.SaveUserInfo(User, false, false);
  EXPECT_THAT(Host.Texts(), ElementsAre(kInsertUser, kInsertStrategy));
  EXPECT_EQ(User.oID, 7);
}

TEST_P(SaveUserInfo, ARoleSavedAsNewGetsNoStrategyRow) {
  User.uType = utRole;
  User.uState = usUnUsed;
  User.isAdministrator = true;
  Provider.SaveUserInfo(User, false, false);
  EXPECT_THAT(Host.Texts(), ElementsAre(kInsertUser));
  EXPECT_THAT(Host.Statements[0].Params[5], Pair("uGroup", Integer(1)));
  EXPECT_THAT(Host.Statements[0].Params[6], Pair("UnUsed", Integer(1)));
  EXPECT_THAT(Host.Statements[0].Params[7], Pair("IsAdministrator", Integer(1)));
}

TEST_P(SaveUserInfo, ARecordOnceSavedIsUpdatedAtTheNextSave) {
  Provider.SaveUserInfo(User, false, false);
  EXPECT_FALSE(User.newUser);
  Host.Statements.clear();
  Provider.SaveUserInfo(User, false, false);
  EXPECT_EQ(Host.Texts().at(0), kUpdateUser);
}

TEST_P(SaveUserInfo, AnUpdateLeavesPasswordAndCreatorAlone) {
  User.newUser = false;
  User.uType = utRole;
  Provider.SaveUserInfo(User, false, false);
  EXPECT_THAT(Host.Texts(), ElementsAre(kUpdateUser));
  EXPECT_THAT(
      Host.Statements[0].Params,
      ElementsAre(Pair("UserID", TZanValue("o'neil")), Pair("UserName", TZanValue("李")),
                  Pair("UserDesc", TZanValue("d")), Pair("uGroup", Integer(1)), Pair("UnUsed", Integer(0)),
                  Pair("IsAdministrator", Integer(0)), Pair("Property1", TZanValue("p1")),
                  Pair("Property2", TZanValue("p2")), Pair("Categories", TZanValue("a\\b")),
                  Pair("DomainUserName", TZanValue("domain\\li")), Pair("ModifierName", TZanValue("操作员")),
                  Pair("ModifyTime", TZanValue(Modified)), Pair("OID", Integer(7))));
}

TEST_P(SaveUserInfo, ARecordThatWasNeverChangedHasNoTimeOfChange) {
  User.newUser = false;
  User.uType = utRole;
  User.ModifyTime = {};
  Provider.SaveUserInfo(User, false, false);
  EXPECT_THAT(Host.Statements[0].Params[11], Pair("ModifyTime", TZanValue()));
}

TEST_P(SaveUserInfo, TheStrategyOfAnExistingUserIsUpdatedOrInsertedInOneStatement) {
  User.newUser = false;
  User.NeverExpires = true;
  Provider.SaveUserInfo(User, false, false);
  ASSERT_EQ(Host.Statements.size(), 2u);
  const TRecordedStatement& strategy = Host.Statements[1];
  if (GetParam() == TDialect::MySql) {
    EXPECT_EQ(strategy.Text, "call Mysql_Update_STUserPasswordStrategy('o''neil', 0, 1, 1)");
    EXPECT_THAT(strategy.Params, IsEmpty());
    return;
  }
  const std::string insert = std::string(kInsertStrategy) + ";";
  EXPECT_EQ(strategy.Text, GetParam() == TDialect::Oracle
                               ? kUpdateStrategy + ("if SQL%ROWCOUNT = 0 then " + insert) + " end if;END;"
                               : kUpdateStrategy + ("if @@ROWCOUNT = 0 " + insert) + "END;");
  EXPECT_THAT(strategy.Params,
              ElementsAre(Pair("NeedReset", Boolean(false)), Pair("CanModify", Boolean(true)),
                          Pair("NeverExpires", Boolean(true)), Pair("UserID", TZanValue("o'neil"))));
}

TEST_P(SaveUserInfo, MembershipsOfBothSidesAreRemovedThenWrittenInOneUnquotedCall) {
  TUserInfo roles[2];
  TUserInfo members[3];
  User.newUser = false;
  User.uType = utRole;
  User.FParentList.Add(&WithOID(roles[0], 21));
  User.FParentList.Add(&WithOID(roles[1], 22));
  for (int i = 0; i < 3; ++i) User.FChildList.Add(&WithOID(members[i], 31 + i));
  Provider.SaveUserInfo(User, true, true);
  ASSERT_EQ(Host.Statements.size(), 2u);
  const bool mySql = GetParam() == TDialect::MySql;
  const std::string suffix = GetParam() == TDialect::Oracle ? " from dual " : "";
  EXPECT_EQ(Host.Statements[1].Text, std::string(mySql ? "call MySql_execute_MultiSql(" : "begin") +
                                         "\r\n"
                                         "Delete From STUserGroup Where UserID=7 or GroupID=7;\r\n"
                                         "Insert Into STUserGroup (UserID, GroupID)\r\n"
                                         "select 7, 21 " +
                                         suffix +
                                         " union all\r\n"
                                         "select 7, 22 " +
                                         suffix +
                                         ";\r\n"
                                         "Insert Into STUserGroup (UserID, GroupID)\r\n"
                                         "select 31, 7 " +
                                         suffix +
                                         " union all\r\n"
                                         "select 32, 7 " +
                                         suffix +
                                         " union all\r\n"
                                         "select 33, 7 " +
                                         suffix + ";\r\n" + (mySql ? ")" : "end;"));
  EXPECT_THAT(Host.Statements[1].Params, IsEmpty());
  EXPECT_EQ(Host.Statements[1].Kind, "Exec");
}

TEST_P(SaveUserInfo, OneParentIsASingleSelectLine) {
  TUserInfo role;
  User.uType = utRole;
  User.FParentList.Add(&WithOID(role, 21));
  Provider.SaveUserInfo(User, true, false);
  EXPECT_THAT(Host.Statements.back().Text,
              testing::HasSubstr(GetParam() == TDialect::Oracle
                                     ? "(UserID, GroupID)\r\nselect 7, 21  from dual ;\r\nend;"
                                     : "(UserID, GroupID)\r\nselect 7, 21 ;\r\n"));
}

TEST_P(SaveUserInfo, SavingTheParentsAloneDropsTheMembersToo) {
  TUserInfo role;
  TUserInfo member;
  User.uType = utRole;
  User.FParentList.Add(&WithOID(role, 21));
  User.FChildList.Add(&WithOID(member, 31));
  Provider.SaveUserInfo(User, true, false);
  const std::string& text = Host.Statements.back().Text;
  EXPECT_THAT(text, testing::HasSubstr("UserID=7 or GroupID=7;"));
  EXPECT_THAT(text, testing::HasSubstr("select 7, 21"));
  EXPECT_THAT(text, testing::Not(testing::HasSubstr("31")));
}

TEST_P(SaveUserInfo, SavingTheMembersAloneLeavesTheParentsOut) {
  TUserInfo role;
  TUserInfo member;
  User.uType = utRole;
  User.FParentList.Add(&WithOID(role, 21));
  User.FChildList.Add(&WithOID(member, 31));
  Provider.SaveUserInfo(User, false, true);
  const std::string& text = Host.Statements.back().Text;
  EXPECT_THAT(text, testing::HasSubstr("select 31, 7"));
  EXPECT_THAT(text, testing::Not(testing::HasSubstr("21")));
}

TEST_P(SaveUserInfo, EmptyListsOnlyRemove) {
  User.uType = utRole;
  Provider.SaveUserInfo(User, true, true);
  EXPECT_EQ(Host.Statements.back().Text,
            GetParam() == TDialect::MySql
                ? "call MySql_execute_MultiSql(\r\nDelete From STUserGroup Where UserID=7 or GroupID=7;\r\n)"
                : "begin\r\nDelete From STUserGroup Where UserID=7 or GroupID=7;\r\nend;");
}

TEST_P(SaveUserInfo, AStatementThatFailsRaisesAndThoseBeforeItStayRun) {
  TUserInfo role;
  User.oID = 0;
  User.FParentList.Add(&WithOID(role, 21));
  for (const int failing : {1, 2, 3, 4}) {
    User.oID = 0;
    User.newUser = true;
    Host.Statements.clear();
    Host.BusyCalls.clear();
    Host.FailStatement(failing);
    EXPECT_THROW(Provider.SaveUserInfo(User, true, false), EDatabaseError);
    EXPECT_EQ(Host.Statements.size(), static_cast<std::size_t>(failing));
    EXPECT_EQ(User.newUser, failing <= 2) << "the row is inserted by the second statement";
    EXPECT_THAT(Host.BusyCalls, ElementsAre(true, false));
  }
}

TEST_P(SaveUserInfo, TheWaitCursorIsOnForItsLength) {
  Provider.SaveUserInfo(User, false, false);
  EXPECT_THAT(Host.BusyCalls, ElementsAre(true, false));
}

}  // namespace
}  // namespace zantest
