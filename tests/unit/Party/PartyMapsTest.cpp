#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Party/PartyUn.h"
#include "Party/PositionMap.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/StatementCorpus.h"

// Questions that walk a map in memory. The maps, by the numbers of their rows:
//
//   行政图 100 ── 101 (position 1) ── 102 (position 2) ── 104 (position 4)
//                                  └─ 103 (position 3)
//   业务图 200 ── 201 (position 2)

namespace zantest {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;
using TFuncs = zanrole::TPartyFuncs;

class PartyMaps : public testing::Test {
 protected:
  PartyMaps() {
    Host.AlwaysAnswer(
        "from partyH,positionEntityH",
        {"Djlsh", "Type", "Name", "Title", "IsActive", "Parent", "Code", "PositionCode", "UpperPosition"},
        {Entity(1), Entity(2), Entity(3), Entity(4)});
    Host.AlwaysAnswer("from PositionMapH order by UpperPosition",
                      {"Djlsh", "PositionName", "PositionID", "UpperPosition", "MapID"},
                      {{100, "行政图", -1, -1, 100},
                       {200, "业务图", -1, -1, 200},
                       {101, "p1", 1, 100, 100},
                       {102, "p2", 2, 101, 100},
                       {103, "p3", 3, 101, 100},
                       {104, "p4", 4, 102, 100},
                       {201, "p2", 2, 200, 200}});
    zanrole::MapList();
    Host.Statements.clear();
  }

  void PutOnPosition(int position) {
    Host.AlwaysAnswer("select parent from partyh where code= ", {"parent"}, {{position}, {99}});
  }

  static std::vector<TZanValue> Entity(int id) {
    return {id, "PositionEntity", "p", "p", 1, 50, "code", "kind", -9};
  }

  const TRefusedStatements FComma{",)", "a list ends in a comma"};
  const TRefusedStatements FQuote{"'o'neil'", "the quote in the login ends the literal"};
  TRecordingHost Host;
};

TEST_F(PartyMaps, AllSuperiorsAreAskedByTheirPlacesNearestFirstInAListThatEndsInAComma) {
  PutOnPosition(4);
  Host.Answer("parent in (102,101,100,)", {"code"}, {{" li "}, {"wang"}});
  EXPECT_EQ(TFuncs::SuperiorAllEx("x", "行政图"), " li ,wang,");
  EXPECT_EQ(Host.Texts().at(1), "select code from partyH where parent in (102,101,100,)");
}

TEST_F(PartyMaps, AllUnderlingsAreAskedByTheirPlacesANodeBeforeItsChildren) {
  PutOnPosition(1);
  Host.Answer("parent in (102,104,103,)", {"code"}, {{" li "}, {"wang"}});
  EXPECT_EQ(TFuncs::UnderlingAllEx("x", "行政图"), "li,wang,");
  EXPECT_EQ(Host.Texts().at(1), "select code from partyH where parent in (102,104,103,)");
}

TEST_F(PartyMaps, TheFailureOfThatListPassesToTheCaller) {
  PutOnPosition(2);
  Host.FailStatement(2);
  EXPECT_THROW(TFuncs::SuperiorAllEx("x", ""), zanrole::EDatabaseError);
  Host.FailStatement(2);
  EXPECT_THROW(TFuncs::UnderlingAllEx("x", ""), zanrole::EDatabaseError);
}

TEST_F(PartyMaps, AtTheFirstLevelTheOnlyPlaceAboveIsTheRoot) {
  PutOnPosition(1);
  TFuncs::SuperiorAllEx("x", "行政图");
  EXPECT_EQ(Host.Texts().at(1), "select code from partyH where parent in (100,)");
  EXPECT_EQ(TFuncs::SuperOIDEx("x", "行政图"), "100");
}

TEST_F(PartyMaps, AtTheLastLevelThereIsNothingBelow) {
  PutOnPosition(4);
  EXPECT_EQ(TFuncs::UnderlingAllEx("x", "行政图"), "");
  EXPECT_EQ(TFuncs::UnderOIDSEx("x", "行政图"), "");
  EXPECT_THAT(Host.Statements, SizeIs(2));
}

TEST_F(PartyMaps, PlacesDirectlyAboveAndBelow) {
  PutOnPosition(2);
  EXPECT_EQ(TFuncs::SuperOIDEx("x", "行政图"), "101");
  EXPECT_EQ(TFuncs::UnderOIDSEx("x", "行政图"), "104");
  EXPECT_EQ(TFuncs::SuperOIDEx("x", "业务图"), "200");
}

TEST_F(PartyMaps, SeveralPlacesBelowAreJoinedByCommas) {
  PutOnPosition(1);
  EXPECT_EQ(TFuncs::UnderOIDSEx("x", "行政图"), "102,103");
}

TEST_F(PartyMaps, AnEmptyNameIsTheFirstMapOfTheList) {
  PutOnPosition(2);
  EXPECT_EQ(TFuncs::SuperOIDEx("x", ""), "101");
}

TEST_F(PartyMaps, AnUnknownMapGivesAnEmptyAnswerWithoutAStatement) {
  for (const auto ask :
       {TFuncs::SuperiorAllEx, TFuncs::UnderlingAllEx, TFuncs::SuperOIDEx, TFuncs::UnderOIDSEx}) {
    EXPECT_EQ(ask("x", "没有"), "");
  }
  EXPECT_THAT(Host.Statements, IsEmpty());
}

TEST_F(PartyMaps, WhoIsUnknownOrNotOnTheMapGetsAnEmptyAnswer) {
  for (const auto ask :
       {TFuncs::SuperiorAllEx, TFuncs::UnderlingAllEx, TFuncs::SuperOIDEx, TFuncs::UnderOIDSEx}) {
    EXPECT_EQ(ask("nobody", "行政图"), "");
  }
  PutOnPosition(4);
  EXPECT_EQ(TFuncs::SuperOIDEx("x", "业务图"), "");
  EXPECT_THAT(Host.Statements, SizeIs(5));
}

TEST_F(PartyMaps, OnlyUnderlingAllExEscapesTheLogin) {
  const auto statement = [&](std::string (*ask)(const std::string&, const std::string&)) {
    Host.Statements.clear();
    ask("o'neil", "");
    return Host.Texts().at(0);
  };
  const std::string select = "select parent from partyh where code= ";
  EXPECT_EQ(statement(TFuncs::SuperiorAllEx), select + "'o'neil'");
  EXPECT_EQ(statement(TFuncs::UnderlingAllEx), select + "'o''neil'");
  EXPECT_EQ(statement(TFuncs::SuperOIDEx), select + "'o'neil'");
  EXPECT_EQ(statement(TFuncs::UnderOIDSEx), select + "'o'neil'");
}

TEST_F(PartyMaps, AMapEditedElsewhereIsSeenAfterFreeMapList) {
  EXPECT_EQ(TFuncs::SuperOIDEx("x", ""), "");
  EXPECT_THAT(Host.Statements, SizeIs(1));
  zanrole::FreeMapList();
  Host.Statements.clear();
  TFuncs::SuperOIDEx("x", "");
  EXPECT_THAT(Host.Statements, SizeIs(3));
}

}  // namespace
}  // namespace zantest
