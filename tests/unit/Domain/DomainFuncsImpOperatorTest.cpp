#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Domain/U_DomainFuncsImp.h"
#include "tests/support/RecordingHost.h"

namespace zantest {
namespace {

using testing::ElementsAre;
using testing::FieldsAre;
using testing::IsEmpty;
using namespace zanrole;

const char* const kManagedDomains =
    "select DomainID from STDomainMembers where MemberType = 2 and UserOID = 12";
const char* const kEmpowermentRight = "select EmpowermentRight from STUsers where OID = 12";

TEST(CheckOperatorIsAdmin, TheBuilderPassesWithoutAStatement) {
  TRecordingHost host;
  host.Builder = true;
  host.SystemInfo().LoginUserOID = -1;
  EXPECT_TRUE(CheckOperatorIsAdmin());
  EXPECT_FALSE(CheckOperatorHasEmpowermentRight());
  EXPECT_THAT(host.Statements, IsEmpty());
}

TEST(CheckOperatorIsAdmin, TheSuperUserPassesWithoutAStatement) {
  TRecordingHost host;
  host.SystemInfo().IsSuperUser = true;
  EXPECT_TRUE(CheckOperatorIsAdmin());
  EXPECT_FALSE(CheckOperatorHasEmpowermentRight());
  EXPECT_THAT(host.Statements, IsEmpty());
}

TEST(CheckOperatorIsAdmin, AManagerWithOnlyRangeRowsIsAnAdministratorButOfUserTypeZero) {
  TRecordingHost host;
  host.Answer(kManagedDomains, {"DomainID"}, {{3}});
  EXPECT_TRUE(CheckOperatorIsAdmin());
  EXPECT_EQ(TDomainFuncImpl::GetCurUserType(), 0);
  EXPECT_THAT(host.Texts(),
              ElementsAre(kManagedDomains,
                          "select 2 C from STDomainMembers where MemberType=2 and IsOwned=1 and UserOID=12"));
}

TEST(CheckOperatorHasEmpowermentRight, IsTrueForExactlyOne) {
  const auto holds = [](TZanValue right) {
    TRecordingHost host;
    host.Answer(kEmpowermentRight, {"EmpowermentRight"}, {{std::move(right)}});
    EXPECT_FALSE(CheckOperatorIsAdmin());
    EXPECT_THAT(host.Texts(), ElementsAre(kManagedDomains, kEmpowermentRight));
    return CheckOperatorHasEmpowermentRight();
  };
  EXPECT_TRUE(holds(1));
  EXPECT_FALSE(holds(0));
  EXPECT_FALSE(holds(2));
  EXPECT_FALSE(holds(std::monostate{}));
}

TEST(CheckOperatorHasEmpowermentRight, IsFalseForAnAdministratorWhoIsNotEvenAsked) {
  TRecordingHost host;
  host.AlwaysAnswer(kManagedDomains, {"DomainID"}, {{3}});
  host.AlwaysAnswer(kEmpowermentRight, {"EmpowermentRight"}, {{1}});
  EXPECT_FALSE(CheckOperatorHasEmpowermentRight());
  EXPECT_THAT(host.Texts(), ElementsAre(kManagedDomains));
}

TEST(OperatorCheck, IsKeptUntilTheLoginChanges) {
  TRecordingHost host;
  EXPECT_FALSE(CheckOperatorIsAdmin());
  host.AlwaysAnswer("MemberType = 2", {"DomainID"}, {{3}});
  EXPECT_FALSE(CheckOperatorIsAdmin());
  EXPECT_FALSE(CheckOperatorHasEmpowermentRight());
  EXPECT_EQ(host.Statements.size(), 2u);

  host.SystemInfo().LoginUserOID = 13;
  EXPECT_TRUE(CheckOperatorIsAdmin());
  EXPECT_EQ(host.Statements.size(), 3u);
  EXPECT_EQ(host.Statements[2].Text,
            "select DomainID from STDomainMembers where MemberType = 2 and UserOID = 13");
}

TEST(OperatorCheck, IsNotKeptWhenAStatementFails) {
  TRecordingHost host;
  host.FailStatement(2);
  EXPECT_THROW(CheckOperatorIsAdmin(), EDatabaseError);
  EXPECT_FALSE(CheckOperatorIsAdmin());
  EXPECT_THAT(host.Texts(),
              ElementsAre(kManagedDomains, kEmpowermentRight, kManagedDomains, kEmpowermentRight));
}

TEST(GetCurUserType, TheBuilderIsNoKindOfHisOwn) {
  TRecordingHost host;
  host.Builder = true;
  EXPECT_EQ(TDomainFuncImpl::GetCurUserType(), 0);
  EXPECT_EQ(host.Statements.size(), 1u);
}

TEST(CurrentDomain, BelongsToTheSessionAndIsMinusOneAtItsStart) {
  {
    TRecordingHost host;
    TDomainFuncImpl::SetCurrentDomainID(5);
    EXPECT_EQ(TDomainFuncImpl::GetCurDomainID(), 5);
  }
  const TRecordingHost host;
  EXPECT_EQ(TDomainFuncImpl::GetCurDomainID(), -1);
}

TEST(SetCurrentDomainID, TakesAnyNumberWithoutATest) {
  TRecordingHost host;
  TDomainFuncImpl::SetCurrentDomainID(-7);
  EXPECT_EQ(TDomainFuncImpl::GetCurDomainID(), -7);
  EXPECT_THAT(host.Statements, IsEmpty());
}

TEST(SetCurrentDomainID, CallsTheServiceWhenUsingIntranetIsFalseInAnyCaseOfLetters) {
  for (const char* word : {"false", "False", "FALSE"}) {
    TRecordingHost host;
    host.SystemInfo().SessionParams.SetValue("UsingIntranet", word);
    host.SystemInfo().SessionParams.SetValue("UserToken", "token=1");
    TDomainFuncImpl::SetCurrentDomainID(17);
    ASSERT_EQ(host.WebCalls.size(), 1u) << word;
    const TSoapCall& call = host.WebCalls[0];
    EXPECT_EQ(call.ServiceAddress, "http://server/services/User.svc");
    EXPECT_EQ(call.Contract, "IUserService");
    EXPECT_EQ(call.Service, "User");
    EXPECT_EQ(call.Method, "SetCurDomainID");
    EXPECT_THAT(call.Params, ElementsAre(FieldsAre("userId", "string", "operator"),
                                         FieldsAre("publicToken", "string", "token=1"),
                                         FieldsAre("CurDomainID", "int", "17")));
  }
}

TEST(SetCurrentDomainID, CallsNothingWhenUsingIntranetIsTrueOrMissing) {
  TRecordingHost host;
  TDomainFuncImpl::SetCurrentDomainID(17);
  for (const char* word : {"true", " false", "0", "no"}) {
    host.SystemInfo().SessionParams.SetValue("UsingIntranet", word);
    TDomainFuncImpl::SetCurrentDomainID(17);
  }
  EXPECT_THAT(host.WebCalls, IsEmpty());
}

TEST(SetCurrentDomainID, CallsNothingWhereThereIsNoServerToNotify) {
  TRecordingHost host;
  host.WebServiceAddress.clear();
  host.SystemInfo().SessionParams.SetValue("UsingIntranet", "false");
  TDomainFuncImpl::SetCurrentDomainID(17);
  EXPECT_THAT(host.WebCalls, IsEmpty());
  EXPECT_EQ(TDomainFuncImpl::GetCurDomainID(), 17);
}

}  // namespace
}  // namespace zantest
