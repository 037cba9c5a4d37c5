#include "tests/conformance/cases/PartyWorld.h"

// Saving, moving and deleting units of the organisation.

namespace zantest {

using namespace zanrole;

namespace {

constexpr int kTop = -1;

/// Company, department and two positions in it.
struct TOffice {
  explicit TOffice(TPartyWorld& world)
      : Company(world.Save("Company", kTop, "总公司")),
        Department(world.Save("Department", Company, "财务部")),
        Chief(world.Save("PositionEntity", Department, "主任", 1)),
        Clerk(world.Save("PositionEntity", Department, "办事员", 2)) {}
  int Company;
  int Department;
  int Chief;
  int Clerk;
};

std::string Text(int number) { return std::to_string(number); }

TOrgUnitList& Load(TOrgUnitList& units) {
  TOrgUnitSQL::LoadOrgUnitsToList(units);
  return units;
}

}  // namespace

TEST_P(Conformance, PartyUnits_SavedNodesHaveTheirEntities) {
  Engine().InstallSchema();
  TPartyWorld world(Database());
  const TOffice office(world);
  EXPECT_EQ(world.BrokenRules(), std::vector<std::string>());
  EXPECT_EQ(Rows("select Parent, Type, Name, Title, Code, Sequence, IsActive from PartyH where DjLsh = " +
                 Text(office.Clerk)),
            (std::vector<TTextRow>{
                {Text(office.Department), "PositionEntity", "办事员", "办事员", "C-办事员", "2", "1"}}));
  EXPECT_EQ(Rows("select code, Name, Title, UpperPosition from PositionEntityH where ObjID = " +
                 Text(office.Clerk)),
            (std::vector<TTextRow>{{"C-办事员", "办事员", "办事员", "-9"}}));
}

TEST_P(Conformance, PartyUnits_TheTreeIsReadBackByKindParentAndSequence) {
  Engine().InstallSchema();
  TPartyWorld world(Database());
  const TOffice office(world);
  Exec("update PositionEntityH set isManager = 1 where ObjID = " + Text(office.Chief));
  TOrgUnitList units;
  ASSERT_EQ(Load(units).Count(), 4);
  EXPECT_EQ(units[0].ID, office.Company);
  EXPECT_EQ(units[1].ID, office.Department);
  EXPECT_EQ(units[2].ID, office.Chief);
  EXPECT_EQ(units[3].ID, office.Clerk);
  EXPECT_TRUE(units[2].PEIsManager);
  EXPECT_FALSE(units[3].PEIsManager);
  EXPECT_TRUE(units[3].IsActive);
  EXPECT_EQ(TOrgUnitSQL::GetPartyDjLsh("Company", "C-总公司"), office.Company);
  EXPECT_EQ(TOrgUnitSQL::GetPartyDjLsh("Company", "C-财务部"), -1);
  EXPECT_EQ(TOrgUnitSQL::FindOrganUnits("PositionEntity", "C-主任")->Count(), 1);
  EXPECT_THROW(TOrgUnit(99), EZanError);
  EXPECT_EQ(TOrgUnit(office.Department).parentID, office.Company);
}

TEST_P(Conformance, PartyUnits_ACompanyAdoptsTheEntityThatADocumentMade) {
  Engine().InstallSchema();
  Exec("insert into CompanyH(Djlsh, ObjID, code, Name, Title) values(500, 0, 'X', 'Y', 'Z')");
  TOrgUnit unit;
  unit.ID = 7;
  unit.parentID = kTop;
  unit.kind = "Company";
  unit.name = "A";
  unit.isNew = true;
  unit.tempDjlsh = 500;
  TOrgUnitSQL::SaveOrganUnits(unit);
  EXPECT_EQ(Rows("select Djlsh, ObjID, Name from CompanyH"), (std::vector<TTextRow>{{"500", "7", "Y"}}));
  unit.isNew = false;
  unit.name = "B";
  TOrgUnitSQL::SaveOrganUnits(unit);
  EXPECT_EQ(Rows("select Djlsh, ObjID, Name from CompanyH"), (std::vector<TTextRow>{{"500", "7", "Y"}}));
  EXPECT_EQ(Cell("select Name from PartyH where DjLsh = 7"), "B");
}

TEST_P(Conformance, PartyUnits_APersonPlacedBecomesAUserOfTheSystem) {
  Engine().InstallSchema();
  TPartyWorld world(Database());
  const TOffice office(world);
  const int node = world.Assign(office.Clerk, "o'neill");
  EXPECT_EQ(world.BrokenRules(), std::vector<std::string>());
  EXPECT_EQ(Rows("select code, ObjID from UserH"), (std::vector<TTextRow>{{"o'neill", Text(node)}}));
  EXPECT_EQ(Rows("select OID, UserID, UserName, uGroup, Password from STUsers"),
            (std::vector<TTextRow>{{"1", "o'neill", "Mr o'neill", "(null)", "(null)"}}));
}

TEST_P(Conformance, PartyUnits_AFurtherPostKeepsTheMainPostAndAMoveLeavesOneRow) {
  Engine().InstallSchema();
  TPartyWorld world(Database());
  const TOffice office(world);
  const int first = world.Assign(office.Clerk, "zhang");
  world.Assign(office.Chief, "zhang", /*keepOthers*/ true);
  EXPECT_EQ(Cell("select ObjID from UserH"), Text(first));
  EXPECT_EQ(Cell("select count(*) from PartyH where Type = 'User'"), "2");
  EXPECT_EQ(world.BrokenRules(), std::vector<std::string>());

  // A row outside of any position is not touched by a move.
  Exec("insert into PartyH(DjLsh, Parent, Type, Code, IsActive) values(900, " + Text(office.Department) +
       ", 'User', 'zhang', 1)");
  Exec("insert into PartyH(DjLsh, Parent, Type, Code, IsActive) values(901, -9, 'User', 'zhang', 0)");
  const int moved = world.Assign(office.Clerk, "zhang");
  EXPECT_EQ(Cell("select ObjID from UserH"), Text(moved));
  EXPECT_EQ(Rows("select DjLsh from PartyH where Type = 'User' and DjLsh >= 900 order by DjLsh"),
            (std::vector<TTextRow>{{"900"}, {"901"}}));
  EXPECT_EQ(Cell("select count(*) from PartyH where Type = 'User' and Parent = " + Text(office.Chief)), "0");
}

TEST_P(Conformance, PartyUnits_TheMainPostGoesToTheRecycleBinAndASecondPostIsRemoved) {
  Engine().InstallSchema();
  TPartyWorld world(Database());
  const TOffice office(world);
  const int mainPost = world.Assign(office.Clerk, "zhang");
  const int second = world.Assign(office.Chief, "zhang", /*keepOthers*/ true);
  TOrgUnitList people;
  TOrgUnitSQL::ListUsersByParent(TOrgUnit(office.Chief), people);
  TOrgUnitSQL::ListUsersByParent(TOrgUnit(office.Clerk), people);
  ASSERT_EQ(people.Count(), 2);
  EXPECT_EQ(people[0].ID, second);
  EXPECT_EQ(people[0].mainPO, mainPost);
  TOrgUnitSQL::DeleteOrgUnit(people[0], true);
  TOrgUnitSQL::DeleteOrgUnit(people[1], true);
  EXPECT_EQ(Rows("select DjLsh, Parent from PartyH where Type = 'User'"),
            (std::vector<TTextRow>{{Text(mainPost), "-9"}}));
  EXPECT_EQ(Cell("select ObjID from UserH"), "0");
  EXPECT_EQ(world.BrokenRules(), std::vector<std::string>());
}

TEST_P(Conformance, PartyUnits_DeletingForGoodTakesTheSubtreeItsEntitiesAndItsPeople) {
  Engine().InstallSchema();
  TPartyWorld world(Database());
  const TOffice office(world);
  const int node = world.Assign(office.Clerk, "zhang");
  TOrgUnitList units;
  Load(units);
  for (int i = 1; i < units.Count(); ++i) units[0].RootAddChild(units[i]);
  TOrgUnitSQL::Delete(units[0]);
  EXPECT_EQ(Rows("select DjLsh, Parent from PartyH"), (std::vector<TTextRow>{{Text(node), "-9"}}));
  for (const char* table : {"CompanyH", "DepartmentH", "PositionEntityH"})
    EXPECT_EQ(Cell(std::string("select count(*) from ") + table), "0") << table;
  EXPECT_EQ(world.BrokenRules(), std::vector<std::string>());
}

TEST_P(Conformance, PartyUnits_RemovingFromTheTreeKeepsTheEntitiesOfCompanyAndDepartment) {
  Engine().InstallSchema();
  TPartyWorld world(Database());
  const TOffice office(world);
  TOrgUnitList units;
  Load(units);
  for (int i = 1; i < units.Count(); ++i) units[0].RootAddChild(units[i]);
  TOrgUnitSQL::DeleteRelation(units[0]);
  EXPECT_EQ(Cell("select count(*) from PartyH"), "0");
  EXPECT_EQ(Cell("select count(*) from CompanyH"), "1");
  EXPECT_EQ(Cell("select count(*) from DepartmentH"), "1");
  EXPECT_EQ(Cell("select count(*) from PositionEntityH"), "0");
}

TEST_P(Conformance, PartyUnits_SequencesRunFromOneWithoutGaps) {
  Engine().InstallSchema();
  TPartyWorld world(Database());
  const int company = world.Save("Company", kTop, "总公司");
  TOrgUnitList moved;
  for (const char* name : {"甲", "乙", "丙", "丁"}) {
    const int id = world.Save("Department", company, name, 9);
    TOrgUnit& unit = moved.Add(std::make_unique<TOrgUnit>());
    unit.ID = id;
    unit.sequence = moved.Count();
  }
  TOrgUnitSQL::BatUpdateOrgUnitSequence(moved);
  std::swap(moved[0].sequence, moved[3].sequence);
  TOrgUnitSQL::UpdateOrgUnitSequence(moved[0]);
  TOrgUnitSQL::UpdateOrgUnitSequence(moved[3]);
  EXPECT_EQ(Rows("select Sequence, Name from PartyH where Type = 'Department' order by Sequence"),
            (std::vector<TTextRow>{{"1", "丁"}, {"2", "乙"}, {"3", "丙"}, {"4", "甲"}}));
}

TEST_P(Conformance, PartyUnits_ARenameReachesNodeEntityPersonAndAccount) {
  Engine().InstallSchema();
  TPartyWorld world(Database());
  const TOffice office(world);
  const int node = world.Assign(office.Clerk, "o'neill");
  for (const int id : {office.Company, office.Department, office.Clerk, node}) {
    TOrgUnit unit(id);
    unit.name = "新名";
    unit.title = "新";
    unit.UpdateOrganUnit();
    EXPECT_EQ(Rows("select Name, Title from PartyH where DjLsh = " + Text(id)),
              (std::vector<TTextRow>{{"新名", "新"}}));
  }
  const std::vector<TTextRow> renamed = {{"新名", "新"}};
  EXPECT_EQ(Rows("select Name, Title from CompanyH"), renamed);
  EXPECT_EQ(Rows("select Name, Title from DepartmentH"), renamed);
  EXPECT_EQ(Rows("select Name, Title from PositionEntityH where ObjID = " + Text(office.Clerk)), renamed);
  EXPECT_EQ(Rows("select name, title from UserH"), renamed);
  EXPECT_EQ(Cell("select UserName from STUsers"), "新名");
}

TEST_P(Conformance, PartyUnits_TheActivePeopleOfAPosition) {
  Engine().InstallSchema();
  TPartyWorld world(Database());
  const TOffice office(world);
  const int active = world.Assign(office.Clerk, "zhang");
  world.Assign(office.Clerk, "li");
  Exec("update PartyH set IsActive = 0 where Code = 'li'");
  TOrgUnit position(office.Clerk);
  TOrgUnitSQL::LoadPositionEntityUsers(position);
  ASSERT_EQ(position.Children().size(), 1u);
  EXPECT_EQ(position.Children()[0]->ID, active);
  EXPECT_EQ(position.Children()[0]->mainPO, active);
  TOrgUnitList everyone;
  TOrgUnitSQL::ListUsersByParent(position, everyone);
  EXPECT_EQ(everyone.Count(), 2);
}

}  // namespace zantest
