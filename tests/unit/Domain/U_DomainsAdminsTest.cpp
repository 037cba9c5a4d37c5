#include "tests/unit/Domain/DomainsFixture.h"

namespace zantest {
namespace {

using namespace zanrole;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const std::vector<std::string> kAccountColumns = {"OID",          "UserID",    "UserName",    "UserDesc",
                                                  "UnUsed",       "Creator",   "CreatorName", "CreateTime",
                                                  "ModifierName", "ModifyTime"};

std::vector<std::string> Titles(const TListView& list) {
  std::vector<std::string> titles;
  for (const TListColumn& column : list.Columns) titles.push_back(column.Title);
  return titles;
}

std::vector<std::string> Names(const TListView& list) {
  std::vector<std::string> names;
  for (int row = 0; row < list.RowCount(); ++row) names.push_back(list.OnRow(row).Cells[0]);
  return names;
}

/// Two managers of the domain 5, read when it is selected.
class TManagerListTest : public TDomainsTest {
 protected:
  TFormDomains& OpenOnManagers() {
    TFormDomains& console = OpenCompany();
    FHost.Answer(
        "a.DomainID = 5 order by 3", kAccountColumns,
        {{21, "zhang", "张三", "第一", 0, 12, "李四", TextToDateTime("2024-05-06 07:08:09"), "王五",
          TZanValue{}},
         {20, "li", "李四", "", 1, TZanValue{}, TZanValue{}, TZanValue{}, TZanValue{}, TZanValue{}}});
    FHost.Answer("a.DomainID = 5 order by 1, 2", {"UserOID", "FullName", "IsOwned"},
                 {{20, "\\A\\B", 1}, {21, "\\A", 0}, {21, "\\A\\B", 1}, {21, "\\E", 0}});
    Select(5);
    return console;
  }
};

TEST_F(TManagerListTest, ReadsTheManagersThenTheDomainsOfAllOfThem) {
  TFormDomains& console = OpenCompany();
  EXPECT_THAT(
      StatementsOf([&] { console.DomainTree.Select(&Node(5)); }),
      ElementsAre(
          "select b.OID, b.UserID, b.UserName, b.UserDesc, b.UnUsed , b.Creator, "
          "IsNull(b.CreatorName, c.UserName) CreatorName, b.CreateTime , b.ModifierName, b.ModifyTime "
          "from STDomainMembers a inner join STUsers b on a.UserOID = b.OID left outer join STUsers c "
          "on b.Creator = c.OID where a.MemberType = 2 and a.IsOwned = 1 and a.DomainID = 5 order by 3",
          "select distinct a.UserOID, c.FullName, b.IsOwned from STDomainMembers a inner join "
          "STDomainMembers b on a.UserOID = b.UserOID inner join STDomains c on b.DomainID = c.ID "
          "where a.MemberType = 2 and a.DomainID = 5 order by 1, 2"));
}

TEST_F(TManagerListTest, ShowsEachManagerWithHisRangeAndHisCreator) {
  TFormDomains& console = OpenOnManagers();
  EXPECT_THAT(Titles(console.ListViewManagers), ElementsAre("名称", "帐号", "禁用", "描述", "域范围",
                                                            "创建人", "创建时间", "修改人", "修改时间"));
  ASSERT_EQ(console.ListViewManagers.RowCount(), 2);
  EXPECT_THAT(
      console.ListViewManagers.OnRow(0).Cells,
      ElementsAre("张三", "zhang", "", "第一", "\\A, \\E", "李四(12)", "2024-05-06 07:08:09", "王五", ""));
  EXPECT_THAT(console.ListViewManagers.OnRow(1).Cells,
              ElementsAre("李四", "li", "已禁用", "", "", "", "", "", ""));
  EXPECT_EQ(console.ListViewManagers.OnRow(0).Id, 21);
  EXPECT_THAT(console.ListViewManagers.Selection, ElementsAre(21));
}

TEST_F(TManagerListTest, SelectingADomainAgainReadsNoTable) {
  TFormDomains& console = OpenOnManagers();
  Select(4);
  EXPECT_EQ(console.ListViewManagers.RowCount(), 0);
  EXPECT_THAT(StatementsOf([&] { console.DomainTree.Select(&Node(5)); }), IsEmpty());
  EXPECT_THAT(Names(console.ListViewManagers), ElementsAre("张三", "李四"));
}

TEST_F(TManagerListTest, RefreshReadsTheManagersOfTheDomainAnew) {
  TFormDomains& console = OpenOnManagers();
  FHost.Answer("a.DomainID = 5 order by 3", kAccountColumns,
               {{22, "zhao", "赵六", "", 0, 12, "", TZanValue{}, "", TZanValue{}}});
  EXPECT_THAT(StatementsOf([&] { Press(console.ActManagerRefresh); }), SizeIs(2));
  EXPECT_THAT(Names(console.ListViewManagers), ElementsAre("赵六"));
}

TEST_F(TManagerListTest, ARefreshThatFailsKeepsTheList) {
  TFormDomains& console = OpenOnManagers();
  FHost.FailStatement(2);
  EXPECT_THROW(Press(console.ActManagerRefresh), EDatabaseError);
  EXPECT_THAT(Names(console.ListViewManagers), ElementsAre("张三", "李四"));
}

TEST_F(TManagerListTest, ASelectionThatFailsShowsNoManagersOfAnotherDomain) {
  TFormDomains& console = OpenOnManagers();
  FHost.FailStatement(1);
  FHost.Statements.clear();
  EXPECT_THROW(console.DomainTree.Select(&Node(4)), EDatabaseError);
  EXPECT_EQ(console.ListViewManagers.RowCount(), 0);
}

TEST_F(TManagerListTest, AClickOnATitleSortsAndASecondClickReverses) {
  TFormDomains& console = OpenOnManagers();
  constexpr int kAccount = 1;
  console.ListViewManagers.OnColumnClick(kAccount);
  EXPECT_THAT(Names(console.ListViewManagers), ElementsAre("李四", "张三"));
  console.ListViewManagers.OnColumnClick(kAccount);
  EXPECT_THAT(Names(console.ListViewManagers), ElementsAre("张三", "李四"));
  EXPECT_TRUE(console.ListViewManagers.SortDescending);
}

TEST_F(TDomainsTest, TheSuperUsersAreReadOnceUntilTheyAreRefreshed) {
  FHost.AlwaysAnswer("a.IsAdministrator = 1", kAccountColumns,
                     {{1, "sa", "超级", "", 0, 0, "[ZanBuilder]", TZanValue{}, "", TZanValue{}}});
  TFormDomains& console = OpenCompany();
  EXPECT_THAT(Titles(console.ListViewAdmin),
              ElementsAre("名称", "帐号", "禁用", "描述", "创建人", "创建时间", "修改人", "修改时间"));
  EXPECT_THAT(console.ListViewAdmin.OnRow(0).Cells,
              ElementsAre("超级", "sa", "", "", "[ZanBuilder]", "", "", ""));
  Select(5);
  EXPECT_THAT(StatementsOf([&] { console.DomainTree.Select(&Node(-1)); }), IsEmpty());
  EXPECT_THAT(
      StatementsOf([&] { Press(console.ActAdminRefresh); }),
      ElementsAre("select a.OID, a.UserID, a.UserName, a.UserDesc, a.UnUsed , a.Creator, "
                  "IsNull(a.CreatorName,c.UserName) CreatorName, a.CreateTime , a.ModifierName, a.ModifyTime "
                  "from STUsers a left outer join STUsers c on a.Creator = c.OID where a.uGroup = 0 and "
                  "a.IsAdministrator = 1 order by 3"));
}

TEST_F(TDomainsMySqlTest, TheNullFunctionOfTheListsIsThatOfTheDialect) {
  TFormDomains& console = OpenCompany();
  EXPECT_THAT(StatementsOf([&] { Press(console.ActAdminRefresh); })[0],
              testing::HasSubstr("IfNull(a.CreatorName,c.UserName)"));
  EXPECT_THAT(StatementsOf([&] { console.DomainTree.Select(&Node(5)); })[0],
              testing::HasSubstr("IfNull(b.CreatorName, c.UserName)"));
}

TEST_F(TDomainsOracleTest, TheNullFunctionOfTheListsIsThatOfTheDialect) {
  TFormDomains& console = OpenCompany();
  EXPECT_THAT(StatementsOf([&] { console.DomainTree.Select(&Node(5)); })[0],
              testing::HasSubstr("nvl(b.CreatorName, c.UserName)"));
}

}  // namespace
}  // namespace zantest
