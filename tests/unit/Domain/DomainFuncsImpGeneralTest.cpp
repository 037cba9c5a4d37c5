#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Domain/U_DomainFuncsImp.h"
#include "Domain/U_DomainFuncsImpQuery.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/StatementCorpus.h"

namespace zantest {
namespace {

using testing::ElementsAre;
using namespace zanrole;

// Branches of a scope for operator 12 and current domain 5.
const std::string kCurrent = " select ID DomainID from STDomains where ID = 5";
const std::string kCreated = " select DomainID from STDomainMembers where MemberType = 3 and UserOID = 12";
const std::string kOwn =
    " select DomainID from STDomainMembers where IsOwned = 1 and MemberType <> 3 and UserOID = 12";
const std::string kAuth = " select DomainID from STDomainMembers where IsOwned = 0 and UserOID = 12";
const std::string kUnion = " union all ";

std::string StatementForScope(const char* scope) {
  TRecordingHost host;
  TDomainFuncImpl::SetCurrentDomainID(5);
  ResolveDomainScope(scope);
  return host.Statements.at(0).Text;
}

std::string Wrapped(const std::string& branches) {
  return "select distinct DomainID from (" + branches + ") a";
}

TEST(ResolveDomainScope, ABlankScopeMeansTheCurrentDomain) {
  EXPECT_EQ(StatementForScope(""), Wrapped(kCurrent));
  EXPECT_EQ(StatementForScope(" \t "), Wrapped(kCurrent));
}

TEST(ResolveDomainScope, AScopeWithoutAnyKeywordMeansTheCurrentDomain) {
  const std::string current =
      "select distinct DomainID from (select ID DomainID from STDomains where ID = 5) a";
  EXPECT_EQ(StatementForScope("everything"), current);
  EXPECT_EQ(StatementForScope(","), current);
}

TEST(ResolveDomainScope, EachKeywordWorksInChineseAndInEnglishInAnyCase) {
  EXPECT_EQ(StatementForScope("当前域"), Wrapped(kCurrent));
  EXPECT_EQ(StatementForScope("CURRENT"), Wrapped(kCurrent));
  EXPECT_EQ(StatementForScope("创建域"), Wrapped(kCreated));
  EXPECT_EQ(StatementForScope("created"), Wrapped(kCreated));
  EXPECT_EQ(StatementForScope("所属域"), Wrapped(kOwn));
  EXPECT_EQ(StatementForScope("Own"), Wrapped(kOwn));
  EXPECT_EQ(StatementForScope("域范围"), Wrapped(kAuth));
  EXPECT_EQ(StatementForScope("auth"), Wrapped(kAuth));
}

TEST(ResolveDomainScope, BranchesStandInAFixedOrderWhateverTheOrderOfTheWords) {
  EXPECT_EQ(StatementForScope("Auth, 所属域,Created Current,nonsense"),
            Wrapped(kCurrent + kUnion + kCreated + kUnion + kOwn + kUnion + kAuth));
}

TEST(ResolveDomainScope, AKeywordInBothLanguagesGivesOneBranch) {
  EXPECT_EQ(StatementForScope("Own,所属域"), Wrapped(kOwn));
}

TEST(ResolveDomainScope, OwnAndAuthTogetherGiveOneListWithoutDoublesByTheOuterDistinct) {
  EXPECT_EQ(StatementForScope("Own,Auth"), Wrapped(kOwn + kUnion + kAuth));
}

TEST(ResolveDomainScope, AnEmptyListBecomesTheIdThatNoDomainHas) {
  TRecordingHost host;
  EXPECT_EQ(ResolveDomainScope("Own"), "-10000");
}

TEST(GetDomains, WithNoCurrentDomainAndABlankScopeAsksForTheIdThatNoDomainHasAndGivesTheEmptyText) {
  TRecordingHost host;
  EXPECT_EQ(TDomainFuncImpl::GetDomains("Name", "", false), "");
  ASSERT_EQ(host.Statements.size(), 2u);
  EXPECT_EQ(host.Statements[0].Text,
            "select distinct DomainID from ( select ID DomainID from STDomains where ID = -1) a");
  EXPECT_EQ(host.Statements[1].Text, " select distinct Name from STDomains where ID in (-10000) order by 1");
}

using TGeneralQuery = std::string (*)(const std::string&, const std::string&, bool);

std::string SecondStatement(TGeneralQuery query, const char* field, bool includeLower, TDialect dialect) {
  TRecordingHost host(dialect);
  host.Answer("select distinct DomainID from (", {"DomainID"}, {{3}, {17}});
  host.Answer("order by 1", {"X"}, {{"a"}, {"b"}});
  EXPECT_EQ(query(field, "Own", includeLower), "a,b");
  EXPECT_EQ(host.Statements.size(), 2u);
  return host.Statements.at(1).Text;
}

class GeneralQueries : public testing::TestWithParam<TDialect> {};

TEST_P(GeneralQueries, GetDomainsStatement) {
  EXPECT_EQ(SecondStatement(&TDomainFuncImpl::GetDomains, "Code", false, GetParam()),
            " select distinct Code from STDomains where ID in (3,17) order by 1");
  EXPECT_EQ(SecondStatement(&TDomainFuncImpl::GetDomains, "Code", true, GetParam()),
            " select distinct b.Code from STDomainInherits a inner join STDomains b on a.DescendantID = b.ID "
            "where a.AncestorID in (3,17) order by 1");
}

TEST_P(GeneralQueries, GetDomainUsersStatement) {
  EXPECT_EQ(
      SecondStatement(&TDomainFuncImpl::GetDomainUsers, "UserName", false, GetParam()),
      " select UserName from STUsers where UnUsed <> 1 and uGroup = 0 and IsAdministrator = 0 and OID in "
      "( select UserOID from STDomainMembers where MemberType = 0 and DomainID in (3,17) ) order by 1");
  EXPECT_EQ(
      SecondStatement(&TDomainFuncImpl::GetDomainUsers, "UserName", true, GetParam()),
      " select UserName from STUsers where UnUsed <> 1 and uGroup = 0 and IsAdministrator = 0 and OID in "
      "( select UserOID from STDomainMembers where MemberType = 0 and DomainID in "
      "( select DescendantID from STDomainInherits where AncestorID in (3,17) ) ) order by 1");
}

TEST_P(GeneralQueries, GetDomainRolesStatement) {
  EXPECT_EQ(
      SecondStatement(&TDomainFuncImpl::GetDomainRoles, "UserName", false, GetParam()),
      " select UserName from STUsers where UnUsed <> 1 and uGroup = 1 and IsAdministrator = 0 and OID in "
      "( select UserOID from STDomainMembers where MemberType = 1 and DomainID in (3,17) ) order by 1");
  EXPECT_EQ(
      SecondStatement(&TDomainFuncImpl::GetDomainRoles, "UserName", true, GetParam()),
      " select UserName from STUsers where UnUsed <> 1 and uGroup = 1 and IsAdministrator = 0 and OID in "
      "( select UserOID from STDomainMembers where MemberType = 1 and DomainID in "
      "( select DescendantID from STDomainInherits where AncestorID in (3,17) ) ) order by 1");
}

TEST_P(GeneralQueries, GetDomainManagersStatementCountsNoRangeRows) {
  EXPECT_EQ(
      SecondStatement(&TDomainFuncImpl::GetDomainManagers, "UserID", false, GetParam()),
      " select UserID from STUsers where UnUsed <> 1 and uGroup = 0 and OID in "
      "( select UserOID from STDomainMembers where MemberType = 2 and IsOwned = 1 and DomainID in (3,17) ) "
      "order by 1");
  EXPECT_EQ(SecondStatement(&TDomainFuncImpl::GetDomainManagers, "UserID", true, GetParam()),
            " select UserID from STUsers where UnUsed <> 1 and uGroup = 0 and OID in "
            "( select UserOID from STDomainMembers where MemberType = 2 and IsOwned = 1 and DomainID in "
            "( select DescendantID from STDomainInherits where AncestorID in (3,17) ) ) order by 1");
}

TEST_P(GeneralQueries, ABlankFieldMeansTheIdentity) {
  EXPECT_EQ(SecondStatement(&TDomainFuncImpl::GetDomains, " ", true, GetParam()).substr(0, 23),
            " select distinct b.ID f");
  EXPECT_EQ(SecondStatement(&TDomainFuncImpl::GetDomainUsers, "", false, GetParam()).substr(0, 14),
            " select OID fr");
  EXPECT_EQ(SecondStatement(&TDomainFuncImpl::GetDomainRoles, "", false, GetParam()).substr(0, 14),
            " select OID fr");
  EXPECT_EQ(SecondStatement(&TDomainFuncImpl::GetDomainManagers, "", false, GetParam()).substr(0, 14),
            " select OID fr");
}

INSTANTIATE_TEST_SUITE_P(EachDialect, GeneralQueries,
                         testing::Values(TDialect::SqlServer, TDialect::Oracle, TDialect::MySql));

TEST(GeneralQueries, TheFieldIsPastedAsItIs) {
  EXPECT_EQ(SecondStatement(&TDomainFuncImpl::GetDomainUsers, "UserID || '%s:x'", false, TDialect::Oracle),
            " select UserID || '%s:x' from STUsers where UnUsed <> 1 and uGroup = 0 and IsAdministrator = 0 "
            "and OID in "
            "( select UserOID from STDomainMembers where MemberType = 0 and DomainID in (3,17) ) order by 1");
}

TEST(GeneralQueries, AFailureOfEitherStatementIsRaisedAgainWithTheNameOfTheQuery) {
  struct TExpected {
    TGeneralQuery Query;
    const char* Field;
    const char* Message;
  };
  const TExpected expected[] = {
      {&TDomainFuncImpl::GetDomains, "Name", "GetDomains执行失败，请检查参数传递是否正确!"},
      {&TDomainFuncImpl::GetDomainUsers, "UserName", "GetDomainUsers执行失败，请检查参数传递是否正确!"},
      {&TDomainFuncImpl::GetDomainRoles, "UserName", "GetDomainRoles执行失败，请检查参数传递是否正确!"},
      {&TDomainFuncImpl::GetDomainManagers, "UserName", "GetDomainManagers执行失败，请检查参数传递是否正确!"},
  };
  for (const auto& [query, field, message] : expected) {
    for (const int failing : {1, 2}) {
      TRecordingHost host;
      host.FailStatement(failing);
      const auto ask = [run = query, name = field] { run(name, "Own", false); };
      EXPECT_THAT(ask, testing::ThrowsMessage<EZanError>(message));
      EXPECT_EQ(host.Statements.size(), static_cast<std::size_t>(failing));
    }
  }
}

TEST(GetDomainInfo, PastesFieldAndConditionAsTheyAre) {
  TRecordingHost host;
  host.Answer("select", {"X"}, {{"\\A\\B"}});
  EXPECT_EQ(TDomainFuncImpl::GetDomainInfo("FullName", "Code like 'A%s'"), "\\A\\B");
  EXPECT_EQ(host.Statements.at(0).Text, "select FullName from STDomains where Code like 'A%s'");
}

TEST(GetDomainInfo, ABlankFieldMeansTheIdentityAndABlankConditionAllDomains) {
  TRecordingHost host;
  EXPECT_EQ(TDomainFuncImpl::GetDomainInfo("", " "), "");
  EXPECT_EQ(host.Statements.at(0).Text, "select ID from STDomains where 1=1");
}

TEST(GetDomainInfo, ABadFieldRaisesTheHostsOwnError) {
  TRecordingHost host;
  const TRefusedStatements refused("NoColumn", "there is no such column");
  host.FailStatement(1);
  EXPECT_THROW(TDomainFuncImpl::GetDomainInfo("NoColumn", ""), EDatabaseError);
}

}  // namespace
}  // namespace zantest
