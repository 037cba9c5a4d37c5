#include "tests/unit/Domain/DomainsFixture.h"

namespace zantest {
namespace {

using namespace zanrole;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

const std::vector<std::string> kPathColumns = {"ID", "ParentName", "FullName"};

constexpr const char* kSqlServerRename =
    R"(update STUsers set UserName = c.FullName + '\' + case left(a.UserID, 2) when '\\' then )"
    "SUBSTRing(a.UserID, 3, 100) else a.UserID end from STUsers a inner join STDomainMembers b on a.OID = "
    "b.UserOID inner join STDomains c on b.DomainID = c.ID where a.uGroup =1 and b.MemberType = 1 and "
    "b.IsOwned = 1 and c.ID = ";
constexpr const char* kMySqlRename =
    "update STUsers a inner join STDomainMembers b on a.OID = b.UserOID inner join STDomains c on b.DomainID "
    R"(= c.ID set UserName = concat(c.FullName, '\\', case left(a.UserID, 2) when '\\\\' then )"
    "SUBSTRing(a.UserID, 3, 100) else a.UserID end) where a.uGroup =1 and b.MemberType = 1 and b.IsOwned = 1 "
    "and c.ID = ";

constexpr const char* kDeleteBatch =
    "begin delete from STDomains where ID = 9; delete from STDomainInherits where DescendantID = 9; delete "
    "from STDomainPermission where DomainID = 9; delete from STDomainMembers where DomainID = 9; end;";

std::string OracleRename(const std::string& fullName, int id) {
  return "update STUsers set UserName = '" + fullName +
         R"(' || '\' || case left(UserID, 2) when '\\' then SUBSTR(UserID, 3, 100) else UserID end )"
         "where uGroup = 1 and OID in ( select UserOID from STDomainMembers where IsOwned = 1 and MemberType "
         "= 1 and DomainID = " +
         std::to_string(id) + " )";
}

TEST_F(TDomainsTest, TheDialogShowsTheDomainAsItWasRead) {
  TFormDomains& console = OpenCompany();
  Select(9);
  FHost.WhenModal([](TForm& form) {
    auto& dialog = dynamic_cast<TFormDomainEdit&>(form);
    EXPECT_EQ(dialog.LabelTitle.Text, "修改域的相关信息。");
    EXPECT_EQ(dialog.LabelDomain.Text, "域：\\A\\B\\C");
    EXPECT_EQ(dialog.EditName.Text, "C");
    EXPECT_EQ(dialog.EditCode.Text, "010101");
    EXPECT_EQ(dialog.EditRemark.Text, "remark");
    EXPECT_EQ(dialog.EditUserLimit.Value, 7);
    EXPECT_EQ(dialog.EditUserLimit.MinValue, 0);
    EXPECT_EQ(dialog.EditUserLimit.MaxValue, 10000);
    return mrCancel;
  });
  EXPECT_THAT(StatementsOf([&] { Press(console.ActDomainEdit); }), IsEmpty());
}

TEST_F(TDomainsTest, ChangingOnlyTheRemarkRunsNoPropagation) {
  TFormDomains& console = OpenCompany();
  Select(5);
  WhenAsked("B", "0101", "new", 20);
  EXPECT_THAT(
      StatementsOf([&] { Press(console.ActDomainEdit); }),
      ElementsAre("select 1 Found from STDomains where ParentID = 3 and ID <> 5 and Name = 'B'",
                  "select 1 Found from STDomains where ID <> 5 and Code = '0101'",
                  R"(update STDomains set Name = 'B' , Code = '0101' , FullName = '\A\B' , Remark = 'new' )"
                  ", UserLimit= 20 , RelateOrg= 0 where ID = 5",
                  kSqlServerRename + std::string("5"), StartsWith("select b.OID"),
                  StartsWith("select distinct a.UserOID")));
}

TEST_F(TDomainsTest, RenamingRewritesThePathsAndRoleNamesOfTheDomainAndAllBelowItInOneBatch) {
  TFormDomains& console = OpenCompany();
  Select(5);
  FHost.Answer("with cte", kPathColumns, {{5, "\\A\\", "\\A\\X\\"}, {9, "\\A\\X\\", "\\A\\X\\C\\"}});
  WhenAsked("X", "0101");
  const auto texts = StatementsOf([&] { Press(console.ActDomainEdit); });
  ASSERT_THAT(texts, SizeIs(8));
  EXPECT_EQ(texts[4],
            R"(with cte(ID, ParentName, FullName) as ( select ID, ParentName, ParentName + Name + '\' from )"
            R"(STDomains where ID = 5 union all select a.ID, b.FullName, b.FullName + a.Name + '\' from )"
            "STDomains a inner join cte b on a.ParentID = b.ID ) select * from cte");
  EXPECT_EQ(texts[5],
            R"(begin update STDomains set ParentName = '\A\' , FullName = '\A\X' where ID = 5; )" +
                std::string(kSqlServerRename) + "5; " +
                R"(update STDomains set ParentName = '\A\X\' , FullName = '\A\X\C' where ID = 9; )" +
                kSqlServerRename + "9; end;");
  EXPECT_EQ(Node(5).Text, "X (0101)");
  EXPECT_EQ(console.LabelTitle.Text, "\\A\\X");
  Select(9);
  EXPECT_EQ(console.LabelTitle.Text, "\\A\\X\\C");
}

TEST_F(TDomainsOracleTest, RenamingJoinsThePathOfEachRowIntoTheRolesNames) {
  TFormDomains& console = OpenCompany();
  Select(5);
  FHost.Answer("with cte", kPathColumns, {{5, "\\A\\", "\\A\\X\\"}, {9, "\\A\\X\\", "\\A\\X\\C\\"}});
  WhenAsked("X", "0101");
  const auto texts = StatementsOf([&] { Press(console.ActDomainEdit); });
  EXPECT_EQ(texts[3], OracleRename("\\A\\X", 5));
  EXPECT_EQ(
      texts[4],
      R"(with cte(ID, ParentName, FullName) as ( select ID, ParentName, ParentName || Name || '\' from )"
      R"(STDomains where ID = 5 union all select a.ID, b.FullName, b.FullName || a.Name || '\' from )"
      "STDomains a inner join cte b on a.ParentID = b.ID ) select * from cte");
  EXPECT_EQ(texts[5],
            R"(begin update STDomains set ParentName = '\A\' , FullName = '\A\X' where ID = 5; )" +
                OracleRename("\\A\\X", 5) + "; " +
                R"(update STDomains set ParentName = '\A\X\' , FullName = '\A\X\C' where ID = 9; )" +
                OracleRename("\\A\\X\\C", 9) + "; end;");
}

TEST_F(TDomainsMySqlTest, RenamingTakesThePathsFromTheProcedureAndQuotesTheBatch) {
  TFormDomains& console = OpenCompany();
  Select(9);
  FHost.Answer("CALL MySql_STDomainsGetFullName(9)", kPathColumns, {{9, "\\A\\B\\", "\\A\\B\\X\\"}});
  WhenAsked("X", "010101");
  const auto texts = StatementsOf([&] { Press(console.ActDomainEdit); });
  EXPECT_EQ(texts[3], kMySqlRename + std::string("9"));
  EXPECT_EQ(texts[4], "CALL MySql_STDomainsGetFullName(9)");
  EXPECT_EQ(
      texts[5],
      "call MySql_execute_MultiSql(" +
          QuotedStr(R"(update STDomains set ParentName = '\A\B\' , FullName = '\A\B\X' where ID = 9; )" +
                    std::string(kMySqlRename) + "9;") +
          ")");
}

TEST_F(TDomainsMySqlTest, ColonsAndQuotesOfANameMakeNoParameterOfTheBatch) {
  TFormDomains& console = OpenCompany();
  Select(9);
  FHost.Answer("CALL MySql_STDomainsGetFullName(9)", kPathColumns, {{9, R"(\A\B\)", R"(\A\B\it's a:b\)"}});
  WhenAsked("it's a:b", "':c");
  Press(console.ActDomainEdit);
  for (const TRecordedStatement& statement : FHost.Statements)
    EXPECT_THAT(statement.Params, IsEmpty()) << statement.Text;
  const std::string quotedTwice = R"(FullName = ''\A\B\it''''s a:b'')";
  EXPECT_THAT(FHost.Texts(), testing::Contains(testing::HasSubstr(quotedTwice)));
}

TEST_F(TDomainsTest, RenamingADomainWhoseRowsHaveGoneSendsNoBatch) {
  TFormDomains& console = OpenCompany();
  Select(9);
  WhenAsked("X", "010101");
  const auto texts = StatementsOf([&] { Press(console.ActDomainEdit); });
  EXPECT_THAT(texts[4], StartsWith("with cte"));
  EXPECT_THAT(texts[5], StartsWith("select b.OID"));
}

TEST_F(TDomainsTest, AFailedUpdateLeavesTheConsoleWithTheOldValues) {
  TFormDomains& console = OpenCompany();
  Select(5);
  WhenAsked("X", "0101");
  FHost.FailStatement(3);
  EXPECT_THROW(Press(console.ActDomainEdit), EDatabaseError);
  EXPECT_EQ(Node(5).Text, "B (0101)");
  EXPECT_EQ(console.LabelTitle.Text, "\\A\\B");
}

TEST_F(TDomainsTest, DeletingAnEmptyDomainSendsOneBatchAndTakesItsNodeAway) {
  TFormDomains& console = OpenCompany();
  Select(9);
  const auto texts = StatementsOf([&] { Press(console.ActDomainDelete); });
  ASSERT_GE(texts.size(), 3u);
  EXPECT_EQ(texts[0], "select 1 Found from STDomains where ParentID = 9");
  EXPECT_EQ(texts[1], "select 1 Found from STDomainMembers where MemberType <> 3 and DomainID = 9");
  EXPECT_EQ(texts[2], kDeleteBatch);
  EXPECT_EQ(console.DomainTree.FindData(9), nullptr);
  EXPECT_EQ(console.DomainTree.Selected(), &Node(5));
  ASSERT_THAT(FHost.Messages, SizeIs(1));
  EXPECT_EQ(FHost.Messages[0].Title, "系统提示");
  EXPECT_EQ(FHost.Messages[0].Text, "确实要删除域“\\A\\B\\C”吗?");
  EXPECT_EQ(FHost.Messages[0].Kind, TMsgDlgType::Confirmation);
}

TEST_F(TDomainsOracleTest, DeletingSendsTheSameBatchInOneBlock) {
  TFormDomains& console = OpenCompany();
  Select(9);
  EXPECT_EQ(StatementsOf([&] { Press(console.ActDomainDelete); })[2], kDeleteBatch);
  const TRecordedStatement& batch = FHost.Statements[2];
  EXPECT_EQ(batch.Kind, "Exec");
  EXPECT_THAT(batch.Text, StartsWith("begin\r\ndelete from STDomains where ID = 9;\r\ndelete from "));
}

TEST_F(TDomainsMySqlTest, DeletingSendsItsBatchThroughTheProcedure) {
  TFormDomains& console = OpenCompany();
  Select(9);
  const auto texts = StatementsOf([&] { Press(console.ActDomainDelete); });
  EXPECT_EQ(texts[2],
            "call MySql_execute_MultiSql('delete from STDomains where ID = 9; delete from STDomainInherits "
            "where DescendantID = 9; delete from STDomainPermission where DomainID = 9; delete from "
            "STDomainMembers where DomainID = 9;')");
}

TEST_F(TDomainsTest, DeletingADomainWithARoleIsRefused) {
  TFormDomains& console = OpenCompany();
  Select(9);
  FHost.Answer("from STDomainMembers where MemberType <> 3", {"Found"}, {{1}});
  EXPECT_THAT(StatementsOf([&] { Press(console.ActDomainDelete); }), SizeIs(2));
  EXPECT_THAT(FHost.MessageTexts(),
              ElementsAre("域“\\A\\B\\C”不为空，无法删除! \r\n请先删除所有下级域及管理员、角色、用户。"));
}

TEST_F(TDomainsTest, DeletingADomainWithChildrenIsRefusedWithoutAskingForItsMembers) {
  TFormDomains& console = OpenCompany();
  Select(3);
  FHost.Answer("where ParentID = 3", {"Found"}, {{1}});
  EXPECT_THAT(StatementsOf([&] { Press(console.ActDomainDelete); }), SizeIs(1));
  EXPECT_THAT(FHost.Messages, SizeIs(1));
}

TEST_F(TDomainsTest, DeletingIsNotDoneWhenTheAnswerIsNo) {
  TFormDomains& console = OpenCompany();
  Select(9);
  FHost.PressButton(mbNo);
  EXPECT_THAT(StatementsOf([&] { Press(console.ActDomainDelete); }), SizeIs(2));
  EXPECT_EQ(console.DomainTree.Selected(), &Node(9));
}

}  // namespace
}  // namespace zantest
