#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Party/PartyUn.h"
#include "tests/support/RecordingHost.h"

// How answers about the organisation are joined, and what happens where there is none.

namespace zantest {
namespace {

using testing::ElementsAre;
using testing::SizeIs;
using TFuncs = zanrole::TPartyFuncs;
using TRows = std::vector<std::vector<TZanValue>>;

class PartyJoining : public testing::Test {
 protected:
  PartyJoining() {
    Host.AlwaysAnswer("MapName", {"MapId"}, {{7}});
    Host.AlwaysAnswer("peoid", {"peoid"}, {{8}});
  }
  void Answer(TRows rows) {
    TRows wide;
    for (const auto& row : rows) wide.push_back({row[0], row[0], row[0], row[0]});
    Host.Answer("select", {"code", "ObjID", "oid", "name"}, std::move(wide));
  }
  TRecordingHost Host;
};

const TRows kTwo = {{" a "}, {"b"}};

TEST_F(PartyJoining, ByFlagTrimsEachValueAndLeavesNoCommaAtTheEnd) {
  for (const auto ask : {TFuncs::Underling, TFuncs::UnderOIDS, TFuncs::PositionUserOIDs,
                         TFuncs::PositionUsercodes, TFuncs::PositionUserNames, TFuncs::GetUserOIDS}) {
    Answer(kTwo);
    EXPECT_EQ(ask("x"), "a,b");
    Answer({{"a"}, {""}, {"b"}, {std::monostate{}}});
    EXPECT_EQ(ask("x"), "a,,b,");
    EXPECT_EQ(ask("x"), "");
  }
  Answer(kTwo);
  EXPECT_EQ(TFuncs::GetPositionUserValues(4, "name"), "a,b");
}

TEST_F(PartyJoining, SuperiorLeavesACommaBehindEachValueAndTrimsNone) {
  Answer(kTwo);
  EXPECT_EQ(TFuncs::Superior("x"), " a ,b,");
  EXPECT_EQ(TFuncs::Superior("x"), "");
}

TEST_F(PartyJoining, OneLevelOfAMapTrimsTheListAndNotItsValues) {
  for (const auto ask : {TFuncs::SuperiorEx, TFuncs::UnderlingEx}) {
    Host.Answer("select code", {"code"}, {{" a "}, {" b "}, {"c"}});
    EXPECT_EQ(ask("x", "m"), "a , b ,c");
    EXPECT_EQ(ask("x", "m"), "");
  }
}

TEST(PartyFuncs, AnUnknownMapNameEndsWithoutAStatementOnPartyH) {
  for (const auto ask : {TFuncs::SuperiorEx, TFuncs::UnderlingEx}) {
    for (const char* map : {"没有", ""}) {
      const TRecordingHost host;
      EXPECT_EQ(ask("li", map), "");
      EXPECT_THAT(host.Statements, SizeIs(1));
    }
  }
}

TEST(PartyFuncs, AnUnknownUserIsNotAnErrorAndGivesAnEmptyAnswer) {
  const TRecordingHost host;
  for (const auto ask : {TFuncs::Superior,           TFuncs::Underling,         TFuncs::SuperOID,
                         TFuncs::UnderOIDS,          TFuncs::DepartmentOID,     TFuncs::DepartmentCode,
                         TFuncs::DepartmentName,     TFuncs::CompanyOID,        TFuncs::CompanyCode,
                         TFuncs::CompanyName,        TFuncs::PositionEntityOID, TFuncs::PositionEntityCode,
                         TFuncs::PositionEntityName, TFuncs::PositionCode,      TFuncs::PositionName,
                         TFuncs::PositionUserOIDs,   TFuncs::PositionUsercodes, TFuncs::PositionUserNames,
                         TFuncs::GetManagerCode,     TFuncs::GetManagerName,    TFuncs::GetUserOID,
                         TFuncs::GetUserOIDS}) {
    EXPECT_EQ(ask("nobody"), "");
  }
}

TEST(PartyFuncs, SingleAnswersAreTheFirstRowTrimmed) {
  for (const auto ask : {TFuncs::SuperOID, TFuncs::DepartmentOID, TFuncs::PositionEntityOID,
                         TFuncs::PositionCode, TFuncs::PositionName, TFuncs::GetUserOID}) {
    TRecordingHost host;
    host.Answer("select", {"UpperPosition", "oid", "code", "name", "ObjID"},
                {{" 1 ", " 1 ", " 1 ", " 1 ", " 1 "}, {"2", "2", "2", "2", "2"}});
    EXPECT_EQ(ask("x"), "1");
  }
}

TEST(PartyDepartment, WithoutAMainPostFallsThroughToADepartmentOfThatCode) {
  TRecordingHost host;
  host.Answer("type='Department' and code='D5'", {"oid"}, {{5}});
  EXPECT_EQ(TFuncs::DepartmentOID("D5"), "5");
  EXPECT_THAT(host.Statements, SizeIs(2));
}

TEST(PartyCompany, StopsAtTheLowerOfTwoCompanies) {
  TRecordingHost host;
  host.Answer("type = 'Department'", {"parent"}, {{3}});
  host.AlwaysAnswer("where djlsh = 3", {"type", "code", "parent"}, {{"Company", " low ", 2}});
  host.AlwaysAnswer("where djlsh = 2", {"type", "code", "parent"}, {{"Company", "high", -1}});
  EXPECT_EQ(TFuncs::CompanyCodeByDepartmentOid("4"), "low");
}

TEST(PartyCompany, ComparesTheTypeExactly) {
  TRecordingHost host;
  host.Answer("type = 'Department'", {"parent"}, {{3}});
  host.AlwaysAnswer("where djlsh = 3", {"type", "code", "parent"}, {{"company", "low", 2}});
  EXPECT_EQ(TFuncs::CompanyCodeByDepartmentOid("4"), "");
}

TEST(PartyCompany, IsEmptyWhereTheWayUpEndsWithoutOne) {
  for (const TZanValue& parent : {TZanValue(std::int64_t{-1}), TZanValue(std::monostate{})}) {
    TRecordingHost host;
    host.Answer("type = 'Department'", {"parent"}, {{3}});
    host.Answer("where djlsh = 3", {"type", "code", "parent"}, {{"Department", "D3", parent}});
    EXPECT_EQ(TFuncs::CompanyCodeByDepartmentOid("4"), "");
  }
}

TEST(PartyCompany, OfAPersonIsEmptyAndAsksNoFurtherWithoutADepartment) {
  for (const auto ask : {TFuncs::CompanyCode, TFuncs::CompanyName, TFuncs::CompanyOID}) {
    const TRecordingHost host;
    EXPECT_EQ(ask("li"), "");
    EXPECT_THAT(host.Statements, SizeIs(2));
  }
}

TEST(PartyManager, ADepartmentWithoutAManagerPostHasNoManager) {
  const TRecordingHost host;
  EXPECT_EQ(TFuncs::GetManagerPositionEntity("D5"), -1);
  EXPECT_EQ(TFuncs::GetManagerCode("D5"), "");
  EXPECT_THAT(host.Statements, SizeIs(2));
}

TEST(PartyManager, OfTwoManagerPostsTheFirstCountsWithAllItsHolders) {
  TRecordingHost host;
  host.AlwaysAnswer("peoid", {"peoid"}, {{8}, {9}});
  host.AlwaysAnswer("parent=:parent", {"code", "name"}, {{"li", "李"}, {"wang", "王"}});
  EXPECT_EQ(TFuncs::GetManagerCode("D5"), "li,wang");
  EXPECT_EQ(TFuncs::GetManagerName("D5"), "李,王");
  EXPECT_EQ(std::get<std::int64_t>(host.Statements.at(1).Params.at(0).second), 8);
}

TEST(PartyUsers, AnEmptyListAsksForTheEmptyLogin) {
  const TRecordingHost host;
  EXPECT_EQ(TFuncs::GetUserOIDS(""), "");
  EXPECT_THAT(host.Texts(), ElementsAre("select ObjID from UserH where (code in (''))"));
}

}  // namespace
}  // namespace zantest
