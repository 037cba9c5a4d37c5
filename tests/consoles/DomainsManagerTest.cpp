#include "host/platform/Cipher.h"
#include "host/platform/Sample.h"
#include "tests/consoles/DomainsConsole.h"

namespace zantest {
namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

/// Beside "sa" there are the manager "boss" (`OID` 3) of the domain A (1), which has the child B (2), and the
/// domain Z (3), which is not his.
class TDomainsManagerTest : public TDomainsConsoleTest {
 protected:
  TDomainsManagerTest() {
    const auto console = OpenAs("sa");
    Create(*console, "域", "A", "01");
    Create(*console, "A (01)", "B", "02");
    Create(*console, "域", "Z", "09");
    Exec(
        "insert into STUsers(OID, UserID, UserName, UserDesc, uGroup, IsAdministrator, UnUsed, Creator,"
        " CreatorName) select 3, 'boss', '经理', '描述', 0, 2, 0, 1, '当时的名字' union all"
        " select 4, 'aide', '副手', '', 0, 2, 1, null, null");
    Exec(
        "insert into STDomainMembers(DomainID, UserOID, MemberType, IsOwned)"
        " select 1, 3, 2, 1 union all select 2, 3, 2, 0 union all select 3, 3, 2, 0 union all"
        " select 1, 4, 2, 1");
  }
};

TEST_F(TDomainsManagerTest, SomeoneWhoIsNoAdministratorIsToldSo) {
  const auto console = OpenAs("plain");
  EXPECT_FALSE(console->IsOpen(kConsole));
  EXPECT_EQ(console->Answer("Ok"), "您不是管理员，无法执行该操作！");
}

TEST_F(TDomainsManagerTest, AManagerSeesHisDomainsWithoutARoot) {
  const auto console = OpenAs("boss");
  console->ExpandAll(kConsole, "DomainTree");
  EXPECT_THAT(Tree(*console), ElementsAre("A (01)", "  B (02)"));
  EXPECT_THAT(console->SelectedRows(kConsole, "DomainTree"), ElementsAre("A (01)"));
}

TEST_F(TDomainsManagerTest, AManagerCannotChangeHisTopmostDomainButMayAddBelowItAndChangeThat) {
  const auto console = OpenAs("boss");
  const auto changes = {"ActDomainEdit", "ActDomainDelete", "ActDomainMoveUp", "ActDomainMoveDown"};
  for (const char* action : changes) EXPECT_FALSE(console->IsUsable(kConsole, action)) << action;
  console->Activate(kConsole, "DomainTree", "A (01)");
  EXPECT_FALSE(console->IsOpen(kDialog));
  Create(*console, "A (01)", "N", "n");
  EXPECT_THAT(Tree(*console), ElementsAre("A (01)", "  B (02)", "  N (n)"));
  EXPECT_TRUE(console->IsUsable(kConsole, "ActDomainEdit"));
  EXPECT_TRUE(console->IsUsable(kConsole, "ActDomainDelete"));
  EXPECT_TRUE(console->IsUsable(kConsole, "ActDomainMoveUp"));
  Rename(*console, "M");
  EXPECT_THAT(Tree(*console), ElementsAre("A (01)", "  B (02)", "  M (n)"));
  EXPECT_EQ(Row("select UserOID from STDomainMembers where DomainID = 4 and MemberType = 3"), "3");
  console->Select(kConsole, "DomainTree", "A (01)");
  EXPECT_FALSE(console->IsUsable(kConsole, "ActDomainEdit"));
}

TEST_F(TDomainsManagerTest, TheManagersOfADomainAreListedAndSortedByAnyColumn) {
  const auto console = OpenAs("sa");
  EXPECT_THAT(console->Rows(kConsole, "ListViewAdmin"), ElementsAre("超级"));
  EXPECT_FALSE(console->IsUsable(kConsole, "ListViewManagers"));
  console->Select(kConsole, "DomainTree", "A (01)");
  EXPECT_FALSE(console->IsUsable(kConsole, "ListViewAdmin"));
  EXPECT_THAT(console->Rows(kConsole, "ListViewManagers"), ElementsAre("副手", "经理"));
  EXPECT_THAT(console->SelectedRows(kConsole, "ListViewManagers"), ElementsAre("副手"));
  constexpr int kName = 0;
  console->Sort(kConsole, "ListViewManagers", kName);
  console->Sort(kConsole, "ListViewManagers", kName);
  EXPECT_THAT(console->Rows(kConsole, "ListViewManagers"), ElementsAre("经理", "副手"));
}

TEST_F(TDomainsManagerTest, AManagerOfTheSampleCompanySeesOnlyHisOwnPartOfTheTree) {
  TTemporaryFolder folder;
  Exec("delete from STUsers");
  Exec("delete from STDomains");
  Exec("delete from STDomainMembers");
  Exec("delete from STDomainInherits");
  zanhost::TSivCipher cipher(zanhost::KeyFileOf(folder.Path()));
  const zanhost::TSampleResult sample =
      zanhost::MakeSample(*FDatabase, {.People = 50, .AdminPassword = "secret", .Cipher = cipher});
  const auto admin = OpenAs(sample.AdminLogin);
  admin->ExpandAll(kConsole, "DomainTree");
  EXPECT_EQ(Tree(*admin).size(), static_cast<std::size_t>(sample.Domains) + 1);
  const auto manager = OpenAs(sample.ManagerLogin);
  manager->ExpandAll(kConsole, "DomainTree");
  EXPECT_THAT(Tree(*manager), Not(IsEmpty()));
  EXPECT_LT(Tree(*manager).size(), Tree(*admin).size());
  EXPECT_THAT(Tree(*manager), Not(Contains("域")));
  EXPECT_FALSE(manager->IsUsable(kConsole, "ActDomainEdit"));
}

}  // namespace
}  // namespace zantest
