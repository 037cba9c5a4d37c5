#include "Role/RightReasons.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Frame/Package.h"
#include "tests/support/RecordingHost.h"

// The effective right of the logged-in user (12), told with its reason.

namespace zantest {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using namespace zanrole;

const char* const kOwnRows =
    "Select UserID, Permission From STPermission "
    "Where UserID = :UserID And ObjectID = :ObjectID And Oprate = :Oprate";
const char* const kRowsOfRoles =
    "Select p.UserID, p.Permission, r.UserName From STPermission p left join STUsers r on r.OID = p.UserID "
    "Where p.ObjectID = :ObjectID And p.Oprate = :Oprate "
    "And p.UserID in (Select GroupID From STUserGroup Where UserID = :UserID) order by p.UserID";

const TZanValue kNull;

TZanValue Integer(int value) { return std::int64_t{value}; }

class ReasonInEachDialect : public testing::TestWithParam<TDialect> {
 protected:
  TRecordingHost Host{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(EachDialect, ReasonInEachDialect,
                         testing::Values(TDialect::SqlServer, TDialect::Oracle, TDialect::MySql));

TEST_P(ReasonInEachDialect, AsksForTheOwnRowsAndThoseOfTheRoles) {
  ZanroleEntries()->ExplainRight(100, "打'印");
  EXPECT_THAT(Host.Texts(), ElementsAre(kOwnRows, kRowsOfRoles));
  EXPECT_THAT(Host.Statements[0].Params,
              ElementsAre(Pair("UserID", Integer(12)), Pair("ObjectID", Integer(100)),
                          Pair("Oprate", TZanValue("打'印"))));
  EXPECT_THAT(Host.Statements[1].Params,
              ElementsAre(Pair("ObjectID", Integer(100)), Pair("Oprate", TZanValue("打'印")),
                          Pair("UserID", Integer(12))));
  for (const TRecordedStatement& statement : Host.Statements) {
    EXPECT_EQ(statement.Database, "data");
    EXPECT_EQ(statement.Kind, "Open");
  }
}

/// Rows as the statements give them.
class Reason : public testing::Test {
 protected:
  void Own(const std::vector<TZanValue>& values) {
    std::vector<std::vector<TZanValue>> rows;
    for (const TZanValue& value : values) rows.push_back({Integer(12), value});
    Host.Answer("Where UserID = :UserID And ObjectID", {"UserID", "Permission"}, rows);
  }
  void OfRoles(const std::vector<std::vector<TZanValue>>& rows) {
    Host.Answer("left join STUsers", {"UserID", "Permission", "UserName"}, rows);
  }
  TRightReason Explain() { return ExplainRight(100, "打印"); }

  /// Whether each row decides.
  static std::vector<bool> Decides(const TRightReason& reason) {
    std::vector<bool> decides;
    for (const TRightRow& row : reason.Rows) decides.push_back(row.Decides);
    return decides;
  }

  TRecordingHost Host;
};

TEST_F(Reason, NothingSetCountsAsNotAllowed) {
  const TRightReason reason = Explain();
  EXPECT_EQ(reason.Right, "");
  EXPECT_FALSE(reason.IsSuperUser);
  EXPECT_THAT(reason.Rows, IsEmpty());
  EXPECT_THAT(reason.Sentences, ElementsAre("用户和他的角色都没有设置这项权限，视为不允许。"));
}

TEST_F(Reason, TheOwnRightCountsBeforeThatOfTheRoles) {
  Own({1});
  OfRoles({{3, 1, "会计 "}});
  const TRightReason reason = Explain();
  EXPECT_EQ(reason.Right, "允许");
  EXPECT_THAT(Decides(reason), ElementsAre(true, false));
  EXPECT_THAT(reason.Sentences, ElementsAre("用户自己的权限为“允许”，角色没有禁止。",
                                            "角色“会计”的权限为“允许”，但用户自己的权限优先。"));
}

TEST_F(Reason, ARowTellsItsHolderAndItsRight) {
  Own({0});
  OfRoles({{3, 7, "会计 "}});
  const TRightReason reason = Explain();
  ASSERT_EQ(reason.Rows.size(), 2u);
  EXPECT_EQ(reason.Rows[0].HolderOID, 12);
  EXPECT_EQ(reason.Rows[0].HolderLogin, "operator");
  EXPECT_EQ(reason.Rows[0].HolderName, "操作员");
  EXPECT_FALSE(reason.Rows[0].IsRole);
  EXPECT_EQ(reason.Rows[0].Right, "禁止");
  EXPECT_EQ(reason.Rows[1].HolderOID, 3);
  EXPECT_EQ(reason.Rows[1].HolderLogin, "");
  EXPECT_EQ(reason.Rows[1].HolderName, "会计");
  EXPECT_TRUE(reason.Rows[1].IsRole);
  EXPECT_EQ(reason.Rows[1].Right, "允许");
}

TEST_F(Reason, ADenialByRolesIsFinalAndEveryRoleThatDeniesIsTold) {
  Own({1});
  OfRoles({{3, 0, "会计"}, {4, 1, "仓库"}, {5, 0, kNull}});
  const TRightReason reason = Explain();
  EXPECT_EQ(reason.Right, "禁止");
  EXPECT_THAT(Decides(reason), ElementsAre(false, true, false, true));
  EXPECT_THAT(reason.Sentences, ElementsAre("角色“会计”的权限为“禁止”，角色的禁止不可推翻。",
                                            "角色“5”的权限为“禁止”，角色的禁止不可推翻。",
                                            "用户自己的权限为“允许”，但角色的禁止不可推翻。",
                                            "角色“仓库”的权限为“允许”，但另一个角色的禁止不可推翻。"));
}

TEST_F(Reason, EveryRoleThatAllowsDecidesWhenTheUserHasNoRightOfHisOwn) {
  OfRoles({{3, 1, "会计"}, {4, 7, "仓库"}});
  const TRightReason reason = Explain();
  EXPECT_EQ(reason.Right, "允许");
  EXPECT_THAT(Decides(reason), ElementsAre(true, true));
  EXPECT_THAT(reason.Sentences, ElementsAre("角色“会计”的权限为“允许”，用户自己没有设置，角色没有禁止。",
                                            "角色“仓库”的权限为“允许”，用户自己没有设置，角色没有禁止。"));
}

TEST_F(Reason, OfSeveralOwnRowsTheFirstCounts) {
  Own({1, 0, 1});
  const TRightReason reason = Explain();
  EXPECT_EQ(reason.Right, "允许");
  EXPECT_THAT(Decides(reason), ElementsAre(true, false, false));
  EXPECT_THAT(reason.Sentences, ElementsAre("用户自己的权限为“允许”，角色没有禁止。",
                                            "用户自己还有一条权限为“禁止”，但只有第一条起作用。",
                                            "用户自己还有一条权限为“允许”，但只有第一条起作用。"));
}

TEST_F(Reason, AnOwnRowWithoutAValueDenies) {
  Own({kNull, 1});
  const TRightReason reason = Explain();
  EXPECT_EQ(reason.Right, "禁止");
  EXPECT_EQ(reason.Rows[0].Right, "");
  EXPECT_THAT(reason.Sentences,
              ElementsAre("用户自己的权限为“没有值”，角色没有禁止。",
                          "用户自己还有一条权限为“允许”，但只有第一条起作用。", "没有值的权限视为禁止。"));
}

TEST_F(Reason, ARowOfARoleWithoutAValueTakesNoPartBesideOthers) {
  OfRoles({{3, kNull, "会计"}, {4, 1, "仓库"}});
  const TRightReason reason = Explain();
  EXPECT_EQ(reason.Right, "允许");
  EXPECT_THAT(Decides(reason), ElementsAre(false, true));
  EXPECT_THAT(reason.Sentences, ElementsAre("角色“仓库”的权限为“允许”，用户自己没有设置，角色没有禁止。",
                                            "角色“会计”的权限为“没有值”，有其他角色的权限时不起作用。"));
}

TEST_F(Reason, RowsOfRolesThatAreAllWithoutAValueDeny) {
  Own({1});
  OfRoles({{3, kNull, "会计"}, {3, kNull, "会计"}});
  const TRightReason reason = Explain();
  EXPECT_EQ(reason.Right, "禁止");
  EXPECT_THAT(Decides(reason), ElementsAre(false, true, true));
  EXPECT_EQ(reason.Sentences.back(), "没有值的权限视为禁止。");
}

TEST_F(Reason, TheSmallestValueOfTheRolesCountsAlsoBelowZero) {
  OfRoles({{3, 0, "会计"}, {4, -1, "仓库"}});
  const TRightReason reason = Explain();
  EXPECT_EQ(reason.Right, "允许");
  EXPECT_THAT(Decides(reason), ElementsAre(false, true));
  EXPECT_THAT(reason.Sentences,
              ElementsAre("角色“仓库”的权限为“允许”，用户自己没有设置，角色没有禁止。",
                          "角色“会计”的权限为“禁止”，但各角色的值以最小的为准，它表示允许。"));
}

TEST_F(Reason, NoRowDecidesForTheSuperUser) {
  Host.SystemInfo().IsSuperUser = true;
  Own({0});
  OfRoles({{3, 0, "会计"}});
  const TRightReason reason = Explain();
  EXPECT_EQ(reason.Right, "允许");
  EXPECT_TRUE(reason.IsSuperUser);
  EXPECT_THAT(Decides(reason), ElementsAre(false, false));
  EXPECT_THAT(reason.Sentences,
              ElementsAre("用户是超级用户，拥有一切权限。", "用户自己的权限为“禁止”，对超级用户不起作用。",
                          "角色“会计”的权限为“禁止”，对超级用户不起作用。"));
}

}  // namespace
}  // namespace zantest
