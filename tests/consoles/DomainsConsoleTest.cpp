#include "tests/consoles/DomainsConsole.h"

namespace zantest {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kDomainRow =
    "select ID, ParentID, NodeLevel, Sequence, FullName, FullCode, ParentCode, ParentName, UserLimit, "
    "RelateOrg from STDomains where Code = ";

TEST_F(TDomainsConsoleTest, TheFirstDomainUnderTheRootHasOnlyItselfAsAncestor) {
  const auto console = OpenAs("sa");
  EXPECT_THAT(Tree(*console), ElementsAre("域"));
  Create(*console, "域", "总部", "01");
  EXPECT_EQ(Row(std::string(kDomainRow) + "'01'"), "1|-1|0|1|\\总部|\\1\\|\\|\\|0|0");
  EXPECT_EQ(Row("select count(*), min(AncestorID), min(DescendantID) from STDomainInherits"), "1|1|1");
  EXPECT_EQ(Row("select count(*), min(DomainID), min(UserOID), min(MemberType), min(IsOwned) from "
                "STDomainMembers"),
            "1|1|1|3|1");
  EXPECT_THAT(Tree(*console), ElementsAre("域", "  总部 (01)"));
  EXPECT_THAT(console->SelectedRows(kConsole, "DomainTree"), ElementsAre("总部 (01)"));
  EXPECT_EQ(console->Property(kConsole, "LabelTitle", "text"), "\\总部");
}

TEST_F(TDomainsConsoleTest, AChildOfADomainAtDepthTwoGetsThreeAncestors) {
  const auto console = OpenAs("sa");
  Create(*console, "域", "A", "01");
  Create(*console, "A (01)", "B", "02");
  Create(*console, "B (02)", "C", "03");
  EXPECT_EQ(Row(std::string(kDomainRow) + "'03'"), "3|2|2|1|\\A\\B\\C|\\1\\2\\3\\|\\1\\2\\|\\A\\B\\|0|0");
  EXPECT_THAT(Column("select AncestorID from STDomainInherits where DescendantID = 3 order by 1"),
              ElementsAre("1", "2", "3"));
  EXPECT_THAT(Tree(*console), ElementsAre("域", "  A (01)", "    B (02)", "      C (03)"));
}

TEST_F(TDomainsConsoleTest, EachRefusalSaysWhyKeepsTheDialogAndLeadsToTheField) {
  const auto console = OpenAs("sa");
  Create(*console, "域", "A", "01");
  console->Select(kConsole, "DomainTree", "域");
  console->Act(kConsole, "ActDomainNew");
  EXPECT_EQ(console->Property(kDialog, "LabelTitle", "text"), "创建一个新的域。");
  EXPECT_EQ(console->Property(kDialog, "LabelDomain", "text"), "上级域：\\");
  const auto refusal = [&](const char* name, const char* code) {
    console->Set(kDialog, "EditName", name);
    console->Set(kDialog, "EditCode", code);
    console->Act(kDialog, "BitBtnOk");
    return console->Answer("Ok");
  };
  EXPECT_EQ(refusal("  ", ""), "名称不允许为空！");
  EXPECT_EQ(console->Focused(), "EditName");
  EXPECT_EQ(refusal("B", " "), "编码不允许为空！");
  EXPECT_EQ(console->Focused(), "EditCode");
  EXPECT_EQ(refusal(" A ", "02"), "名称不允许重复!");
  EXPECT_EQ(console->Focused(), "EditName");
  EXPECT_EQ(refusal("B", " 01 "), "编码不允许重复!");
  EXPECT_EQ(console->Focused(), "EditCode");
  EXPECT_TRUE(console->IsOpen(kDialog));
  console->Act(kDialog, "BitBtnCancel");
  EXPECT_FALSE(console->IsOpen(kDialog));
  EXPECT_THAT(Column("select Name from STDomains"), ElementsAre("A"));
}

TEST_F(TDomainsConsoleTest, ANameMayStandUnderTwoParentsButACodeOnlyOnce) {
  const auto console = OpenAs("sa");
  Create(*console, "域", "A", "01");
  Create(*console, "A (01)", "A", "02");
  EXPECT_THAT(Column("select FullName from STDomains order by ID"), ElementsAre("\\A", "\\A\\A"));
  console->Act(kConsole, "ActDomainNew");
  console->Set(kDialog, "EditName", "B");
  console->Set(kDialog, "EditCode", "01");
  console->Act(kDialog, "BitBtnOk");
  EXPECT_EQ(console->Answer("Ok"), "编码不允许重复!");
}

TEST_F(TDomainsConsoleTest, TextsAreStoredExactlyAsEntered) {
  const auto console = OpenAs("sa");
  const std::string name = "O'Neil \\ \"𠮷\" :x IsNull(varchar(";
  const std::string code = "c'd\\𠮷";
  const std::string remark = "  one\ntwo 'three' \\\\ :p -- ; /* 𠮷  ";
  console->Act(kConsole, "ActDomainNew");
  console->Set(kDialog, "EditName", name);
  console->Set(kDialog, "EditCode", code);
  console->Set(kDialog, "EditRemark", remark);
  console->SetNumber(kDialog, "EditUserLimit", 12);
  console->Act(kDialog, "BitBtnOk");
  EXPECT_EQ(Row("select Name from STDomains"), name);
  EXPECT_EQ(Row("select Code from STDomains"), code);
  EXPECT_EQ(Row("select Remark from STDomains"), remark);
  EXPECT_EQ(Row("select UserLimit from STDomains"), "12");

  console->Act(kConsole, "ActRefresh");
  console->Select(kConsole, "DomainTree", name + " (" + code + ")");
  console->Act(kConsole, "ActDomainEdit");
  EXPECT_EQ(console->Property(kDialog, "EditName", "value"), name);
  EXPECT_EQ(console->Property(kDialog, "EditRemark", "value"), remark);
  console->Set(kDialog, "EditName", name + "!");
  console->Act(kDialog, "BitBtnOk");
  EXPECT_EQ(Row("select FullName from STDomains"), "\\" + name + "!");
  EXPECT_EQ(Row("select Remark from STDomains"), remark);
}

TEST_F(TDomainsConsoleTest, ADomainWithARoleIsNotDeletedAndOneWithOnlyItsCreatorIs) {
  const auto console = OpenAs("sa");
  Create(*console, "域", "A", "01");
  Create(*console, "A (01)", "B", "02");
  Exec("insert into STDomainMembers(DomainID, UserOID, MemberType, IsOwned) values(2, 50, 1, 1)");
  constexpr const char* kNotEmpty = "不为空，无法删除! \r\n请先删除所有下级域及管理员、角色、用户。";
  console->Act(kConsole, "ActDomainDelete");
  EXPECT_EQ(console->Answer("Ok"), std::string("域“\\A\\B”") + kNotEmpty);
  console->Select(kConsole, "DomainTree", "A (01)");
  console->Act(kConsole, "ActDomainDelete");
  EXPECT_EQ(console->Answer("Ok"), std::string("域“\\A”") + kNotEmpty);

  Exec("delete from STDomainMembers where UserOID = 50");
  Exec("insert into STDomainPermission(DomainID, MenuNodeID) values(2, 7)");
  Exec("insert into STDomainOAPermission(DomainID, MenuID) values(2, 7)");
  console->Select(kConsole, "DomainTree", "B (02)");
  console->Act(kConsole, "ActDomainDelete");
  EXPECT_EQ(console->Answer("No"), "确实要删除域“\\A\\B”吗?");
  EXPECT_THAT(Column("select ID from STDomains"), ElementsAre("1", "2"));
  console->Act(kConsole, "ActDomainDelete");
  EXPECT_EQ(console->Caption("TMessage"), "系统提示");
  console->Answer("Yes");
  EXPECT_THAT(Column("select ID from STDomains"), ElementsAre("1"));
  EXPECT_THAT(Column("select DescendantID from STDomainInherits"), ElementsAre("1"));
  EXPECT_THAT(Column("select DomainID from STDomainMembers"), ElementsAre("1"));
  EXPECT_THAT(Column("select DomainID from STDomainPermission"), IsEmpty());
  EXPECT_THAT(Column("select DomainID from STDomainOAPermission"), ElementsAre("2"));
  EXPECT_THAT(Tree(*console), ElementsAre("域", "  A (01)"));
}

TEST_F(TDomainsConsoleTest, SiblingsChangePlacesAndKeepThemAfterARefresh) {
  const auto console = OpenAs("sa");
  for (const char* name : {"A", "B", "C"}) Create(*console, "域", name, name);
  EXPECT_TRUE(console->IsUsable(kConsole, "ActDomainMoveUp"));
  EXPECT_FALSE(console->IsUsable(kConsole, "ActDomainMoveDown"));
  console->Act(kConsole, "ActDomainMoveUp");
  EXPECT_THAT(Tree(*console), ElementsAre("域", "  A (A)", "  C (C)", "  B (B)"));
  console->Act(kConsole, "ActDomainMoveUp");
  EXPECT_FALSE(console->IsUsable(kConsole, "ActDomainMoveUp"));
  console->Select(kConsole, "DomainTree", "A (A)");
  console->Act(kConsole, "ActDomainMoveDown");
  console->Act(kConsole, "ActRefresh");
  EXPECT_THAT(Tree(*console), ElementsAre("域", "  C (C)", "  B (B)", "  A (A)"));
  EXPECT_THAT(Column("select Name from STDomains order by Sequence"), ElementsAre("C", "B", "A"));
  EXPECT_THAT(Column("select Sequence from STDomains order by Sequence"), ElementsAre("1", "2", "3"));
}

TEST_F(TDomainsConsoleTest, RenamingReachesAllDescendantsAndTheRolesOfAllOfThemAndChangesNoCode) {
  const auto console = OpenAs("sa");
  Create(*console, "域", "A", "01");
  Create(*console, "A (01)", "B", "02");
  Create(*console, "B (02)", "C", "03");
  Create(*console, "域", "Z", "09");
  Exec(
      "insert into STUsers(OID, UserID, UserName, uGroup, IsAdministrator, UnUsed)"
      " select 50, '\\\\财务', '\\A\\B\\财务', 1, 0, 0 union all select 51, 'plainrole', "
      "'\\A\\B\\C\\plainrole', "
      "1, 0, 0 union all select 52, '\\\\其他', '\\Z\\其他', 1, 0, 0");
  Exec(
      "insert into STDomainMembers(DomainID, UserOID, MemberType, IsOwned)"
      " select 2, 50, 1, 1 union all select 3, 51, 1, 1 union all select 4, 52, 1, 1");
  const auto codes = Column("select FullCode from STDomains order by ID");
  console->Select(kConsole, "DomainTree", "A (01)");
  Rename(*console, "X'\\");
  EXPECT_THAT(Column("select FullName from STDomains order by ID"),
              ElementsAre("\\X'\\", "\\X'\\\\B", "\\X'\\\\B\\C", "\\Z"));
  EXPECT_THAT(Column("select ParentName from STDomains order by ID"),
              ElementsAre("\\", "\\X'\\\\", "\\X'\\\\B\\", "\\"));
  EXPECT_THAT(Column("select UserName from STUsers where uGroup = 1 order by OID"),
              ElementsAre("\\X'\\\\B\\财务", "\\X'\\\\B\\C\\plainrole", "\\Z\\其他"));
  EXPECT_EQ(Column("select FullCode from STDomains order by ID"), codes);
  EXPECT_THAT(Tree(*console), Contains("  X'\\ (01)"));
  console->Select(kConsole, "DomainTree", "C (03)");
  EXPECT_EQ(console->Property(kConsole, "LabelTitle", "text"), "\\X'\\\\B\\C");
}

TEST_F(TDomainsConsoleTest, ChangingOnlyTheRemarkTouchesNoPath) {
  const auto console = OpenAs("sa");
  Create(*console, "域", "A", "01");
  Create(*console, "A (01)", "B", "02");
  Exec("update STDomains set FullName = 'left alone' where ID = 2");
  console->Select(kConsole, "DomainTree", "A (01)");
  console->Act(kConsole, "ActDomainEdit");
  console->Set(kDialog, "EditRemark", "new");
  console->Act(kDialog, "BitBtnOk");
  EXPECT_EQ(Row("select Remark from STDomains where ID = 1"), "new");
  EXPECT_EQ(Row("select FullName from STDomains where ID = 2"), "left alone");
}

TEST_F(TDomainsConsoleTest, TheOrganisationIsShownByItsPathAndKeptUntilItIsCleared) {
  Exec(
      "insert into PartyH(DjLsh, Parent, Name, Type) select 5, -1, '集团', 'Company' union all select 6, 5, "
      "'财务部', 'Department'");
  const auto console = OpenAs("sa");
  Create(*console, "域", "A", "01");
  Exec("update STDomains set RelateOrg = 6");
  console->Act(kConsole, "ActRefresh");
  console->Select(kConsole, "DomainTree", "A (01)");
  console->Act(kConsole, "ActDomainEdit");
  EXPECT_EQ(console->Property(kDialog, "EditRelateOrg", "value"), "集团\\财务部");
  console->Act(kDialog, "BitBtnOk");
  EXPECT_EQ(Row("select RelateOrg from STDomains"), "6");
  console->Act(kConsole, "ActDomainEdit");
  console->Act(kDialog, "ActClearOrg");
  EXPECT_EQ(console->Property(kDialog, "EditRelateOrg", "value"), "");
  EXPECT_FALSE(console->IsUsable(kDialog, "ActClearOrg"));
  console->Act(kDialog, "BitBtnOk");
  EXPECT_EQ(Row("select RelateOrg from STDomains"), "0");
}

TEST_F(TDomainsConsoleTest, AStatementThatFailsHalfWayLeavesTheDomainWithoutAncestorsAndSaysSo) {
  const auto console = OpenAs("sa");
  Exec("drop table STDomainInherits");
  console->Act(kConsole, "ActDomainNew");
  console->Set(kDialog, "EditName", "A");
  console->Set(kDialog, "EditCode", "01");
  console->Act(kDialog, "BitBtnOk");
  EXPECT_THAT(console->Answer("Ok"), HasSubstr("STDomainInherits"));
  EXPECT_THAT(Column("select Name from STDomains"), ElementsAre("A"));
  EXPECT_THAT(Column("select MemberType from STDomainMembers"), ElementsAre("3"));
  EXPECT_THAT(Tree(*console), ElementsAre("域"));
  EXPECT_TRUE(console->IsUsable(kConsole, "ActRefresh"));
}

TEST_F(TDomainsConsoleTest, ADoubleClickOpensTheDomainAndExitClosesTheConsole) {
  const auto console = OpenAs("sa");
  Create(*console, "域", "A", "01");
  console->Activate(kConsole, "DomainTree", "A (01)");
  EXPECT_EQ(console->Property(kDialog, "LabelTitle", "text"), "修改域的相关信息。");
  console->Act(kDialog, "BitBtnCancel");
  console->Act(kConsole, "ActExit");
  EXPECT_FALSE(console->IsOpen(kConsole));
  console->Menu("域管理");
  EXPECT_THAT(Tree(*console), ElementsAre("域", "  A (01)"));
}

TEST_F(TDomainsConsoleTest, AnotherLanguageReachesTheConsoleAndTheOpenDialogAndKeepsWhatWasTyped) {
  const auto console = OpenAs("sa");
  console->Act(kConsole, "ActDomainNew");
  console->Set(kDialog, "EditName", "总部");
  console->Language("en");
  EXPECT_EQ(console->Property(kConsole, "ActDomainNew", "caption"), "New");
  EXPECT_THAT(Tree(*console), ElementsAre("Domains"));
  EXPECT_EQ(console->Property(kDialog, "LabelTitle", "text"), "New domain");
  EXPECT_EQ(console->Property(kDialog, "LabelDomain", "text"), "Parent domain: \\");
  console->Set(kDialog, "EditCode", "01");
  console->Act(kDialog, "BitBtnOk");
  EXPECT_THAT(Column("select Name from STDomains"), ElementsAre("总部"));
}

TEST_F(TDomainsConsoleTest, StyleThreeOpensTheConsoleModallyWithItsDialogsAboveIt) {
  TConsoleDriver console(FUrl, "sa");
  console.Menu("域管理", 3);
  Create(console, "域", "A", "01");
  EXPECT_THAT(Tree(console), ElementsAre("域", "  A (01)"));
  console.Act(kConsole, "ActExit");
  EXPECT_FALSE(console.IsOpen(kConsole));
}

}  // namespace
}  // namespace zantest
