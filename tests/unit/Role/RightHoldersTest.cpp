#include "Role/RightHolders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "Frame/Package.h"
#include "tests/support/RecordingHost.h"

// Who has a right set, page by page.

namespace zantest {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using namespace zanrole;

const char* const kUsers =
    "Select OID, UserID, UserName, UnUsed, IsAdministrator From "
    "(Select OID, UserID, UserName, UnUsed, IsAdministrator, Row_Number() over (order by OID) as Place "
    "From STUsers Where uGroup = 0 And OID > :AfterOID And (IsAdministrator = 1 "
    "Or OID in (Select UserID From STPermission Where ObjectID = :ObjectID And Oprate = :Oprate) "
    "Or OID in (Select g.UserID From STUserGroup g, STPermission p "
    "Where p.UserID = g.GroupID And p.ObjectID = :ObjectID And p.Oprate = :Oprate))) u "
    "Where Place <= :LastPlace order by OID";
const char* const kOwnRows =
    "Select UserID, Permission From STPermission Where ObjectID = :ObjectID And Oprate = :Oprate "
    "And UserID > :AfterOID And UserID <= :LastOID";
const char* const kRowsOfRoles =
    "Select p.UserID, p.Permission, r.UserName From STPermission p left join STUsers r on r.OID = p.UserID "
    "Where p.ObjectID = :ObjectID And p.Oprate = :Oprate "
    "And (r.uGroup = 1 Or p.UserID in (Select GroupID From STUserGroup)) order by p.UserID";
const char* const kMemberships =
    "Select UserID, GroupID From STUserGroup Where UserID > :AfterOID And UserID <= :LastOID "
    "And GroupID in (Select UserID From STPermission Where ObjectID = :ObjectID And Oprate = :Oprate)";

TZanValue Integer(std::int64_t value) { return value; }

void AnswerUsers(TRecordingHost& host, const std::vector<std::vector<TZanValue>>& users) {
  host.Answer("over (order by OID)", {"OID", "UserID", "UserName", "UnUsed", "IsAdministrator"}, users);
}

class HoldersInEachDialect : public testing::TestWithParam<TDialect> {
 protected:
  TRecordingHost Host{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(EachDialect, HoldersInEachDialect,
                         testing::Values(TDialect::SqlServer, TDialect::Oracle, TDialect::MySql));

TEST_P(HoldersInEachDialect, AsksForThePageItsRowsThoseOfRolesAndTheMemberships) {
  AnswerUsers(Host, {{20, "li", "李", 0, 0}, {30, "wang", "王", 0, 0}});
  ZanroleEntries()->RightHolders(100, "打'印", 7, 2);
  EXPECT_THAT(Host.Texts(), ElementsAre(kUsers, kOwnRows, kRowsOfRoles, kMemberships));
  const auto objectID = Pair("ObjectID", Integer(100));
  const auto oprate = Pair("Oprate", TZanValue("打'印"));
  EXPECT_THAT(Host.Statements[0].Params,
              ElementsAre(Pair("AfterOID", Integer(7)), objectID, oprate, Pair("LastPlace", Integer(3))));
  EXPECT_THAT(Host.Statements[1].Params,
              ElementsAre(objectID, oprate, Pair("AfterOID", Integer(7)), Pair("LastOID", Integer(30))));
  EXPECT_THAT(Host.Statements[2].Params, ElementsAre(objectID, oprate));
  EXPECT_THAT(Host.Statements[3].Params,
              ElementsAre(Pair("AfterOID", Integer(7)), Pair("LastOID", Integer(30)), objectID, oprate));
  for (const TRecordedStatement& statement : Host.Statements) {
    EXPECT_EQ(statement.Database, "data");
    EXPECT_EQ(statement.Kind, "Open");
  }
}

TEST_P(HoldersInEachDialect, AnEmptyPageAsksForTheRowsOfRolesAlone) {
  const TRightHolders holders = ReadRightHolders(100, "打印", 7, 2);
  EXPECT_THAT(Host.Texts(), ElementsAre(kUsers, kRowsOfRoles));
  EXPECT_THAT(holders.Users, IsEmpty());
  EXPECT_THAT(holders.Rows, IsEmpty());
  EXPECT_FALSE(holders.HasMore);
}

TEST(RightHolders, OneUserMoreThanThePageHoldsTellsThatThereAreMore) {
  TRecordingHost host;
  AnswerUsers(host, {{20, "li", "李", 0, 0}, {30, "wang", "王", 0, 0}});
  const TRightHolders page = ReadRightHolders(100, "打印", 0, 1);
  ASSERT_EQ(page.Users.size(), 1u);
  EXPECT_EQ(page.Users[0].OID, 20);
  EXPECT_TRUE(page.HasMore);
}

TEST(RightHolders, ThePageMayBeAsLargeAsAnIntegerTells) {
  TRecordingHost host;
  AnswerUsers(host, {{20, "li", "李", 0, 0}});
  const int largest = std::numeric_limits<int>::max();
  EXPECT_FALSE(ReadRightHolders(100, "打印", 0, largest).HasMore);
  EXPECT_EQ(host.Statements[0].Params.back().second, Integer(std::int64_t{largest} + 1));
}

TEST(RightHolders, AUserHasTheRightThatFollowsFromHisRowsAndThoseOfHisRoles) {
  TRecordingHost host;
  AnswerUsers(host, {{20, "li", "李 ", 0, 0}, {21, "wang", "王", 1, 0}, {22, "root", "管理员", 2, 1}});
  host.Answer("And UserID > :AfterOID", {"UserID", "Permission"}, {{21, 1}, {20, 0}, {20, 1}});
  host.Answer("left join STUsers", {"UserID", "Permission", "UserName"},
              {{3, 1, "会计 "}, {4, 0, TZanValue()}});
  host.Answer("Select UserID, GroupID", {"UserID", "GroupID"}, {{21, 4}, {20, 3}, {22, 4}});
  const TRightHolders holders = ReadRightHolders(100, "打印", 0, 10);
  ASSERT_EQ(holders.Users.size(), 3u);
  EXPECT_EQ(holders.Users[0].Login, "li");
  EXPECT_EQ(holders.Users[0].Name, "李");
  EXPECT_EQ(holders.Users[0].Right, "禁止") << "the first of his own";
  EXPECT_FALSE(holders.Users[0].IsDisabled);
  EXPECT_EQ(holders.Users[1].Right, "禁止") << "his role denies";
  EXPECT_TRUE(holders.Users[1].IsDisabled);
  EXPECT_EQ(holders.Users[2].Right, "允许") << "a super user";
  EXPECT_TRUE(holders.Users[2].IsSuperUser);
  EXPECT_FALSE(holders.Users[2].IsDisabled) << "an account that a superior server governs";
}

TEST(RightHolders, RowsAreThoseOfTheUsersAndThenThoseOfRoles) {
  TRecordingHost host;
  AnswerUsers(host, {{20, "li", "李", 0, 0}, {21, "wang", "王", 0, 0}});
  host.Answer("And UserID > :AfterOID", {"UserID", "Permission"},
              {{21, 1}, {19, 1}, {20, TZanValue()}, {20, 1}});
  host.Answer("left join STUsers", {"UserID", "Permission", "UserName"}, {{3, 0, "会计"}});
  std::vector<std::string> rows;
  for (const TRightRow& row : ReadRightHolders(100, "打印", 0, 10).Rows) {
    EXPECT_FALSE(row.Decides);
    rows.push_back(std::to_string(row.HolderOID) + (row.IsRole ? " role " : " user ") + row.HolderLogin +
                   " " + row.HolderName + " " + row.Right);
  }
  EXPECT_THAT(
      rows, ElementsAre("20 user li 李 ", "20 user li 李 允许", "21 user wang 王 允许", "3 role  会计 禁止"));
}

}  // namespace
}  // namespace zantest
