#include "tests/unit/Domain/DomainsFixture.h"

namespace zantest {
namespace {

using namespace zanrole;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

std::vector<std::string> NodeTexts(const std::vector<std::unique_ptr<TTreeNode>>& nodes) {
  std::vector<std::string> texts;
  for (const auto& node : nodes) texts.push_back(node->Text);
  return texts;
}

TEST_F(TDomainsTest, AnOperatorWhoIsNoAdministratorIsToldSoAndNothingOpens) {
  FHost.SystemInfo().IsSuperUser = false;
  EXPECT_FALSE(FFunc.Execute());
  EXPECT_THAT(FHost.MessageTexts(), ElementsAre("您不是管理员，无法执行该操作！"));
  EXPECT_THAT(FHost.ShownForms, IsEmpty());
}

TEST_F(TDomainsTest, OpeningUpgradesTheDatabaseThenReadsTheOwnDomainsThenTheTree) {
  EXPECT_TRUE(FFunc.Execute());
  const auto texts = FHost.Texts();
  ASSERT_GE(texts.size(), 3u);
  EXPECT_EQ(texts[0], "select * from STUsers where 1=0");
  EXPECT_EQ(texts[1], "select DomainID from STDomainMembers where MemberType = 2 and UserOID = 12");
  EXPECT_EQ(texts[2], "select * from STDomains order by NodeLevel, Sequence");
}

TEST_F(TDomainsTest, OpeningAgainShowsTheOneConsoleAnewWithFreshRows) {
  TFormDomains& first = OpenCompany();
  ReadTree({{3, -1, 0, 1, "Z", "01", "\\", "\\"}});
  EXPECT_TRUE(FFunc.Execute());
  EXPECT_EQ(&Console(), &first);
  EXPECT_EQ(Node(3).Text, "Z (01)");
  EXPECT_THAT(FHost.Texts(), Not(Contains("select * from STUsers where 1=0")));
}

TEST_F(TDomainsTest, StyleThreeShowsTheConsoleModally) {
  bool wasModal = false;
  FHost.WhenModal([&](TForm& form) {
    wasModal = form.ClassName() == "TFormDomains";
    return mrCancel;
  });
  FFunc.OpenStyle = 3;
  EXPECT_TRUE(FFunc.Execute());
  EXPECT_TRUE(wasModal);
  EXPECT_EQ(Console().Style, TSubFormStyle::Modal);
}

TEST_F(TDomainsTest, AnUpgradeThatFailsStopsTheOpeningAndTheNextOneTriesAgain) {
  FHost.FailStatement(1);
  EXPECT_THROW(FFunc.Execute(), EDatabaseError);
  EXPECT_THAT(FHost.ShownForms, IsEmpty());
  EXPECT_TRUE(FFunc.Execute());
  EXPECT_THAT(FHost.ShownForms, ElementsAre("TFormDomains"));
}

TEST_F(TDomainsTest, TheTitleIsTheCaptionOfTheMenuEntry) {
  FFuncInfo.InParams.Add(
      {TFuncParamKind::None, "MenuNode", "", R"({"ObjectID":77,"Caption":"我的域"})", TFuncDataType::String});
  EXPECT_EQ(Open().Caption, "我的域");
  Console().InitLngResources();
  EXPECT_EQ(Console().Caption, "我的域");
}

TEST_F(TDomainsTest, AMenuNodeThatIsNoJsonLeavesTheNameOfTheFunctionAsTitle) {
  FFuncInfo.InParams.Add({TFuncParamKind::None, "MenuNode", "", "{broken", TFuncDataType::String});
  EXPECT_EQ(Open().Caption, "域管理");
}

TEST_F(TDomainsTest, ASuperUserSeesAllDomainsBelowARootAndStandsOnIt) {
  TFormDomains& console = OpenCompany();
  EXPECT_THAT(NodeTexts(console.DomainTree.Roots()), ElementsAre("域"));
  EXPECT_THAT(NodeTexts(Node(-1).Children()), ElementsAre("A (01)", "E (02)"));
  EXPECT_THAT(NodeTexts(Node(3).Children()), ElementsAre("B (0101)", "D (0102)"));
  EXPECT_EQ(console.DomainTree.Selected(), &Node(-1));
  EXPECT_TRUE(Node(-1).Expanded());
  EXPECT_EQ(console.LabelTitle.Text, "\\");
  EXPECT_TRUE(console.TabAdmin.Visible);
  EXPECT_FALSE(console.TabManagers.Visible);
}

TEST_F(TDomainsTest, ADomainWithoutCodeIsShownByItsNameAlone) {
  ReadTree({{3, -1, 0, 1, "A", "", "\\", "\\"}});
  Open();
  EXPECT_EQ(Node(3).Text, "A");
}

TEST_F(TDomainsTest, ADomainWhoseParentWasNotReadStandsAtTheTop) {
  ReadTree({{3, -1, 0, 1, "A", "01", "\\", "\\"}, {8, 7, 2, 1, "X", "07", "\\P\\", "\\7\\"}});
  TFormDomains& console = Open();
  EXPECT_THAT(NodeTexts(console.DomainTree.Roots()), ElementsAre("域", "X (07)"));
}

TEST_F(TDomainsTest, SelectingADomainShowsItsPathAndItsManagers) {
  TFormDomains& console = OpenCompany();
  Select(5);
  EXPECT_EQ(console.LabelTitle.Text, "\\A\\B");
  EXPECT_TRUE(console.TabManagers.Visible);
  EXPECT_FALSE(console.TabAdmin.Visible);
  EXPECT_EQ(console.PageControl.ActivePage, "TabManagers");
}

TEST_F(TDomainsTest, ASuperUserMayChangeEveryDomainButNotTheRoot) {
  TFormDomains& console = OpenCompany();
  EXPECT_TRUE(IsUsable(console.ActDomainNew));
  EXPECT_FALSE(IsUsable(console.ActDomainEdit));
  EXPECT_FALSE(IsUsable(console.ActDomainDelete));
  Select(3);
  EXPECT_TRUE(IsUsable(console.ActDomainEdit));
  EXPECT_TRUE(IsUsable(console.ActDomainDelete));
  EXPECT_FALSE(IsUsable(console.ActDomainMoveUp));
  EXPECT_TRUE(IsUsable(console.ActDomainMoveDown));
  Select(4);
  EXPECT_TRUE(IsUsable(console.ActDomainMoveUp));
  EXPECT_FALSE(IsUsable(console.ActDomainMoveDown));
}

TEST_F(TDomainsTest, TheBuilderSeesAllDomains) {
  FHost.SystemInfo().IsSuperUser = false;
  FHost.Builder = true;
  EXPECT_TRUE(FFunc.Execute());
  EXPECT_THAT(FHost.Texts(), Contains("select * from STDomains order by NodeLevel, Sequence"));
  EXPECT_THAT(FHost.Texts(),
              Contains("select DomainID from STDomainMembers where MemberType = 2 and UserOID = -1"));
}

/// A manager of the domain \A (3), with \A\B (5) below it.
class TManagersViewTest : public TDomainsTest {
 protected:
  TManagersViewTest() {
    FHost.SystemInfo().IsSuperUser = false;
    FHost.AlwaysAnswer("where MemberType = 2 and UserOID = 12", {"DomainID"}, {{3}});
    ReadTree({{3, -1, 0, 1, "A", "01", "\\", "\\"}, {5, 3, 1, 1, "B", "0101", "\\A\\", "\\3\\"}});
  }
};

TEST_F(TManagersViewTest, HasNoRootAndReadsWhatOwnsHimOrWasCreatedByHimAndAllBelow) {
  EXPECT_TRUE(FFunc.Execute());
  EXPECT_THAT(FHost.Texts(),
              Contains("select distinct a.* from STDomains a inner join STDomainInherits b on a.ID = "
                       "b.DescendantID inner join STDomainMembers c on b.AncestorID = c.DomainID where "
                       "c.IsOwned = 1 and c.UserOID = 12 order by a.NodeLevel, a.Sequence"));
  EXPECT_THAT(NodeTexts(Console().DomainTree.Roots()), ElementsAre("A (01)"));
  EXPECT_EQ(Console().DomainTree.Selected(), &Node(3));
  EXPECT_TRUE(Console().TabManagers.Visible);
}

TEST_F(TManagersViewTest, MayAddBelowHisOwnDomainAndThenEditTheChildButNotHisOwnDomain) {
  TFormDomains& console = Open();
  EXPECT_FALSE(IsUsable(console.ActDomainEdit));
  EXPECT_FALSE(IsUsable(console.ActDomainDelete));
  EXPECT_FALSE(IsUsable(console.ActDomainMoveUp));
  const TDomainRow parent{3, -1, 0, 1, "A", "01", "\\", "\\"};
  AnswerNewDomain(1, &parent, 10, "\\3\\");
  WhenAsked("N", "n");
  Press(console.ActDomainNew);
  EXPECT_EQ(console.DomainTree.Selected(), &Node(10));
  EXPECT_TRUE(IsUsable(console.ActDomainEdit));
  EXPECT_TRUE(IsUsable(console.ActDomainDelete));
  Select(3);
  EXPECT_FALSE(IsUsable(console.ActDomainEdit));
}

TEST_F(TManagersViewTest, ADoubleClickOnHisTopmostDomainDoesNotEditIt) {
  TFormDomains& console = Open();
  console.DomainTree.OnActivate(Node(3));
  EXPECT_THAT(FHost.ShownForms, ElementsAre("TFormDomains"));
  Select(5);
  console.DomainTree.OnActivate(Node(5));
  EXPECT_THAT(FHost.ShownForms, ElementsAre("TFormDomains", "TFormDomainEdit"));
}

TEST_F(TDomainsTest, AViewWithoutDomainsOffersNothingButRefresh) {
  FHost.SystemInfo().IsSuperUser = false;
  FHost.AlwaysAnswer("where MemberType = 2 and UserOID = 12", {"DomainID"}, {{3}});
  TFormDomains& console = Open();
  EXPECT_FALSE(IsUsable(console.ActDomainNew));
  EXPECT_FALSE(IsUsable(console.ActDomainEdit));
  EXPECT_FALSE(IsUsable(console.ActManagerRefresh));
  EXPECT_TRUE(IsUsable(console.ActRefresh));
  EXPECT_EQ(console.LabelTitle.Text, "\\");
}

TEST_F(TDomainsTest, MoveUpOnTheFirstSiblingDoesNothing) {
  TFormDomains& console = OpenCompany();
  Select(5);
  EXPECT_FALSE(IsUsable(console.ActDomainMoveUp));
  EXPECT_THAT(StatementsOf([&] { console.ActDomainMoveUp.OnExecute(); }), IsEmpty());
  EXPECT_THAT(NodeTexts(Node(3).Children()), ElementsAre("B (0101)", "D (0102)"));
}

TEST_F(TDomainsTest, MovingExchangesTheSequencesInOneBatch) {
  TFormDomains& console = OpenCompany();
  Select(6);
  AnswerSequences();
  EXPECT_THAT(StatementsOf([&] { Press(console.ActDomainMoveUp); }),
              ElementsAre("select Sequence from STDomains where ID = 6",
                          "select Sequence from STDomains where ID = 5",
                          "begin update STDomains set Sequence = 1 where ID = 6; "
                          "update STDomains set Sequence = 2 where ID = 5; end;"));
  EXPECT_THAT(NodeTexts(Node(3).Children()), ElementsAre("D (0102)", "B (0101)"));
  EXPECT_EQ(console.DomainTree.Selected(), &Node(6));
}

TEST_F(TDomainsTest, MovingDownPutsTheNextSiblingBeforeTheNode) {
  TFormDomains& console = OpenCompany();
  Select(5);
  AnswerSequences();
  Press(console.ActDomainMoveDown);
  EXPECT_EQ(FHost.Texts().back(),
            "begin update STDomains set Sequence = 1 where ID = 6; "
            "update STDomains set Sequence = 2 where ID = 5; end;");
  EXPECT_THAT(NodeTexts(Node(3).Children()), ElementsAre("D (0102)", "B (0101)"));
}

TEST_F(TDomainsTest, MovingADomainWhoseRowHasGoneSendsNoBatch) {
  TFormDomains& console = OpenCompany();
  Select(6);
  FHost.Answer("select Sequence from STDomains where ID = 6", {"Sequence"}, {{2}});
  EXPECT_THAT(StatementsOf([&] { Press(console.ActDomainMoveUp); }), testing::SizeIs(2));
  EXPECT_THAT(FHost.Messages, IsEmpty());
}

TEST_F(TDomainsOracleTest, MovingSendsTheBatchInOneBlock) {
  TFormDomains& console = OpenCompany();
  Select(6);
  AnswerSequences();
  Press(console.ActDomainMoveUp);
  EXPECT_EQ(FHost.Statements.back().Text,
            "begin\r\nupdate STDomains set Sequence = 1 where ID = 6;\r\n"
            "update STDomains set Sequence = 2 where ID = 5;\r\nend;");
}

TEST_F(TDomainsMySqlTest, MovingSendsTheBatchThroughTheProcedure) {
  TFormDomains& console = OpenCompany();
  Select(6);
  AnswerSequences();
  Press(console.ActDomainMoveUp);
  EXPECT_EQ(FHost.Texts().back(),
            "call MySql_execute_MultiSql('update STDomains set Sequence = 1 where ID = 6; "
            "update STDomains set Sequence = 2 where ID = 5;')");
}

TEST_F(TDomainsTest, ExitTakesTheConsoleOffTheScreenAndKeepsIt) {
  TFormDomains& console = OpenCompany();
  Press(console.ActExit);
  EXPECT_EQ(&Console(), &console);
}

}  // namespace
}  // namespace zantest
