#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Domain/U_DomainFuncsImp.h"
#include "tests/support/RecordingHost.h"

namespace zantest {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace zanrole;

TEST(GetNewUserOID, OnSqlServerIsOneBatchOfFourLinesThatAlsoGivesTheResult) {
  TRecordingHost host(TDialect::SqlServer);
  host.Answer("begin", {"NewID"}, {{42}});
  EXPECT_EQ(GetNewUserOID(), 42);
  ASSERT_EQ(host.Statements.size(), 1u);
  EXPECT_EQ(host.Statements[0].Kind, "Open");
  EXPECT_EQ(host.Statements[0].Text,
            "begin\r\n"
            "insert into STUsers(OID, Creator, CreateTime, CreatorName) select IsNull(max(oid),0)+1, 12, "
            "GetDate(), "
            "'操作员' from STUsers;\r\n"
            "select max(OID) NewID from STUsers;\r\n"
            "end;");
}

TEST(GetNewUserOID, OnOracleAndMySqlIsTheLargestPlusOneAndAnInsert) {
  const std::pair<TDialect, const char*> dialects[] = {{TDialect::Oracle, "SysDate"},
                                                       {TDialect::MySql, "Now()"}};
  for (const auto& [dialect, now] : dialects) {
    TRecordingHost host(dialect);
    host.Answer("select max(OID)", {"NewID"}, {{41}});
    EXPECT_EQ(GetNewUserOID(), 42);
    EXPECT_THAT(host.Texts(),
                ElementsAre("select max(OID) NewID from STUsers",
                            "insert into STUsers(OID, Creator, CreateTime, CreatorName) values(42, 12, " +
                                std::string(now) + ", '操作员')"));
    EXPECT_EQ(host.Statements[1].Kind, "Exec");
  }
}

TEST(GetNewUserOID, OnAnEmptyTableIsOne) {
  TRecordingHost host(TDialect::MySql);
  host.Answer("select max(OID)", {"NewID"}, {{std::monostate{}}});
  EXPECT_EQ(GetNewUserOID(), 1);
}

TEST(GetNewUserOID, RecordsTheBuilderAsCreator) {
  TRecordingHost host(TDialect::Oracle);
  host.Builder = true;
  host.Answer("select max(OID)", {"NewID"}, {{41}});
  GetNewUserOID();
  EXPECT_EQ(
      host.Statements.at(1).Text,
      "insert into STUsers(OID, Creator, CreateTime, CreatorName) values(42, -1, SysDate, '[ZanBuilder]')");
}

struct TDialectWords {
  TDialect Dialect;
  const char* NullFunction;
  const char* Now;
};

constexpr TDialectWords kDialectWords[] = {
    {TDialect::SqlServer, "IsNull(", "getdate()"},
    {TDialect::Oracle, "nvl(", "sysdate"},
    {TDialect::MySql, "IfNull(", "now()"},
};

TEST(CreateNewUser, InsertsTheRowAndLooksItUpAgain) {
  for (const TDialectWords& words : kDialectWords) {
    TRecordingHost host(words.Dialect);
    host.Answer("select OID from STUsers", {"OID"}, {{43}, {99}});
    EXPECT_EQ(CreateNewUser("o'neil", "O'Neil", "", 0, 2, 1, 0), 43);
    ASSERT_EQ(host.Statements.size(), 2u);
    EXPECT_EQ(host.Statements[0].Kind, "Exec");
    EXPECT_EQ(host.Statements[0].Text,
              " insert into STUsers(OID, UserID, UserName, UserDesc, uGroup, IsAdministrator , UnUsed, "
              "EmpowermentRight, Creator, CreateTime, CreatorName) select " +
                  std::string(words.NullFunction) +
                  "max(OID),0) + 1, 'o''neil', 'O''Neil', '', 0, 2, 1, 0, 12, " + words.Now +
                  ", '操作员' from STUsers ");
    EXPECT_EQ(host.Statements[1].Text,
              "select OID from STUsers where UserID = 'o''neil' and UserName = 'O''Neil' and uGroup = 0");
  }
}

TEST(CreateNewUser, WithoutALoginOnOracleFindsItsRowThroughUserIDIsNull) {
  TRecordingHost host(TDialect::Oracle);
  host.Answer("UserID is null", {"OID"}, {{43}});
  EXPECT_EQ(CreateNewUser("", "角色", "", 1, 0, 0, 0), 43);
  EXPECT_EQ(host.Statements.at(1).Text,
            "select OID from STUsers where UserID is null and UserName = '角色' and uGroup = 1");
}

TEST(CreateNewUser, WithoutALoginOnTheOtherServersFindsItsRowByTheEmptyText) {
  for (const TDialect dialect : {TDialect::SqlServer, TDialect::MySql}) {
    TRecordingHost host(dialect);
    CreateNewUser("", "角色", "", 1, 0, 0, 0);
    EXPECT_EQ(host.Statements.at(1).Text,
              "select OID from STUsers where UserID = '' and UserName = '角色' and uGroup = 1");
  }
}

TEST(CreateNewUser, IsMinusOneWhenTheRowCannotBeFoundAgain) {
  const TRecordingHost host;
  EXPECT_EQ(CreateNewUser("a", "A", "", 0, 0, 0, 0), -1);
}

TEST(CreateNewUser, StoresAValueThatLooksLikeTheNullFunctionAsItWasEntered) {
  TRecordingHost host(TDialect::MySql);
  CreateNewUser("a", "IsNull(%s)", "", 0, 0, 0, 0);
  EXPECT_THAT(host.Statements.at(0).Text, testing::HasSubstr("'IsNull(%s)'"));
}

TEST(CreateNewUser, RecordsTheBuilderAsCreator) {
  TRecordingHost host;
  host.Builder = true;
  CreateNewUser("a", "A", "", 0, 0, 0, 1);
  EXPECT_THAT(host.Statements.at(0).Text,
              testing::HasSubstr(" 0, 0, 0, 1, -1, getdate(), '[ZanBuilder]' from"));
}

class CheckUserLimitTest : public testing::Test {
 protected:
  void Domain(int id, int parent, int limit, const char* fullName) {
    Host.AlwaysAnswer("from STDomains where ID = " + std::to_string(id),
                      {"ParentID", "UserLimit", "FullName"}, {{parent, limit, fullName}});
  }
  void Users(int id, int count) {
    Host.AlwaysAnswer("where AncestorID = " + std::to_string(id) + " )", {"UserCount"}, {{count}});
  }
  TRecordingHost Host;
  std::string OverQuota = "untouched";
};

TEST_F(CheckUserLimitTest, ReachingTheLimitExactlyPassesAndOneMoreFailsWithTheFullName) {
  Domain(7, -1, 10, "\\总部");
  Users(7, 10);
  EXPECT_TRUE(CheckUserLimit(7, 0, OverQuota));
  EXPECT_EQ(OverQuota, "untouched");
  EXPECT_FALSE(CheckUserLimit(7, 1, OverQuota));
  EXPECT_EQ(OverQuota, "\\总部");
}

TEST_F(CheckUserLimitTest, AsksForTheDomainAndForOwnedUsersAndManagersOfItsWholeSubtree) {
  Domain(7, -1, 10, "\\总部");
  Users(7, 9);
  EXPECT_TRUE(CheckUserLimit(7, 1, OverQuota));
  EXPECT_THAT(
      Host.Texts(),
      ElementsAre("select ParentID, UserLimit, FullName from STDomains where ID = 7",
                  "select count(distinct UserOID) UserCount from STDomainMembers where MemberType in (0,2) "
                  "and IsOwned = 1 and DomainID in ( select DescendantID from STDomainInherits where "
                  "AncestorID = 7 )"));
}

TEST_F(CheckUserLimitTest, AUserInAChildDomainCountsAgainstTheParentsLimitAsWell) {
  Domain(9, 7, 0, "\\总部\\分部");
  Domain(7, -1, 10, "\\总部");
  Users(7, 10);
  EXPECT_FALSE(CheckUserLimit(9, 1, OverQuota));
  EXPECT_EQ(OverQuota, "\\总部");
}

TEST_F(CheckUserLimitTest, TheLowestDomainOverQuotaIsReported) {
  Domain(9, 7, 3, "\\总部\\分部");
  Users(9, 3);
  Domain(7, -1, 10, "\\总部");
  Users(7, 10);
  EXPECT_FALSE(CheckUserLimit(9, 1, OverQuota));
  EXPECT_EQ(OverQuota, "\\总部\\分部");
}

TEST_F(CheckUserLimitTest, ADomainWithoutALimitIsNotCounted) {
  Domain(7, -1, 0, "\\总部");
  EXPECT_TRUE(CheckUserLimit(7, 100000, OverQuota));
  EXPECT_EQ(Host.Statements.size(), 1u);
}

TEST_F(CheckUserLimitTest, ANegativeNumberToAddCountsAsNone) {
  Domain(7, -1, 10, "\\总部");
  Users(7, 11);
  EXPECT_FALSE(CheckUserLimit(7, -5, OverQuota));
}

TEST_F(CheckUserLimitTest, ANegativeDomainPassesWithoutAStatement) {
  EXPECT_TRUE(CheckUserLimit(-1, 5, OverQuota));
  EXPECT_TRUE(CheckUserLimit(-100, 5, OverQuota));
  EXPECT_THAT(Host.Statements, IsEmpty());
}

TEST_F(CheckUserLimitTest, AMissingDomainPasses) { EXPECT_TRUE(CheckUserLimit(7, 5, OverQuota)); }

}  // namespace
}  // namespace zantest
