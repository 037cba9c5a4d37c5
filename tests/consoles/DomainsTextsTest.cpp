#include "tests/consoles/DomainsConsole.h"

// What a person may type as the texts of a domain.

namespace zantest {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string Repeat(const std::string& piece, int times) {
  std::string text;
  for (int i = 0; i < times; ++i) text += piece;
  return text;
}

TEST_F(TDomainsConsoleTest, TextsThatAreTooLongAreCutAsTheyAreTypedToWhatTheColumnsHold) {
  const auto console = OpenAs("sa");
  console->Act(kConsole, "ActDomainNew");
  console->Set(kDialog, "EditName", Repeat("域", 51));
  console->Set(kDialog, "EditCode", Repeat("c", 500));
  console->Set(kDialog, "EditRemark", Repeat("备", 201));
  EXPECT_EQ(console->Property(kDialog, "EditName", "value"), Repeat("域", 50));
  console->Act(kDialog, "BitBtnOk");
  EXPECT_EQ(Row("select Name from STDomains"), Repeat("域", 50));
  EXPECT_EQ(Row("select FullName from STDomains"), "\\" + Repeat("域", 50));
  EXPECT_EQ(Row("select Code from STDomains"), Repeat("c", 50));
  EXPECT_EQ(Row("select Remark from STDomains"), Repeat("备", 200));
}

TEST_F(TDomainsConsoleTest, AFourByteCharacterTakesTwoPlacesOfAColumn) {
  const auto console = OpenAs("sa");
  Create(*console, "域", Repeat("𠮷", 26), "c" + Repeat("𠮷", 25));
  EXPECT_EQ(Row("select Name from STDomains"), Repeat("𠮷", 25));
  EXPECT_EQ(Row("select Code from STDomains"), "c" + Repeat("𠮷", 24));
}

TEST_F(TDomainsConsoleTest, PercentSignsAreNoPlacesForValues) {
  const auto console = OpenAs("sa");
  Create(*console, "域", "100% %s %d %%", "%c");
  EXPECT_EQ(Row("select Name from STDomains"), "100% %s %d %%");
  Exec("insert into STDomainMembers(DomainID, UserOID, MemberType, IsOwned) values(1, 50, 1, 1)");
  console->Act(kConsole, "ActDomainDelete");
  EXPECT_EQ(console->Answer("Ok"),
            "域“\\100% %s %d %%”不为空，无法删除! \r\n请先删除所有下级域及管理员、角色、用户。");
  Exec("delete from STDomainMembers");
  console->Act(kConsole, "ActDomainDelete");
  EXPECT_EQ(console->Answer("Yes"), "确实要删除域“\\100% %s %d %%”吗?");
  EXPECT_THAT(Column("select ID from STDomains"), IsEmpty());
}

TEST_F(TDomainsConsoleTest, LineBreaksInANameAndCodeAreStoredAsTheyWereTyped) {
  const auto console = OpenAs("sa");
  Create(*console, "域", "one\ntwo\r\n:three", "c\n'\r\nd");
  EXPECT_EQ(Row("select Name from STDomains"), "one\ntwo\r\n:three");
  Rename(*console, "one\r\n\r\ntwo");
  EXPECT_EQ(Row("select FullName from STDomains"), "\\one\r\n\r\ntwo");
  EXPECT_EQ(Row("select Code from STDomains"), "c\n'\r\nd");
}

TEST_F(TDomainsConsoleTest, ADomainWhosePathIsThatOfAnotherGetsItsOwnAncestors) {
  const auto console = OpenAs("sa");
  Create(*console, "域", "A", "01");
  Create(*console, "A (01)", "B", "02");
  Create(*console, "域", "A\\B", "03");
  EXPECT_THAT(Column("select FullName from STDomains order by ID"), ElementsAre("\\A", "\\A\\B", "\\A\\B"));
  EXPECT_THAT(Column("select AncestorID from STDomainInherits where DescendantID = 3"), ElementsAre("3"));
  EXPECT_THAT(Column("select DomainID from STDomainMembers order by DomainID"), ElementsAre("1", "2", "3"));
}

}  // namespace
}  // namespace zantest
