#include "tests/consoles/DomainsConsole.h"

// Two clients at the console of the domain tree: what one of them does while the other looks at old rows.

namespace zantest {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TDomainsClientsTest : public TDomainsConsoleTest {
 protected:
  /// The domain A (1) with its child B (2), which both clients see.
  TDomainsClientsTest() : First(OpenAs("sa")) {
    Create(*First, "域", "A", "01");
    Create(*First, "A (01)", "B", "02");
    Second = OpenAs("sa");
    Second->ExpandAll(kConsole, "DomainTree");
  }

  static void Fill(TConsoleDriver& client, const std::string& name, const std::string& code) {
    client.Set(kDialog, "EditName", name);
    client.Set(kDialog, "EditCode", code);
  }
  /// Deletes the domain B.
  static void DeleteB(TConsoleDriver& client) {
    client.Select(kConsole, "DomainTree", "B (02)");
    client.Act(kConsole, "ActDomainDelete");
    client.Answer("Yes");
  }

  std::unique_ptr<TConsoleDriver> First;
  std::unique_ptr<TConsoleDriver> Second;
};

TEST_F(TDomainsClientsTest, OfTwoWhoEnterOneCodeAtOnceTheSecondIsRefused) {
  for (TConsoleDriver* client : {First.get(), Second.get()}) {
    client->Select(kConsole, "DomainTree", "A (01)");
    client->Act(kConsole, "ActDomainNew");
  }
  Fill(*First, "C", "03");
  Fill(*Second, "D", "03");
  First->Act(kDialog, "BitBtnOk");
  Second->Act(kDialog, "BitBtnOk");
  EXPECT_EQ(Second->Answer("Ok"), "编码不允许重复!");
  Fill(*Second, "C", "04");
  Second->Act(kDialog, "BitBtnOk");
  EXPECT_EQ(Second->Answer("Ok"), "名称不允许重复!");
  Fill(*Second, "D", "04");
  Second->Act(kDialog, "BitBtnOk");
  EXPECT_THAT(Column("select Name from STDomains order by ID"), ElementsAre("A", "B", "C", "D"));
  EXPECT_THAT(Column("select Sequence from STDomains where ParentID = 1 order by ID"),
              ElementsAre("1", "2", "3"));
}

TEST_F(TDomainsClientsTest, ADomainThatTheOtherDeletesWhileItIsEditedIsNotBroughtBack) {
  First->Select(kConsole, "DomainTree", "B (02)");
  First->Act(kConsole, "ActDomainEdit");
  DeleteB(*Second);
  Fill(*First, "C", "03");
  First->Act(kDialog, "BitBtnOk");
  EXPECT_FALSE(First->IsOpen("TMessage"));
  EXPECT_THAT(Column("select Name from STDomains"), ElementsAre("A"));
  First->Act(kConsole, "ActRefresh");
  First->ExpandAll(kConsole, "DomainTree");
  EXPECT_THAT(Tree(*First), ElementsAre("域", "  A (01)"));
}

TEST_F(TDomainsClientsTest, ADomainThatTheOtherHasDeletedCanBeDeletedFromTheTree) {
  DeleteB(*Second);
  DeleteB(*First);
  EXPECT_FALSE(First->IsOpen("TMessage"));
  EXPECT_THAT(Tree(*First), ElementsAre("域", "  A (01)"));
  EXPECT_THAT(Column("select ID from STDomains"), ElementsAre("1"));
}

TEST_F(TDomainsClientsTest, BelowADomainThatTheOtherHasDeletedATopLevelDomainIsMade) {
  First->Select(kConsole, "DomainTree", "B (02)");
  DeleteB(*Second);
  First->Act(kConsole, "ActDomainNew");
  Fill(*First, "C", "03");
  First->Act(kDialog, "BitBtnOk");
  EXPECT_EQ(
      Row("select ParentID, NodeLevel, FullName, FullCode, ParentCode from STDomains where Code = '03'"),
      "-1|0|\\C|\\2\\|\\");
  EXPECT_THAT(Column("select AncestorID from STDomainInherits where DescendantID = 2"), ElementsAre("2"));
  First->Act(kConsole, "ActRefresh");
  EXPECT_THAT(Tree(*First), testing::UnorderedElementsAre("域", "  C (03)", "  A (01)"));
}

TEST_F(TDomainsClientsTest, ADomainWhoseParentHasGoneIsShownAtTheTop) {
  Exec("delete from STDomains where ID = 1");
  First->Act(kConsole, "ActRefresh");
  EXPECT_THAT(Tree(*First), ElementsAre("域", "B (02)"));
}

TEST_F(TDomainsClientsTest, MovingADomainThatTheOtherHasDeletedChangesNoRow) {
  Create(*First, "A (01)", "C", "03");
  Second->Act(kConsole, "ActRefresh");
  Second->ExpandAll(kConsole, "DomainTree");
  DeleteB(*Second);
  First->Act(kConsole, "ActDomainMoveUp");
  EXPECT_FALSE(First->IsOpen("TMessage"));
  EXPECT_THAT(Column("select Sequence from STDomains where Code = '03'"), ElementsAre("2"));
}

TEST_F(TDomainsClientsTest, AChildOfTheOtherKeepsADomainFromBeingDeleted) {
  Create(*Second, "B (02)", "C", "03");
  First->Select(kConsole, "DomainTree", "B (02)");
  First->Act(kConsole, "ActDomainDelete");
  EXPECT_EQ(First->Answer("Ok"), "域“\\A\\B”不为空，无法删除! \r\n请先删除所有下级域及管理员、角色、用户。");
  EXPECT_THAT(Column("select ID from STDomains"), testing::SizeIs(3));
}

}  // namespace
}  // namespace zantest
