#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Frame/Host/Zandbs.h"
#include "tests/conformance/scenario/Questions.h"
#include "tests/conformance/scenario/World.h"
#include "tests/support/RecordingHost.h"

// The reader of scenario files: what it understands, and where it says that it does not.

namespace zantest {
namespace {

using testing::ElementsAre;
using testing::StartsWith;
using testing::ThrowsMessage;

TEST(ScenarioOutline, LinesStandBelowTheNearestThatIsIndentedLess) {
  const TOutlineLine outline = ReadOutline("f", "a\n  b\n    c\n  d\ne\n      f\n");
  ASSERT_EQ(outline.Below.size(), 2u);
  const TOutlineLine& a = outline.Below[0];
  ASSERT_EQ(a.Below.size(), 2u);
  EXPECT_EQ(a.Below[0].Below.at(0).Text, "c");
  EXPECT_EQ(a.Below[1].Text, "d");
  EXPECT_EQ(outline.Below[1].Below.at(0).Number, 6);
}

TEST(ScenarioOutline, CommentsAndEmptyLinesDoNotCount) {
  const TOutlineLine outline = ReadOutline("f", "# head\n\na # b\n   \r\n  c#d \"# e\"\r\n");
  ASSERT_EQ(outline.Below.size(), 1u);
  EXPECT_EQ(outline.Below[0].Text, "a");
  EXPECT_EQ(outline.Below[0].Number, 3);
  EXPECT_THAT(outline.Below[0].Below.at(0).Words, ElementsAre("c#d", "# e"));
}

TEST(ScenarioOutline, AnErrorNamesFileAndLine) {
  const auto reading = [](const char* text) { return [text] { ReadOutline("s.txt", text); }; };
  EXPECT_THAT(reading("a\n\tb\n"), ThrowsMessage<EScenarioError>(StartsWith("s.txt:2: indent with blanks")));
  EXPECT_THAT(reading("a\n b \"c\n"), ThrowsMessage<EScenarioError>(StartsWith("s.txt:2: a quotation")));
  EXPECT_THAT(reading("a\n    b\n  c\n"), ThrowsMessage<EScenarioError>(StartsWith("s.txt:3: this line")));
  EXPECT_THAT(reading("\n  a\n"), ThrowsMessage<EScenarioError>(StartsWith("s.txt:2: this line")));
}

TEST(ScenarioWorld, AnErrorNamesTheLineAndWhatIsWrong) {
  const std::pair<const char*, const char*> cases[] = {
      {"organisation\n  compny C1 A", "(test):2: \"compny\" is no company, department"},
      {"organisation\n  company C1", "(test):2: here the name is missing"},
      {"organisation\n  company C1 A big", "(test):2: what does \"big\" mean here?"},
      {"organisation\n  company C1 A\n  company C1 B", "(test):3: there are two of the name C1"},
      {"organisation\n  position P1 A below P2", "(test):2: there is no position P2"},
      {"organisation\n  position P1 A below", "(test):2: here a value is missing"},
      {"organisation\n  person li A\n    person wang B", "(test):3: nothing stands below a person"},
      {"map A\n  P1", "(test):2: there is no position P1"},
      {"role R1 A\n  li", "(test):2: there is no account li"},
      {"object door A", "(test):1: \"door\" is no document, query or menu"},
      {"role R1 A\nrights R1\n  give 执行 B", "(test):3: a right begins with allow or deny"},
      {"domain D A\n  friend li", "(test):2: \"friend\" is no way to belong to a domain"},
      {"detached\n  position P1 A", "(test):2: only a person can be detached"},
      {"questions\n  OrgUserOID = 1", "(test):1: this tells nothing about the world"},
  };
  for (const auto& [text, error] : cases) {
    TRecordingHost host;
    TScenarioWorld world;
    EXPECT_THAT([&] { world.AddText(text); }, ThrowsMessage<EScenarioError>(StartsWith(error))) << text;
  }
}

TOutlineLine LineOf(const char* text) { return ReadOutline("s.txt", text).Below.at(0); }

TEST(ScenarioQuestion, IsReadWithItsNumbers) {
  TNumbers numbers;
  numbers.Name(LineOf("x"), "li.ming", 101);
  const TQuestion question = ReadQuestion(LineOf("Ask @li.ming - 'a b' = (@li.ming,'x')"), numbers);
  EXPECT_EQ(question.What, "Ask");
  EXPECT_THAT(question.Arguments, ElementsAre("101", "", "'a", "b'"));
  EXPECT_EQ(question.Expected, "(101,'x')");
  EXPECT_THROW(ReadQuestion(LineOf("Ask @wang = 1"), numbers), EScenarioError);
  for (const char* wrong : {"Ask a", "= a", "Ask a = b c", "Ask a =", "Ask a fails b"})
    EXPECT_THROW(ReadQuestion(LineOf(wrong), numbers), EScenarioError) << wrong;
}

std::string WhyNotLine(const char* text) {
  const TOutlineLine line = LineOf(text);
  return WhyNot(ReadQuestion(line, TNumbers{}), line);
}

TEST(ScenarioQuestion, AWrongAnswerIsToldWithTheOneThatCame) {
  const TRecordingHost host;
  EXPECT_EQ(WhyNotLine("OrgUserOID = 12"), "");
  EXPECT_EQ(WhyNotLine("OrgUserOID = 13"), "the answer is: 12\nexpected:      13");
  EXPECT_EQ(WhyNotLine("OrgUserOID fails"), "the question should fail, but the answer is: 12");
  EXPECT_THROW(WhyNotLine("NobodyKnows = 1"), EScenarioError);
  EXPECT_THROW(WhyNotLine("RoleCompanyCode a b = 1"), EScenarioError);
}

TEST(ScenarioQuestion, ListsInAnyOrderMustHoldTheSameValuesAsOften) {
  TRecordingHost host;
  const std::vector<std::vector<TZanValue>> rows = {{"b"}, {"a"}, {"b"}};
  host.AlwaysAnswer("STUsers", {"X"}, rows);
  host.AlwaysAnswer("UserH", {"ObjID"}, rows);
  EXPECT_EQ(WhyNotLine("OrgPositionMemberIDs 1 ~ (a,b,b)"), "");
  EXPECT_EQ(WhyNotLine("RoleGetUserOIDS x ~ b,b,a"), "");
  EXPECT_NE(WhyNotLine("RoleGetUserOIDS x ~ b,a"), "");
  EXPECT_NE(WhyNotLine("RoleGetUserOIDS x = a,b,b"), "");
}

TEST(ScenarioQuestion, AFailureIsExpectedOrTold) {
  TRecordingHost host;
  host.FailStatement(1);
  EXPECT_EQ(WhyNotLine("RoleGetUserOID x fails"), "");
  host.FailStatement(1);
  EXPECT_THAT(WhyNotLine("RoleGetUserOID x = 1"), StartsWith("the question fails: the statement was made"));
}

}  // namespace
}  // namespace zantest
