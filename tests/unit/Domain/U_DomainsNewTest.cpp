#include "tests/unit/Domain/DomainsFixture.h"

namespace zantest {
namespace {

using namespace zanrole;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::Pair;
using testing::SizeIs;
using testing::StartsWith;

constexpr const char* kInsertColumns =
    "insert into STDomains (ID, Code, Name, Remark, ParentID, NodeLevel, Sequence , FullName, FullCode, "
    "ParentCode, ParentName, UserLimit, RelateOrg) select a.NewID , ";

constexpr const char* kCreator =
    "insert into STDomainMembers(DomainID, UserOID, MemberType, IsOwned) values(:DomainID, :UserOID, 3, 1)";
constexpr const char* kSelf =
    "insert into STDomainInherits(AncestorID, DescendantID) values(:AncestorID, :DescendantID)";
constexpr const char* kAncestors =
    "insert into STDomainInherits(AncestorID, DescendantID) select AncestorID, :DescendantID from "
    "STDomainInherits where DescendantID = :ParentID";

const TDomainRow kDomainB{5, 3, 1, 1, "B", "0101", "\\A\\", "\\3\\"};

TEST_F(TDomainsTest, TheFirstDomainUnderTheRootIsItsOwnAncestorAndNothingElse) {
  TFormDomains& console = Open();
  AnswerNewDomain(0, nullptr, 1, "\\");
  WhenAsked("总部", "01", "备注", 10);
  EXPECT_THAT(StatementsOf([&] { Press(console.ActDomainNew); }),
              ElementsAre("select 1 Found from STDomains where ParentID = -1 and ID <> -1 and Name = '总部'",
                          "select 1 Found from STDomains where ID <> -1 and Code = '01'",
                          "select max(Sequence) Sequence from STDomains where ParentID = -1",
                          "select FullName, FullCode, NodeLevel from STDomains where ID = -1",
                          std::string(kInsertColumns) +
                              R"('01', '总部', '备注', -1, 0, 1, '\总部', )"
                              R"('\' + cast(a.NewID as varchar(16)) + '\', '\', '\', 10, 0)"
                              " from ( select IsNull(Max(ID),0) + 1 NewID from STDomains ) a",
                          R"(select ID, ParentCode from STDomains where FullName='\总部')", kCreator, kSelf,
                          StartsWith("select b.OID"), StartsWith("select distinct a.UserOID")));
  EXPECT_THAT(FHost.Statements[6].Params, ElementsAre(Pair("DomainID", TZanValue{std::int64_t{1}}),
                                                      Pair("UserOID", TZanValue{std::int64_t{12}})));
  EXPECT_THAT(FHost.Statements[7].Params, ElementsAre(Pair("AncestorID", TZanValue{std::int64_t{1}}),
                                                      Pair("DescendantID", TZanValue{std::int64_t{1}})));
}

TEST_F(TDomainsTest, AChildOfADomainAtDepthTwoGetsLevelTwoAndTheAncestorsOfItsParent) {
  TFormDomains& console = OpenCompany();
  Select(5);
  AnswerNewDomain(1, &kDomainB, 10, "\\3\\5\\");
  WhenAsked("N", "n");
  const auto texts = StatementsOf([&] { Press(console.ActDomainNew); });
  ASSERT_THAT(texts, SizeIs(11));
  EXPECT_EQ(texts[4], std::string(kInsertColumns) +
                          R"('n', 'N', '', 5, 2, 2, '\A\B\N', )"
                          R"('\3\5\' + cast(a.NewID as varchar(16)) + '\', '\3\5\', '\A\B\', 0, 0)"
                          " from ( select IsNull(Max(ID),0) + 1 NewID from STDomains ) a");
  EXPECT_EQ(texts[8], kAncestors);
  EXPECT_THAT(FHost.Statements[8].Params, ElementsAre(Pair("DescendantID", TZanValue{std::int64_t{10}}),
                                                      Pair("ParentID", TZanValue{std::int64_t{5}})));
}

TEST_F(TDomainsTest, TheNewNodeIsSelectedAndKnowsItsPath) {
  TFormDomains& console = OpenCompany();
  Select(5);
  AnswerNewDomain(1, &kDomainB, 10, "\\3\\5\\");
  WhenAsked(" N ", " n ");
  Press(console.ActDomainNew);
  EXPECT_EQ(console.DomainTree.Selected(), &Node(10));
  EXPECT_EQ(Node(10).Parent(), &Node(5));
  EXPECT_EQ(Node(10).Text, "N (n)");
  EXPECT_EQ(console.LabelTitle.Text, "\\A\\B\\N");
}

/// The insert of the top-level domain A.
std::string InsertOfA(const std::string& fullCode, const std::string& nullFunction) {
  return kInsertColumns + std::string(R"('01', 'A', '', -1, 0, 1, '\A', )") + fullCode +
         R"(, '\', '\', 0, 0 from ( select )" + nullFunction + "(Max(ID),0) + 1 NewID from STDomains ) a";
}

TEST_F(TDomainsMySqlTest, TheFullCodeKeepsThePlusBetweenTexts) {
  TFormDomains& console = Open();
  AnswerNewDomain(0, nullptr, 1, "\\");
  WhenAsked("A", "01");
  const auto texts = StatementsOf([&] { Press(console.ActDomainNew); });
  EXPECT_THAT(texts, Contains(InsertOfA(R"('\' + cast(a.NewID as char(16)) + '\')", "IfNull")));
}

TEST_F(TDomainsOracleTest, TheFullCodeIsJoinedByBars) {
  TFormDomains& console = Open();
  AnswerNewDomain(0, nullptr, 1, "\\");
  WhenAsked("A", "01");
  const auto texts = StatementsOf([&] { Press(console.ActDomainNew); });
  EXPECT_THAT(texts, Contains(InsertOfA(R"('\' || cast(a.NewID as varchar(16)) || '\')", "nvl")));
}

TEST_F(TDomainsMySqlTest, WordsOfTheDialectInsideAValueStayAsEntered) {
  TFormDomains& console = Open();
  AnswerNewDomain(0, nullptr, 1, "\\");
  WhenAsked("IsNull(varchar(", "01");
  Press(console.ActDomainNew);
  EXPECT_THAT(FHost.Texts(), Contains(HasSubstr("'01', 'IsNull(varchar(', ")));
}

TEST_F(TDomainsTest, QuotesBackslashesLineBreaksAndFourByteCharactersGoAsEntered) {
  TFormDomains& console = Open();
  AnswerNewDomain(0, nullptr, 1, "\\");
  WhenAsked("O'Neil\\𠮷:x", "c'd", "one\ntwo :y\r\n'three'");
  Press(console.ActDomainNew);
  const TRecordedStatement& insert = FHost.Statements[FHost.Statements.size() - 6];
  EXPECT_THAT(insert.Text, HasSubstr("'c''d', 'O''Neil\\𠮷:x', 'one\ntwo :y\r\n''three''', -1"));
  EXPECT_THAT(insert.Params, IsEmpty());
}

TEST_F(TDomainsTest, AParentThatHasGoneMakesATopLevelDomain) {
  TFormDomains& console = OpenCompany();
  Select(5);
  AnswerNewDomain(0, nullptr, 10, "\\");
  WhenAsked("N", "n");
  const auto texts = StatementsOf([&] { Press(console.ActDomainNew); });
  EXPECT_THAT(texts, Contains(HasSubstr(R"('n', 'N', '', -1, 0, 1, '\N', '\' + )")));
  EXPECT_THAT(texts, Not(Contains(kAncestors)));
}

TEST_F(TDomainsTest, ARowThatCannotBeFoundAgainIsReported) {
  TFormDomains& console = OpenCompany();
  Select(5);
  WhenAsked("N", "n");
  const auto texts = StatementsOf([&] { Press(console.ActDomainNew); });
  EXPECT_THAT(FHost.MessageTexts(), ElementsAre("新建失败!"));
  EXPECT_THAT(texts.back(), StartsWith("select ID, ParentCode from STDomains"));
  EXPECT_EQ(console.DomainTree.Selected(), &Node(5));
}

TEST_F(TDomainsTest, OfSeveralRowsWithTheNewPathTheNewestBelowTheSameParentIsTheNewDomain) {
  TFormDomains& console = OpenCompany();
  Select(5);
  FHost.Answer("max(Sequence)", {"Sequence"}, {{1}});
  FHost.Answer("select FullName, FullCode, NodeLevel", {"FullName", "FullCode", "NodeLevel"},
               {{"\\A\\B", "\\3\\5\\", 1}});
  FHost.Answer("select ID, ParentCode", {"ID", "ParentCode"},
               {{7, "\\"}, {10, "\\3\\5\\"}, {8, "\\3\\5\\"}, {11, "\\3\\"}});
  WhenAsked("N", "n");
  Press(console.ActDomainNew);
  EXPECT_EQ(console.DomainTree.Selected(), &Node(10));
}

TEST_F(TDomainsTest, ARowOfAnotherParentWithTheSamePathIsNotTakenForTheNewDomain) {
  TFormDomains& console = OpenCompany();
  AnswerNewDomain(0, nullptr, 7, "\\3\\");
  WhenAsked("A\\B", "n");
  const auto texts = StatementsOf([&] { Press(console.ActDomainNew); });
  EXPECT_THAT(FHost.MessageTexts(), ElementsAre("新建失败!"));
  EXPECT_THAT(texts.back(), StartsWith("select ID, ParentCode from STDomains"));
}

TEST_F(TDomainsTest, CancellingTheDialogWritesNothing) {
  TFormDomains& console = OpenCompany();
  FHost.WhenModal([](TForm& form) {
    dynamic_cast<TFormDomainEdit&>(form).BitBtnCancel.OnExecute();
    return form.ModalResult;
  });
  EXPECT_THAT(StatementsOf([&] { Press(console.ActDomainNew); }), IsEmpty());
}

TEST_F(TDomainsTest, TheCallerRefusesBlankTextsOnceMore) {
  TFormDomains& console = OpenCompany();
  FHost.WhenModal([](TForm&) { return mrOk; });
  EXPECT_THAT(StatementsOf([&] { Press(console.ActDomainNew); }), IsEmpty());
  FHost.WhenModal([](TForm& form) {
    dynamic_cast<TFormDomainEdit&>(form).EditName.Text = " N";
    return mrOk;
  });
  EXPECT_THAT(StatementsOf([&] { Press(console.ActDomainNew); }), IsEmpty());
  EXPECT_THAT(FHost.MessageTexts(), ElementsAre("名称不允许为空！", "编码不允许为空！"));
}

TEST_F(TDomainsTest, ANewDomainThatGetsTheNumberOfADeletedOneIsShownWithItsOwnValues) {
  TFormDomains& console = OpenCompany();
  Select(9);
  Press(console.ActDomainDelete);
  Select(3);
  const TDomainRow parent{3, -1, 0, 1, "A", "01", "\\", "\\"};
  AnswerNewDomain(2, &parent, 9, "\\3\\");
  WhenAsked("N", "n");
  Press(console.ActDomainNew);
  EXPECT_EQ(console.LabelTitle.Text, "\\A\\N");
}

/// Failing the n-th statement of NewDomain leaves what ran before it, and the console as it was.
class TNewDomainFailureTest : public TDomainsTest, public testing::WithParamInterface<int> {};

TEST_P(TNewDomainFailureTest, LeavesWhatHasRunAndTheTreeAsItWas) {
  TFormDomains& console = OpenCompany();
  Select(5);
  AnswerNewDomain(1, &kDomainB, 10, "\\3\\5\\");
  WhenAsked("N", "n");
  FHost.FailStatement(GetParam());
  EXPECT_THROW(Press(console.ActDomainNew), EDatabaseError);
  EXPECT_THAT(FHost.Statements, SizeIs(GetParam()));
  EXPECT_EQ(console.DomainTree.FindData(10), nullptr);
  EXPECT_EQ(console.DomainTree.Selected(), &Node(5));
  EXPECT_TRUE(IsUsable(console.ActDomainNew));
}

// 5 inserts the domain; 7 its creator; 8 and 9 the rows of its ancestors.
INSTANTIATE_TEST_SUITE_P(EachStatement, TNewDomainFailureTest, testing::Range(1, 10));

}  // namespace
}  // namespace zantest
