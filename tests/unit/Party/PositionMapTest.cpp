#include "Party/PositionMap.h"

#include "tests/unit/Party/PartyFixture.h"
#include "tests/unit/Role/Lines.h"

namespace zantest {
namespace {

using namespace zanrole;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kEntities =
    "Select partyh.djlsh, partyH.Type,partyH.name,partyH.title,partyH.IsActive,partyH.Parent,partyH.Code, "
    "positionEntityH.PositionCode,positionEntityH.UpperPosition from partyH,positionEntityH where "
    "partyH.Djlsh=positionEntityH.objID";
constexpr const char* kMaps =
    "select Djlsh, PositionName, PositionID, UpperPosition, MapID from PositionMapH order by UpperPosition";

std::vector<TZanValue> Row(std::initializer_list<TZanValue> cells) { return cells; }
TZanValue Int(std::int64_t value) { return value; }
TZanValue Text(std::string value) { return value; }

/// Positions 11 to 15 and two maps: 1 "行政" with 11 above 12 and 13, and 14 below 12; 2 "财务" with 15.
class TPositionMapTest : public TPartyTest {
 protected:
  struct TPosition {
    int ID;
    int Upper;
  };
  void AnswerEntities(const std::vector<TPosition>& positions) {
    std::vector<std::vector<TZanValue>> rows;
    for (const TPosition& position : positions)
      rows.push_back(Row({Int(position.ID), Text("PositionEntity"), Text("P" + std::to_string(position.ID)),
                          Text("Post"), Int(1), Int(3), Text("C" + std::to_string(position.ID)), Text("K"),
                          Int(position.Upper)}));
    FHost.Answer(
        "from partyH,positionEntityH where partyH.Djlsh=positionEntityH.objID",
        {"djlsh", "Type", "name", "title", "IsActive", "Parent", "Code", "PositionCode", "UpperPosition"},
        rows);
  }
  void AnswerMapRows(const std::vector<std::vector<TZanValue>>& rows) {
    FHost.Answer("from PositionMapH", {"Djlsh", "PositionName", "PositionID", "UpperPosition", "MapID"},
                 rows);
  }
  static std::vector<TZanValue> MapRow(int id, std::string name, int position, int upper, int map) {
    return Row({Int(id), Text(std::move(name)), Int(position), Int(upper), Int(map)});
  }
  TPositionMapList& Company() {
    AnswerEntities({{11, -9}, {12, 11}, {13, 11}, {14, 12}, {15, -9}});
    AnswerMapRows({MapRow(1, "行政", -1, -1, 1), MapRow(2, "财务", -1, -1, 2), MapRow(21, "P11", 11, 1, 1),
                   MapRow(31, "P15", 15, 2, 2), MapRow(22, "P12", 12, 21, 1), MapRow(23, "P13", 13, 21, 1),
                   MapRow(24, "P14", 14, 22, 1)});
    return MapList();
  }
  static std::vector<int> PositionsOf(const TPositionMapItem& item) {
    std::vector<int> positions;
    for (const auto& child : item.FChildren) positions.push_back(child->FEntity->ID);
    return positions;
  }
};

TEST_P(TPositionMapTest, LoadingCostsTwoStatementsForAnyNumberOfMaps) {
  EXPECT_THAT(StatementsOf([&] { Company(); }), ElementsAre(kEntities, kMaps));
  EXPECT_THAT(StatementsOf([&] { MapList(); }), IsEmpty()) << "the list is read once";
}

TEST_P(TPositionMapTest, TheRowsAreHungBelowTheRowTheyName) {
  const TPositionMapList& maps = Company();
  ASSERT_EQ(maps.Count(), 2);
  EXPECT_EQ(maps.Items(0).FName, "行政");
  EXPECT_EQ(maps.Items(0).MapID(), 1);
  EXPECT_EQ(maps.Items(0).FRoot->FEntity, nullptr);
  EXPECT_EQ(maps.Items(0).FRoot->FParent, nullptr);
  EXPECT_THAT(PositionsOf(*maps.Items(0).FRoot), ElementsAre(11));
  TPositionMapItem* const top = maps.Items(0).Find(11);
  ASSERT_NE(top, nullptr);
  EXPECT_THAT(PositionsOf(*top), ElementsAre(12, 13));
  EXPECT_EQ(top->FID, 21);
  EXPECT_FALSE(top->FChanged);
  EXPECT_EQ(maps.Items(0).Find(14)->FParent->FID, 22);
  EXPECT_EQ(maps.Items(0).Find(15), nullptr) << "it stands on the other map";
  EXPECT_EQ(maps.Items(1).Find(15)->FParent, maps.Items(1).FRoot.get());
}

TEST_P(TPositionMapTest, AMapIsFoundByItsExactNameAndTheDefaultOneByNone) {
  const TPositionMapList& maps = Company();
  EXPECT_EQ(maps.FindMap("财务"), &maps.Items(1));
  EXPECT_EQ(maps.FindMap("财务 "), nullptr);
  EXPECT_EQ(maps.FindMap(""), &maps.Items(0));
  EXPECT_EQ(maps.Default(), &maps.Items(0));
  EXPECT_EQ(TPositionMapList().FindMap(""), nullptr);
}

TEST_P(TPositionMapTest, ARowWhosePositionWasDeletedIsDroppedFromMemoryWithItsChildrenAndStaysInTheTable) {
  AnswerEntities({{12, -9}, {13, -9}});
  AnswerMapRows({MapRow(1, "行政", -1, -1, 1), MapRow(21, "P11", 11, 1, 1), MapRow(22, "P13", 13, 1, 1),
                 MapRow(23, "P12", 12, 21, 1)});
  EXPECT_THAT(StatementsOf([&] { MapList(); }), ElementsAre(kEntities, kMaps));
  EXPECT_THAT(PositionsOf(*MapList().Items(0).FRoot), ElementsAre(13));
  EXPECT_EQ(MapList().Items(0).Find(12), nullptr);
}

TEST_P(TPositionMapTest, FreeingTheListLetsTheNextUseReadAnew) {
  Company();
  FreeMapList();
  FreeMapList();
  AnswerEntities({});
  AnswerMapRows({MapRow(7, "新", -1, -1, 7)});
  EXPECT_THAT(StatementsOf([&] { MapList(); }), ElementsAre(kEntities, kMaps));
  EXPECT_EQ(MapList().Default()->FName, "新");
}

TEST_P(TPositionMapTest, AListThatCouldNotBeReadIsTriedAgain) {
  FHost.FailStatement(2);
  EXPECT_THROW(MapList(), EDatabaseError);
  EXPECT_EQ(Company().Count(), 2);
}

TEST_P(TPositionMapTest, WithoutAMapTheOldChainIsMadeIntoOneOfThePositionsBelowMinusOne) {
  AnswerEntities({{11, -1}, {12, 11}, {13, -1}, {14, 12}, {15, -9}, {16, 15}});
  AnswerMapRows({});
  const std::string row =
      "insert into PositionMapH (Djlsh, PositionID, PositionName, UpperPosition, MapID) values(";
  const auto batch = [&](const std::string& quote) {
    const auto text = [&](const std::string& name) { return quote + name + quote; };
    return row + "1, -1, " + text("岗位关系图") + ", -1, 1); " + row + "2, 11, " + text("P11") + ", 1, 1); " +
           row + "3, 12, " + text("P12") + ", 2, 1); " + row + "4, 14, " + text("P14") + ", 3, 1); " + row +
           "5, 13, " + text("P13") + ", 1, 1);";
  };
  EXPECT_THAT(StatementsOf([&] { MapList(); }),
              ElementsAre(kEntities, kMaps, Batch(batch("'"), batch("''"))));
  EXPECT_THAT(FHost.NumbersDrawn, testing::Each("PositionMap"));
  EXPECT_EQ(MapList().Default()->FName, "岗位关系图");
  EXPECT_EQ(MapList().Default()->Find(15), nullptr) << "-9 is no top of the chain";
  EXPECT_EQ(MapList().Default()->Find(14)->FParent->FEntity->ID, 12);
}

TEST_P(TPositionMapTest, APositionWithoutAKnownSuperiorIsAskedForItOnceWhenTheChainIsMadeIntoAMap) {
  AnswerEntities({{11, 0}});
  AnswerMapRows({});
  FHost.Answer("select upperPosition from positionEntityH where objID=11", {"upperPosition"}, {{Int(-1)}});
  const auto texts = StatementsOf([&] { MapList(); });
  ASSERT_EQ(texts.size(), 4u);
  EXPECT_EQ(texts[2], "select upperPosition from positionEntityH where objID=11");
  EXPECT_NE(MapList().Default()->Find(11), nullptr);
}

TEST_P(TPositionMapTest, MapIDOfAnUnsavedMapIsMinusOneAndAfterUpdateThatOfTheRowThatItIsSavedIn) {
  AnswerEntities({{11, -9}});
  AnswerMapRows({MapRow(101, "行政", -1, -1, 101)});
  TPositionMap& map = MapList().Add("新图");
  EXPECT_EQ(map.MapID(), -1);
  EXPECT_EQ(TPositionMap(MapList(), "无根").MapID(), -8);
  TPositionMapItem& item = map.Append(nullptr, *MapList().FindEntity(11));
  EXPECT_TRUE(item.FChanged);
  EXPECT_EQ(item.FID, -1);
  const std::string row =
      "insert into PositionMapH (Djlsh, PositionID, PositionName, UpperPosition, MapID) values(";
  const std::string first = "update PositionMapH set UpperPosition = -1 where djlsh = 101; ";
  EXPECT_THAT(StatementsOf([&] { MapList().update(); }),
              ElementsAre(Batch(first + row + "1, -1, '新图', -1, 1); " + row + "2, 11, 'P11', 1, 1);",
                                first + row + "1, -1, ''新图'', -1, 1); " + row + "2, 11, ''P11'', 1, 1);")));
  EXPECT_EQ(map.MapID(), 1);
  EXPECT_EQ(item.FID, 2);
  EXPECT_FALSE(item.FChanged);
}

TEST_P(TPositionMapTest, EveryUpdateWritesThePlaceOfEveryRowAgain) {
  TPositionMapList& maps = Company();
  const std::string set = "update PositionMapH set UpperPosition = ";
  const std::string all = set + "-1 where djlsh = 1; " + set + "1 where djlsh = 21; " + set +
                          "21 where djlsh = 22; " + set + "22 where djlsh = 24; " + set +
                          "21 where djlsh = 23; " + set + "-1 where djlsh = 2; " + set +
                          "2 where djlsh = 31;";
  EXPECT_THAT(StatementsOf([&] { maps.update(); }), ElementsAre(Batch(all)));
  EXPECT_THAT(StatementsOf([&] { maps.update(); }), ElementsAre(Batch(all)));
}

TEST_P(TPositionMapTest, ARenamedMapWritesItsNameBehindItsRows) {
  AnswerEntities({});
  AnswerMapRows({MapRow(1, "行政", -1, -1, 1)});
  TPositionMap& map = MapList().Items(0);
  map.FName = "O'Neill";
  map.FChanged = true;
  const std::string place = "update PositionMapH set UpperPosition = -1 where djlsh = 1; ";
  const std::string rename = "Update PositionMapH set PositionName = ";
  EXPECT_THAT(StatementsOf([&] { MapList().update(); }),
              ElementsAre(Batch(place + rename + "'O''Neill' where djlsh = 1;",
                                place + rename + "''O''''Neill'' where djlsh = 1;")));
  EXPECT_FALSE(map.FChanged);
}

TEST_P(TPositionMapTest, TheNameOfANewRowIsJoinedUnescaped) {
  AnswerEntities({});
  AnswerMapRows({MapRow(101, "行政", -1, -1, 101)});
  MapList().Items(0).FRoot->FID = 0;
  MapList().Items(0).FName = "O'Neill";
  TStringList lines;
  MapList().Items(0).ProcessUpdate(lines);
  EXPECT_THAT(Lines(lines),
              ElementsAre("insert into PositionMapH (Djlsh, PositionID, PositionName, UpperPosition, "
                          "MapID) values(1, -1, 'O'Neill', -1, 1)"));
}

TEST_P(TPositionMapTest, AFailedUpdateLeavesTheTreeInMemoryAheadOfTheDatabase) {
  AnswerEntities({});
  AnswerMapRows({MapRow(101, "行政", -1, -1, 101)});
  TPositionMap& map = MapList().Add("新图");
  FHost.FailStatement(1);
  EXPECT_THROW(MapList().update(), EDatabaseError);
  EXPECT_EQ(MapList().Count(), 2);
  EXPECT_EQ(map.MapID(), 1) << "the number drawn stays";
  EXPECT_TRUE(map.FRoot->FChanged);
}

TEST_P(TPositionMapTest, AMovedItemTakesItsNumberAndWhatIsBelowItAlong) {
  TPositionMap& map = Company().Items(0);
  TPositionMapItem& target = *map.Find(13);
  EXPECT_THAT(StatementsOf([&] { target.AcceptChild(*map.Find(12)); }), IsEmpty());
  EXPECT_THAT(PositionsOf(*map.Find(11)), ElementsAre(13));
  EXPECT_THAT(PositionsOf(target), ElementsAre(12));
  EXPECT_EQ(map.Find(12)->FID, 22);
  EXPECT_EQ(map.Find(12)->FParent, &target);
  EXPECT_THAT(PositionsOf(*map.Find(12)), ElementsAre(14));
  const std::string set = "update PositionMapH set UpperPosition = ";
  TStringList lines;
  map.ProcessUpdate(lines);
  EXPECT_THAT(Lines(lines),
              ElementsAre(set + "-1 where djlsh = 1", set + "1 where djlsh = 21", set + "21 where djlsh = 23",
                          set + "23 where djlsh = 22", set + "22 where djlsh = 24"));
}

TEST_P(TPositionMapTest, WhatIsBelowAMovedItemStillNamesItsOldPlaceAsParentUntilTheNextLoad) {
  TPositionMap& map = Company().Items(0);
  const TPositionMapItem* const oldPlace = map.Find(12);
  map.Find(13)->AcceptChild(*map.Find(12));
  EXPECT_EQ(map.Find(14)->FParent, oldPlace);
  EXPECT_EQ(map.Find(14)->FParent->FID, 22);
  EXPECT_EQ(map.Find(14)->FParent->FParent->FEntity->ID, 11);
}

TEST_P(TPositionMapTest, DeletingAnItemDeletesWhatIsBelowItFirstEachAtOnce) {
  TPositionMap& map = Company().Items(0);
  EXPECT_THAT(
      StatementsOf([&] { map.FRoot->DeleteChild(*map.Find(11)); }),
      ElementsAre("delete from PositionMapH where djlsh = 24", "delete from PositionMapH where djlsh = 22",
                  "delete from PositionMapH where djlsh = 23", "delete from PositionMapH where djlsh = 21"));
  EXPECT_THAT(map.FRoot->FChildren, IsEmpty());
}

TEST_P(TPositionMapTest, ADeletionThatFailsLeavesDeletedWhatWasDeletedBefore) {
  TPositionMap& map = Company().Items(0);
  FHost.FailStatement(3);
  EXPECT_THROW(map.FRoot->ClearChildren(), EDatabaseError);
  EXPECT_EQ(map.Find(14), nullptr);
  EXPECT_EQ(map.Find(12), nullptr);
  EXPECT_NE(map.Find(13), nullptr);
  EXPECT_NE(map.Find(11), nullptr);
}

TEST_P(TPositionMapTest, AMapIsDeletedByOneStatementOverItsRows) {
  TPositionMapList& maps = Company();
  EXPECT_THAT(StatementsOf([&] { maps.Delete(maps.Items(0)); }),
              ElementsAre("delete from PositionMapH where MapID = 1"));
  ASSERT_EQ(maps.Count(), 1);
  EXPECT_EQ(maps.Default()->FName, "财务");
}

TEST_P(TPositionMapTest, AMapThatCannotBeDeletedStays) {
  TPositionMapList& maps = Company();
  FHost.FailStatement(1);
  EXPECT_THROW(maps.Delete(maps.Items(0)), EZanError);
  EXPECT_EQ(maps.Count(), 2);
}

IN_EVERY_DIALECT(TPositionMapTest);

TEST(PositionMap, EachSessionHasAListOfItsOwn) {
  TRecordingHost first;
  first.Answer("from PositionMapH", {"Djlsh", "PositionName", "PositionID", "UpperPosition", "MapID"},
               {{Int(5), Text("一"), Int(-1), Int(-1), Int(5)}});
  EXPECT_EQ(MapList().Default()->MapID(), 5);
  {
    TRecordingHost second;
    second.Answer("from PositionMapH", {"Djlsh", "PositionName", "PositionID", "UpperPosition", "MapID"},
                  {{Int(6), Text("二"), Int(-1), Int(-1), Int(6)}});
    EXPECT_EQ(MapList().Default()->MapID(), 6);
  }
  EXPECT_EQ(MapList().Default()->MapID(), 5);
}

}  // namespace
}  // namespace zantest
