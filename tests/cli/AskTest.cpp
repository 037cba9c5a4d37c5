#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/cli/Program.h"

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
