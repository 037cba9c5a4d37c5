#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/query/DataUrl.h"
#include "tests/cli/Program.h"
#include "tests/host/Rows.h"

using testing::HasSubstr;
using zantest::TRan;

namespace {

class AskCommand : public testing::Test {
 protected:
  static void SetUpTestSuite() { FSample = std::make_unique<zantest::TSampleInstallation>(); }
  static void TearDownTestSuite() { FSample.reset(); }

  static TRan Ask(std::vector<std::string> words, const std::string& user = "admin") {
    words.insert(words.begin(), {"ask", "--user", user});
    return FSample->Run(words);
  }

  /// The login of somebody who is no administrator.
  static std::string FirstOrdinaryLogin() {
    const auto database = zanhost::OpenDatabase(FSample->Url(), zanhost::TOpenMode::MustExist);
    return zantest::Text(*database,
                         "select UserID from STUsers where uGroup = 0 and IsAdministrator = 0 order by OID");
  }

  static std::unique_ptr<zantest::TSampleInstallation> FSample;
};

std::unique_ptr<zantest::TSampleInstallation> AskCommand::FSample;

}  // namespace

TEST_F(AskCommand, AnswersTextsNumbersTruthsListsAndNothing) {
  EXPECT_EQ(Ask({"TDomainFuncImpl.GetCurDomainName"}).Out, "{\"answer\":\"\"}\n");
  EXPECT_EQ(Ask({"TDomainFuncImpl.GetCurDomainID"}).Out, "{\"answer\":-1}\n");
  EXPECT_EQ(Ask({"TRunPermission.GetMenuPermission", "-5"}).Out, "{\"answer\":true}\n");
  EXPECT_THAT(Ask({"TRunPermission.GetGroups"}).Out, testing::StartsWith("{\"answer\":["));
  EXPECT_EQ(Ask({"TRunPermission.LoadPermissionList"}).Out, "{\"answer\":null}\n");
}

TEST_F(AskCommand, AnswersOfTheOrganisation) {
  EXPECT_EQ(Ask({"TOrgRightFuncs.OrgDeptMemberIDs", ""}).Out, "{\"answer\":\"(NULL)\"}\n");
  EXPECT_EQ(Ask({"TOrgRightFuncs.OrgUserIsUnderling", "", ""}).Out, "{\"answer\":false}\n");
  EXPECT_EQ(Ask({"TPartyFuncs.findMapId", "行政汇报"}).Out, "{\"answer\":1}\n");
  EXPECT_EQ(Ask({"TPartyFuncs.GetManagerPositionEntity", "no such code"}).Out, "{\"answer\":-1}\n");
  EXPECT_EQ(Ask({"TPartyFuncs.SuperOID", "o'neil"}).Status, 1);
}

TEST_F(AskCommand, SeveralOperationsShareASession) {
  const TRan ran = Ask({"TDomainFuncImpl.SetCurrentDomainID", "2", "+", "TDomainFuncImpl.GetCurDomainID"});
  EXPECT_EQ(ran.Status, 0) << ran.Err;
  EXPECT_EQ(ran.Out, "{\"answer\":2}\n");
}

TEST_F(AskCommand, TheHolderOfRightsStaysWhoHeWasMade) {
  // Every right is the super user's, so an ordinary login asks about another holder.
  const std::string holder = "4711";
  const std::vector<std::string> save{
      "TTolPermission.SetUserID", holder, "+", "TTolPermission.saveObjPer", "100", "执行", "1"};
  ASSERT_EQ(Ask(save).Status, 0);
  const std::string user = FirstOrdinaryLogin();
  EXPECT_EQ(
      Ask({"TTolPermission.SetUserID", holder, "+", "TTolPermission.GetPermission", "100", "执行"}, user).Out,
      "{\"answer\":\"允许\"}\n");
  EXPECT_EQ(
      Ask({"TTolPermission.SetUserID", "4712", "+", "TTolPermission.GetPermission", "100", "执行"}, user).Out,
      "{\"answer\":\"\"}\n");
}

