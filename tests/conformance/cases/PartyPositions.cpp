#include "Party/PositionMap.h"
#include "tests/conformance/cases/PartyWorld.h"

// Who is above whom: the chain of superiors, and the maps of positions.

namespace zantest {

using namespace zanrole;

namespace {

std::string Text(int number) { return std::to_string(number); }

/// Four positions of one department.
class TPositionWorld : public TPartyWorld {
 public:
  explicit TPositionWorld(zanhost::TDatabase& database) : TPartyWorld(database) {
    const int company = Save("Company", -1, "总公司");
    const int department = Save("Department", company, "财务部");
    for (const char* name : {"一", "二", "三", "四"})
      Positions.push_back(Save("PositionEntity", department, name));
  }
  /// The same positions on a map of this name: the first above the others.
  TPositionMap& MakeMap(const std::string& name) {
    TPositionMap& map = MapList().Add(name);
    TPositionMapItem& top = map.Append(nullptr, *MapList().FindEntity(Positions[0]));
    for (int i = 1; i < 4; ++i)
      map.Append(&top, *MapList().FindEntity(Positions[static_cast<std::size_t>(i)]));
    MapList().update();
    return map;
  }
  std::vector<int> Positions;
};

/// Makes `upper` the superior when that closes no loop, as the dialog does.
bool SetUpper(int position, int upper) {
  TPositionEntity entity(position);
  if (!entity.testUpperPosition(upper)) return false;
  entity.FupperPositionID = upper;
  entity.updateUpperPositionID();
  return true;
}

}  // namespace

TEST_P(Conformance, PartyPositions_ASuperiorThatClosesALoopIsRefused) {
  Engine().InstallSchema();
  const TPositionWorld world(Database());
  const auto& p = world.Positions;
  EXPECT_FALSE(SetUpper(p[0], p[0]));
  EXPECT_TRUE(SetUpper(p[1], p[0]));
  EXPECT_TRUE(SetUpper(p[2], p[1]));
  EXPECT_FALSE(SetUpper(p[0], p[2]));
  EXPECT_TRUE(SetUpper(p[2], p[3]));
  EXPECT_TRUE(SetUpper(p[0], p[2])) << "it stands elsewhere now";
  EXPECT_FALSE(SetUpper(p[3], p[1]));
}

TEST_P(Conformance, PartyPositions_TheSuperiorIsWrittenReadAndCleared) {
  Engine().InstallSchema();
  const TPositionWorld world(Database());
  const auto& p = world.Positions;
  TPositionEntity upper(p[0]);
  TPositionEntity position(p[1]);
  EXPECT_EQ(position.FupperPositionID, -9);
  EXPECT_EQ(position.GetUpperDepartment().name, "财务部");
  position.upperPosition = &upper;
  position.saveUpperPosition();
  TPositionEntity again(p[1]);
  EXPECT_EQ(again.GetUpperPositionID(), p[0]);
  EXPECT_EQ(again.GetUpperPosition().name, "一");
  again.name = "二甲";
  again.update();
  EXPECT_EQ(Rows("select Name, UpperPosition from PositionEntityH where ObjID = " + Text(p[1])),
            (std::vector<TTextRow>{{"二甲", Text(p[0])}}));
  EXPECT_EQ(Rows("select Name, IsActive from PartyH where DjLsh = " + Text(p[1])),
            (std::vector<TTextRow>{{"二甲", "1"}}));
  again.clearUpperPosition();
  EXPECT_EQ(TPositionEntity(p[1]).FupperPositionID, -9);
  EXPECT_EQ(TPositionEntity(p[1]).GetUpperPosition().ID, 0);
}

TEST_P(Conformance, PartyPositions_TheOldChainBecomesAMap) {
  Engine().InstallSchema();
  const TPositionWorld world(Database());
  const auto& p = world.Positions;
  Exec("update PositionEntityH set UpperPosition = -1 where ObjID = " + Text(p[0]));
  Exec("update PositionEntityH set UpperPosition = " + Text(p[0]) + " where ObjID = " + Text(p[1]));
  TPositionMap* const map = MapList().FindMap("岗位关系图");
  ASSERT_NE(map, nullptr);
  ASSERT_NE(map->Find(p[1]), nullptr);
  EXPECT_EQ(map->Find(p[1])->FParent->FEntity->ID, p[0]);
  EXPECT_EQ(map->Find(p[2]), nullptr) << "-9 is no top of the chain";
  const std::string root = Text(map->MapID());
  EXPECT_EQ(Rows("select PositionID, PositionName, MapID from PositionMapH where UpperPosition = -1"),
            (std::vector<TTextRow>{{"-1", "岗位关系图", root}}));
  EXPECT_EQ(Cell("select count(*) from PositionMapH where MapID = " + root), "3");
  FreeMapList();
  EXPECT_EQ(MapList().Count(), 1) << "it is read, not made again";
  EXPECT_EQ(Cell("select count(*) from PositionMapH"), "3");
}

TEST_P(Conformance, PartyPositions_AMapIsSavedAndReadBack) {
  Engine().InstallSchema();
  TPositionWorld world(Database());
  const auto& p = world.Positions;
  const int id = world.MakeMap("项目图").MapID();
  EXPECT_EQ(Cell("select MapID from PositionMapH where Djlsh = " + Text(id)), Text(id));
  FreeMapList();
  TPositionMap* const map = MapList().FindMap("项目图");
  ASSERT_NE(map, nullptr);
  EXPECT_EQ(map->MapID(), id);
  ASSERT_NE(map->Find(p[3]), nullptr);
  EXPECT_EQ(map->Find(p[3])->FParent, map->Find(p[0]));
  EXPECT_EQ(map->Find(p[0])->FParent, map->FRoot.get());
}

TEST_P(Conformance, PartyPositions_AMoveAndARenameAreSaved) {
  Engine().InstallSchema();
  TPositionWorld world(Database());
  const auto& p = world.Positions;
  TPositionMap& map = world.MakeMap("项目图");
  map.Find(p[1])->AcceptChild(*map.Find(p[2]));
  map.FName = "O'Neill 图";
  map.FChanged = true;
  MapList().update();
  FreeMapList();
  TPositionMap* const renamed = MapList().FindMap("O'Neill 图");
  ASSERT_NE(renamed, nullptr);
  EXPECT_EQ(renamed->Find(p[2])->FParent->FEntity->ID, p[1]);
  EXPECT_EQ(MapList().FindMap("项目图"), nullptr);
}

TEST_P(Conformance, PartyPositions_ABranchOrAMapIsDeletedWithItsRows) {
  Engine().InstallSchema();
  TPositionWorld world(Database());
  const auto& p = world.Positions;
  TPositionMap& map = world.MakeMap("项目图");
  map.Find(p[1])->AcceptChild(*map.Find(p[2]));
  MapList().update();
  map.Find(p[0])->DeleteChild(*map.Find(p[1]));
  EXPECT_EQ(Cell("select count(*) from PositionMapH where MapID = " + Text(map.MapID())), "3")
      << "root, top and one below";
  const int before = MapList().Count();
  MapList().Delete(map);
  EXPECT_EQ(MapList().Count(), before - 1);
  FreeMapList();
  EXPECT_EQ(MapList().FindMap("项目图"), nullptr);
}

TEST_P(Conformance, PartyPositions_ARowWhosePositionWasDeletedHidesItsBranchAndStays) {
  Engine().InstallSchema();
  TPositionWorld world(Database());
  const auto& p = world.Positions;
  world.MakeMap("项目图");
  Exec("delete from PartyH where DjLsh = " + Text(p[0]));
  const std::string rows = Cell("select count(*) from PositionMapH");
  FreeMapList();
  EXPECT_TRUE(MapList().FindMap("项目图")->FRoot->FChildren.empty());
  EXPECT_EQ(Cell("select count(*) from PositionMapH"), rows);
}

TEST_P(Conformance, PartyPositions_AFailedUpdateLeavesTheTablesAsTheyWere) {
  Engine().InstallSchema();
  TPositionWorld world(Database());
  world.MakeMap("项目图");
  const auto before = Rows("select * from PositionMapH order by Djlsh");
  MapList().Add("好图");
  MapList().Add("O'Neill");  // the name of a new map is joined as it stands
  EXPECT_THROW(MapList().update(), EDatabaseError);
  EXPECT_EQ(Rows("select * from PositionMapH order by Djlsh"), before);
  EXPECT_GT(MapList().FindMap("好图")->MapID(), 0) << "memory is ahead of the database";
}

}  // namespace zantest
