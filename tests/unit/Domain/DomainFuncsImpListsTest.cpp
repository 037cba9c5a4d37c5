#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Domain/U_DomainFuncsImp.h"
#include "Domain/U_DomainFuncsImpQuery.h"
#include "tests/support/RecordingHost.h"

namespace zantest {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using namespace zanrole;

TEST(QueryList, JoinsTheFirstColumnByCommasAndLeavesEmptyValuesOut) {
  TRecordingHost host;
  host.Answer("select", {"A", "B"}, {{1, "x"}, {std::monostate{}, "y"}, {"", "z"}, {"two", "x"}, {1, ""}});
  EXPECT_EQ(QueryList("select ID, Code from STDomains"), "1,two,1");
}

TEST(QueryList, OfNoRowsIsTheEmptyText) {
  TRecordingHost host;
  EXPECT_EQ(QueryList("select ID from STDomains"), "");
  host.Answer("select", {"A"}, {{""}, {""}});
  EXPECT_EQ(QueryList("select ID from STDomains"), "");
}

TEST(QueryValue, IsTheFirstCellOrEmptyForNoRow) {
  TRecordingHost host;
  EXPECT_EQ(QueryValue("select ID from STDomains"), "");
  host.Answer("select", {"A", "B"}, {{7, 8}, {9, 10}});
  EXPECT_EQ(QueryValue("select ID, Code from STDomains"), "7");
}

TEST(QueryExists, IsTrueForARowWhateverItHolds) {
  TRecordingHost host;
  EXPECT_FALSE(QueryExists("select ID from STDomains"));
  host.Answer("select", {"A"}, {{std::monostate{}}});
  EXPECT_TRUE(QueryExists("select ID from STDomains"));
}

TEST(GetAuthDomainRolesEx, OffersRolesOfNoDomainToTheSuperUserAndTheBuilderOnly) {
  const auto ending = [](bool superUser, bool builder) {
    TRecordingHost host;
    host.SystemInfo().IsSuperUser = superUser;
    host.Builder = builder;
    TDomainFuncImpl::GetAuthDomainRolesEx();
    return host.Statements.at(0).Text;
  };
  EXPECT_THAT(ending(false, false), EndsWith("UserOID = 12 ) or b.DomainID = -100 ) order by 1"));
  EXPECT_THAT(ending(true, false),
              EndsWith("UserOID = 12 ) or b.DomainID = -100 or b.DomainID is null ) order by 1"));
  EXPECT_THAT(ending(false, true),
              EndsWith("UserOID = 12 ) or b.DomainID = -100 or b.DomainID is null ) order by 1"));
}

TEST(CharCountInStr, CountsHowOftenACharacterOccurs) {
  EXPECT_EQ(CharCountInStr(',', ""), 0);
  EXPECT_EQ(CharCountInStr(',', "1,2,,3"), 3);
  EXPECT_EQ(CharCountInStr('\\', "\\3\\17\\"), 3);
  EXPECT_EQ(CharCountInStr(',', "用户，域"), 0);
}

TEST(ResString, GivesTheKeyWhereTheHostHasNoEntry) {
  const TRecordingHost host;
  EXPECT_EQ(ResString("域"), "域");
}

}  // namespace
}  // namespace zantest
