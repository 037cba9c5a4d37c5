#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Frame/Dialects.h"
#include "OrgRights/U_OrgRigthFuncs.h"
#include "tests/support/RecordingHost.h"

// Whom a text names, how answers are written down, and what decides before a statement does.

namespace zantest {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using TFuncs = zanrole::TOrgRightFuncs;

std::string ConditionOnUser(const std::string& user) {
  TRecordingHost host;
  TFuncs::OrgPositionMemberIDs(user);
  const std::string text = Squeeze(host.Statements.at(0).Text);
  const std::string before = "a.isSTUser = 1 and ";
  return text.substr(text.find(before) + before.size());
}

TEST(OrgRightUser, AnEmptyTextIsTheLoggedInUser) {
  EXPECT_EQ(ConditionOnUser(""), "a.UserOID = 12");
  EXPECT_EQ(ConditionOnUser("  \t"), "a.UserOID = 12");
}

TEST(OrgRightUser, ANumberIsAnOIDWrittenBackAsADecimalInteger) {
  EXPECT_EQ(ConditionOnUser("7"), "a.UserOID = 7");
  EXPECT_EQ(ConditionOnUser(" 007 "), "a.UserOID = 7");
  EXPECT_EQ(ConditionOnUser("-3"), "a.UserOID = -3");
}

TEST(OrgRightUser, ABadNumberSelectsNobody) {
  EXPECT_EQ(ConditionOnUser("seven"), "a.UserOID = -1");
  EXPECT_EQ(ConditionOnUser("7 or 1=1"), "a.UserOID = -1");
  EXPECT_EQ(ConditionOnUser("99999999999999999999"), "a.UserOID = -1");
  EXPECT_EQ(ConditionOnUser("'"), "a.UserOID = -1");
  EXPECT_EQ(ConditionOnUser("'李"), "a.UserOID = -1");
}

TEST(OrgRightUser, ATextBetweenQuotesIsANameThatEntersAsItStands) {
  EXPECT_EQ(ConditionOnUser("'李明'"), "a.Name = '李明'");
  EXPECT_EQ(ConditionOnUser(" 'O''Neil' "), "a.Name = 'O''Neil'");
  EXPECT_EQ(ConditionOnUser("''"), "a.Name = ''");
  EXPECT_EQ(ConditionOnUser("'a' or b.Name = 'c'"), "a.Name = 'a' or b.Name = 'c'");
}

TEST(OrgRightUser, TheStatementTextsForCompaniesTellHimWithoutATable) {
  const TRecordingHost host;
  EXPECT_THAT(TFuncs::OrgGetCompanySQL("", "b.Name"), HasSubstr("isSTUser = 1 and UserOID = 12\r\n"));
  EXPECT_THAT(TFuncs::OrgGetCompanySQL("'李'", "b.Name"), HasSubstr("isSTUser = 1 and Name = '李'\r\n"));
  EXPECT_THAT(TFuncs::OrgGetCompanyManagerSQL("x", "b.Name"), HasSubstr("and UserOID = -1\r\n"));
}

TEST(OrgRightSecondOne, AnEmptyTextIsNobody) {
  TRecordingHost host;
  TFuncs::OrgUserIsDeptMember("7", "");
  TFuncs::OrgUserIsUnderDept("7", " ");
  TFuncs::OrgUserIsPositionMember("7", "");
  EXPECT_THAT(host.Texts().at(0), EndsWith("and c.DjLsh = -1"));
  EXPECT_THAT(host.Texts().at(1), EndsWith("and b.DjLsh = -1"));
  EXPECT_THAT(host.Texts().at(2), EndsWith("and b.DjLsh = -1"));
}

TEST(OrgRightSecondOne, ANameIsLookedForInTheColumnForNames) {
  TRecordingHost host;
  TFuncs::OrgUserIsDeptMember("'李'", "'研发部'");
  TFuncs::OrgUserIsUnderDept("'李'", "'研发部'");
  EXPECT_THAT(host.Texts().at(0), EndsWith("and a.Name = '李' and c.Name = '研发部'"));
  EXPECT_THAT(host.Texts().at(1), EndsWith("and b.Name = '研发部'"));
}

TEST(OrgRightLists, AreCommaTextInBrackets) {
  TRecordingHost host;
  host.Answer("select distinct d.OID", {"OID"}, {{3}, {7}, {12}});
  EXPECT_EQ(TFuncs::OrgDeptMemberIDs("7"), "(3,7,12)");
  host.Answer("select distinct d.UserID", {"UserID"}, {{"li"}, {"wang"}});
  EXPECT_EQ(TFuncs::OrgDeptMemberCodes("7"), "('li','wang')");
}

TEST(OrgRightLists, OfNoValueAreNullAndNeverEmptyBrackets) {
  TRecordingHost host;
  EXPECT_EQ(TFuncs::OrgDeptMemberIDs("7"), "(NULL)");
  EXPECT_EQ(TFuncs::OrgPositionMemberNames("7"), "(NULL)");
  EXPECT_EQ(TFuncs::OrgCompanyIDs("7"), "(NULL)");
  EXPECT_EQ(TFuncs::OrgCompanyManagerCodes("7"), "(NULL)");
  host.Answer("select", {"X"}, {{""}});
  EXPECT_EQ(TFuncs::OrgPositionMembers("7", "c.Title", false), "(\"\")");
}

TEST(OrgRightLists, StandBehindInAsTheyAre) {
  TRecordingHost host;
  const auto accounts = [&] {
    const std::string list = TFuncs::OrgDeptMemberIDs("7");
    zanrole::OpenStatement(*zanrole::TDbProviderFactory::GetQuery(),
                           "select UserID from STUsers where OID in " + list);
    return host.Texts().back();
  };
  EXPECT_THAT(accounts(), EndsWith("where OID in (NULL)"));
  host.Answer("select distinct d.OID", {"OID"}, {{3}, {7}});
  EXPECT_THAT(accounts(), EndsWith("where OID in (3,7)"));
}

TEST(OrgRightLists, AValueWithABlankACommaOrADoubleQuoteStandsInDoubleQuotesAroundItsOwn) {
  TRecordingHost host;
  host.Answer("select", {"X"}, {{"Li Ming"}, {"a,b"}, {"say \"hi\""}, {"O'Neil"}, {"李明"}});
  EXPECT_EQ(TFuncs::OrgPositionMemberNames("7"),
            "(\"'Li Ming'\",\"'a,b'\",\"'say \"\"hi\"\"'\",'O''Neil','李明')");
}

TEST(OrgRightLists, OfMembersSkipThoseWhoseFieldIsNull) {
  for (const auto ask : {TFuncs::OrgDeptMemberNames, TFuncs::OrgPositionMemberNames}) {
    TRecordingHost host;
    host.Answer("select", {"X"}, {{std::monostate{}}, {"li"}, {std::monostate{}}, {""}});
    EXPECT_EQ(ask("7"), "('li','')");
  }
}

TEST(OrgRightCompany, TheSingularFormsTakeTheFirstFieldOfTheFirstRow) {
  TRecordingHost host;
  host.AlwaysAnswer("select", {"X", "isHead"}, {{"second", 1}, {"first", 0}});
  for (const auto ask : {TFuncs::OrgCompanyID, TFuncs::OrgCompanyName, TFuncs::OrgCompanyManagerID,
                         TFuncs::OrgCompanyManagerCode, TFuncs::OrgCompanyManagerName}) {
    EXPECT_EQ(ask("7"), "second");
  }
}

TEST(OrgRightCompany, WithoutARowTheSingularFormsAreEmpty) {
  const TRecordingHost host;
  for (const auto ask : {TFuncs::OrgCompanyID, TFuncs::OrgCompanyName, TFuncs::OrgCompanyManagerID,
                         TFuncs::OrgCompanyManagerCode, TFuncs::OrgCompanyManagerName}) {
    EXPECT_EQ(ask("7"), "");
  }
}

TEST(OrgRightCompany, ThePluralFormsGiveAllRowsNumbersPlainAndTextsQuoted) {
  TRecordingHost host;
  host.AlwaysAnswer("select", {"X", "isHead"}, {{5, 1}, {4, 0}});
  EXPECT_EQ(TFuncs::OrgCompanyIDs("7"), "(5,4)");
  EXPECT_EQ(TFuncs::OrgCompanyManagerIDs("7"), "(5,4)");
  EXPECT_EQ(TFuncs::OrgCompanyNames("7"), "('5','4')");
  EXPECT_EQ(TFuncs::OrgCompanyManagerCodes("7"), "('5','4')");
  EXPECT_EQ(TFuncs::OrgCompanyManagerNames("7"), "('5','4')");
}

TEST(OrgRightCompany, ACompanyWithoutANameIsNotSkipped) {
  TRecordingHost host;
  host.Answer("select", {"Name", "isHead"}, {{std::monostate{}, 1}, {"A", 0}});
  EXPECT_EQ(TFuncs::OrgCompanyNames("7"), "('','A')");
}

constexpr const char* kUserProbe = "UnUsed <> 1 and OID = 7";
constexpr const char* kSuperiorProbe = "UnUsed <> 1 and OID = 9";

TEST(OrgRightUnderling, AnAdministratorStandsAboveEveryoneWhoIsNoneWithoutAClimb) {
  TRecordingHost host;
  host.Answer(kSuperiorProbe, {"1"}, {{1}});
  EXPECT_TRUE(TFuncs::OrgUserIsUnderling("7", "9"));
  EXPECT_THAT(host.Statements, SizeIs(2));
}

TEST(OrgRightUnderling, TwoAdministratorsAndAnAdministratorAsTheUserAreDecidedByTheClimb) {
  for (const bool both : {true, false}) {
    for (const bool found : {true, false}) {
      TRecordingHost host;
      host.Answer(kUserProbe, {"1"}, {{1}});
      if (both) host.Answer(kSuperiorProbe, {"1"}, {{1}});
      if (found) host.Answer("with cte(DeptID)", {"DjLsh"}, {{5}});
      EXPECT_EQ(TFuncs::OrgUserIsUnderling("7", "9"), found);
      EXPECT_THAT(host.Statements, SizeIs(3));
    }
  }
}

TEST(OrgRightUnderling, TheProbesMatchUserNameOfSTUsersAndTheClimbNameOfPartyH) {
  TRecordingHost host;
  TFuncs::OrgUserIsUnderling("'李'", "'王'");
  EXPECT_THAT(host.Texts().at(0), EndsWith("and UserName = '李'"));
  EXPECT_THAT(host.Texts().at(1), EndsWith("and UserName = '王'"));
  EXPECT_THAT(host.Texts().at(2), HasSubstr("and a.Name = '李' group by"));
  EXPECT_THAT(host.Texts().at(2), HasSubstr("d.Name = '王' ) or (b.Type = 'Company' and c.Name = '王' )"));
}

TEST(OrgRightUnderling, AnEmptyUserIsTheLoggedInOneAndAnEmptySuperiorNobody) {
  TRecordingHost host;
  TFuncs::OrgUserIsUnderling("", "");
  EXPECT_THAT(host.Texts().at(0), EndsWith("and OID = 12"));
  EXPECT_THAT(host.Texts().at(1), EndsWith("and OID = -1"));
  EXPECT_THAT(host.Texts().at(2), HasSubstr("a.UserOID = 12"));
  EXPECT_THAT(host.Texts().at(2), HasSubstr("d.UserOID = -1"));
}

TEST(OrgRightSuperior, IsUnderlingWithTheArgumentsSwappedEmptyOnesIncluded) {
  for (const auto& [a, b] : {std::pair{"7", "9"}, {"", "9"}, {"7", ""}, {"", ""}, {"'李'", "x"}}) {
    TRecordingHost swapped;
    TFuncs::OrgUserIsUnderling(b, a);
    const auto expected = swapped.Texts();
    swapped.Statements.clear();
    TFuncs::OrgUserIsSuperior(a, b);
    EXPECT_EQ(swapped.Texts(), expected);
  }
}

TEST(OrgRightPosition, TheProbesStopAtTheFirstThatFindsTheUserInIt) {
  for (int hit = 1; hit <= 3; ++hit) {
    TRecordingHost host;
    const char* const columns[] = {"b.FullName = 'Head'", "b.Name = 'Head'", "b.Title = 'Head'"};
    host.Answer(columns[hit - 1], {"DjLsh"}, {{4}});
    EXPECT_TRUE(TFuncs::OrgUserIsPositionMember("7", "'Head'"));
    EXPECT_THAT(host.Statements, SizeIs(hit));
  }
}

TEST(OrgRightFuncs, TheSixteenInertNamesAnswerEmptyAndRunNoStatement) {
  const TRecordingHost host;
  for (const auto ask :
       {TFuncs::OrgSuperiorID, TFuncs::OrgSuperiorIDs, TFuncs::OrgSuperiorCode, TFuncs::OrgSuperiorCodes,
        TFuncs::OrgSuperiorName, TFuncs::OrgSuperiorNames, TFuncs::OrgDeptID, TFuncs::OrgDeptIDs,
        TFuncs::OrgDeptName, TFuncs::OrgDeptNames, TFuncs::OrgPositionID, TFuncs::OrgPositionIDs,
        TFuncs::OrgPositionName, TFuncs::OrgPositionNames, TFuncs::OrgPositionFullName,
        TFuncs::OrgPositionFullNames}) {
    for (const char* user : {"", "7", "'李'", "nobody"}) EXPECT_EQ(ask(user), "");
  }
  EXPECT_THAT(host.Statements, IsEmpty());
}

TEST(OrgRightFuncs, AFailedStatementPassesToTheHost) {
  TRecordingHost host;
  host.FailStatement(1);
  EXPECT_THROW(TFuncs::OrgCompanyIDs("7"), zanrole::EDatabaseError);
  host.FailStatement(2);
  EXPECT_THROW(TFuncs::OrgUserIsUnderling("7", "9"), zanrole::EDatabaseError);
}

}  // namespace
}  // namespace zantest