TEST_F(AskCommand, RecordsOfTheRegistryAreTexts) {
  EXPECT_EQ(Ask({"TTolPermission.FindType", "-99"}).Out, "{\"answer\":[]}\n");
  EXPECT_EQ(Ask({"TTolPermission.GetOpratesByTypeName", "菜单"}).Out, "{\"answer\":[\"执行\"]}\n");
  EXPECT_EQ(Ask({"TTolPermission.GetTypeIDByName", "no such type"}).Out, "{\"answer\":-1}\n");
  EXPECT_EQ(Ask({"TTolPermission.GetGroupIDs", "-1"}).Status, 1);
}

TEST_F(AskCommand, RowsOfTheOrganisationAreTexts) {
  EXPECT_EQ(Ask({"TPartyDAL.LoadUsers", "UserID = 'nobody at all'", "+", "TPartyDAL.UserDataSet"}).Out,
            "{\"answer\":[]}\n");
  const TRan users = Ask({"TPartyDAL.LoadUsers", "", "+", "TPartyDAL.UserDataSet"});
  EXPECT_THAT(users.Out, HasSubstr("\\t" + FirstOrdinaryLogin() + "\\t"));
  EXPECT_THAT(Ask({"TPartyDAL.LoadPartyTopLevel"}).Out, testing::MatchesRegex(".*\\[\".+\"\\].*\n"));
}

TEST_F(AskCommand, EmptyArgumentIsAnArgument) {
  EXPECT_EQ(Ask({"TDomainFuncImpl.CheckDomainAuthByName", ""}).Status, 0);
  EXPECT_EQ(Ask({"TDomainFuncImpl.CheckDomainAuthByName"}).Status, 1);
}

TEST_F(AskCommand, OperationsOfOneNameDifferByTheirArguments) {
  EXPECT_EQ(Ask({"TRunPermission.GetObjOperates", "菜单", "2"}).Out, "{\"answer\":[]}\n");
  EXPECT_EQ(Ask({"TRunPermission.GetObjOperates", "菜单", "no such menu"}).Out, "{\"answer\":[]}\n");
}

TEST_F(AskCommand, WhatDoesNotFitIsSaidWithWhatWould) {
  for (const std::vector<std::string>& words :
       std::vector<std::vector<std::string>>{{"TDomainFuncImpl.CheckDomainAuthById", "three"},
                                             {"TDomainFuncImpl.CheckDomainAuthById"},
                                             {"TDomainFuncImpl.CheckDomainAuthById", "3", "4"},
                                             {"TDomainFuncImpl.CheckDomainAuthById", "99999999999"}}) {
    const TRan ran = Ask(words);
    EXPECT_EQ(ran.Status, 1);
    EXPECT_EQ(ran.Out,
              "{\"error\":\"The arguments do not fit: TDomainFuncImpl.CheckDomainAuthById id:number\"}\n");
  }
}

TEST_F(AskCommand, UnknownOperationAndUnknownUserAreErrors) {
  EXPECT_EQ(Ask({"TDomainFuncImpl.Nonsense"}).Status, 1);
  EXPECT_EQ(Ask({"+"}).Status, 1);
  EXPECT_EQ(Ask({}).Status, 1);
  const TRan ran = Ask({"TDomainFuncImpl.GetCurUserType"}, "nobody at all");
  EXPECT_EQ(ran.Status, 1);
  EXPECT_THAT(ran.Out, HasSubstr("nobody at all"));
}

TEST_F(AskCommand, FailedStatementIsAnErrorWithItsStatement) {
  const TRan ran = Ask({"TDomainFuncImpl.GetDomainInfo", "NoSuchColumn", ""});
  EXPECT_EQ(ran.Status, 1);
  EXPECT_THAT(ran.Out, HasSubstr("NoSuchColumn"));
  EXPECT_THAT(ran.Out, HasSubstr("\"statement\""));
}

TEST_F(AskCommand, ListTellsArgumentsAndAnswers) {
  const TRan ran = zantest::RunProgram({"ask", "--list"});
  EXPECT_EQ(ran.Status, 0);
  EXPECT_THAT(ran.Out, HasSubstr(R"({"operation":"TDomainFuncImpl.CheckDomainAuthById",)"
                                 R"("arguments":[{"name":"id","type":"number"}],"answer":"boolean"})"));
}
