#include <algorithm>

#include "Party/PartyDAL.h"
#include "tests/conformance/cases/PartyWorld.h"

// The organisation as other modules read it.

namespace zantest {

using namespace zanrole;

namespace {

std::string Text(int number) { return std::to_string(number); }

std::vector<std::string> NamesOf(const TPartyDAL::TEntityList& nodes) {
  std::vector<std::string> names;
  for (const auto* node : nodes) names.push_back(node->FName);
  return names;
}

/// Rows of a data set: login and department.
std::vector<TTextRow> UsersOf(TDataSet& users) {
  std::vector<TTextRow> rows;
  for (users.First(); !users.Eof(); users.Next())
    rows.push_back({users.FieldByName("UserID").AsString(), users.FieldByName("UserDept").AsString()});
  std::sort(rows.begin(), rows.end());
  return rows;
}

}  // namespace

TEST_P(Conformance, PartyReading_ACompanyWhoseParentWasRemovedStaysAtTheTopAndADepartmentDoesNot) {
  Engine().InstallSchema();
  TPartyWorld world(Database());
  const int second = world.Save("Company", -1, "乙", 2);
  world.Save("Company", -1, "甲", 1);
  world.Save("Company", second, "子公司", 1);
  world.Save("Company", 7777, "孤", 3);
  world.Save("Department", 7777, "孤部", 1);
  TPartyDAL dal;
  EXPECT_EQ(NamesOf(dal.LoadPartyTopLevel()), (std::vector<std::string>{"甲", "乙", "孤"}));
}

TEST_P(Conformance, PartyReading_ChildrenAreOrderedByKindAndSequence) {
  Engine().InstallSchema();
  TPartyWorld world(Database());
  const int company = world.Save("Company", -1, "总公司");
  world.Save("Department", company, "二部", 2);
  world.Save("Department", company, "一部", 1);
  world.Save("Company", company, "子公司", 9);
  TPartyDAL dal;
  const auto first = dal.LoadPartyByParentID(company);
  EXPECT_EQ(NamesOf(first), (std::vector<std::string>{"子公司", "一部", "二部"}));
  EXPECT_EQ(NamesOf(dal.LoadPartyByParentID(company)), NamesOf(first));
  EXPECT_EQ(first[0]->FIsActive, "1");
  EXPECT_EQ(first[0]->FPartyType, party::TPartyType::ptCompany);
  EXPECT_EQ(first[0]->GetLongName(), "子公司") << "no path was written";
  EXPECT_TRUE(dal.LoadPartyByParentID(4242).empty());
}

TEST_P(Conformance, PartyReading_AUserShowsThePathOfHisMainPost) {
  Engine().InstallSchema();
  TPartyWorld world(Database());
  const int department = world.Save("Department", world.Save("Company", -1, "总公司"), "财务部");
  const int post = world.Assign(world.Save("PositionEntity", department, "主任"), "zhang");
  world.Assign(world.Save("PositionEntity", department, "办事员"), "zhang", /*keepOthers*/ true);
  Exec("update PartyH set LongName = '总公司' where DjLsh = " + Text(post));
  Exec("update STUsers set uGroup = 0");
  Exec("insert into STUsers(OID, UserID, uGroup, UnUsed) values(51, 'nobody', 0, 0)");
  Exec("insert into STUsers(OID, UserID, uGroup, UnUsed) values(52, 'gone', 0, 1)");
  Exec("insert into STUsers(OID, UserID, UserName, uGroup, UnUsed) values(53, 'role', '角色', 1, 0)");
  TPartyDAL dal;
  dal.GetUserList();
  EXPECT_EQ(UsersOf(dal.UserDataSet()), (std::vector<TTextRow>{{"nobody", ""}, {"zhang", "总公司"}}));
  dal.LoadUsers(" UserID <> 'nobody' and OID > 0 ");
  EXPECT_EQ(UsersOf(dal.UserDataSet()), (std::vector<TTextRow>{{"zhang", "总公司"}}));
  EXPECT_THROW(dal.LoadUsers("NoColumnOfThisName = 1"), EDatabaseError);
  EXPECT_TRUE(dal.UserDataSet().IsEmpty());
  dal.GetRoleList();
  EXPECT_EQ(UsersOf(dal.RoleDataSet()), (std::vector<TTextRow>{{"role", ""}}));
}

TEST_P(Conformance, PartyReading_OfTwoRowsOfAPersonTheHigherMainPostCounts) {
  Engine().InstallSchema();
  Exec("insert into PartyH(DjLsh, Parent, Type, LongName) values(3, 1, 'User', 'low')");
  Exec("insert into PartyH(DjLsh, Parent, Type, LongName) values(4, 1, 'User', 'high')");
  Exec("insert into UserH(DjLsh, ObjID, code) values(1, 4, 'li')");
  Exec("insert into UserH(DjLsh, ObjID, code) values(2, 3, 'li')");
  Exec("insert into STUsers(OID, UserID, uGroup, UnUsed) values(1, 'li', 0, 0)");
  TPartyDAL dal;
  dal.LoadUsers("");
  EXPECT_EQ(UsersOf(dal.UserDataSet()), (std::vector<TTextRow>{{"li", "high"}}));
}

TEST_P(Conformance, PartyReading_DepartmentsAndPlacedPeopleOfTheOrganisation) {
  Engine().InstallSchema();
  TPartyWorld world(Database());
  const int department = world.Save("Department", world.Save("Company", -1, "总公司"), "财务部");
  const int position = world.Save("PositionEntity", department, "主任");
  world.Assign(position, "zhang");
  world.Assign(position, "li");
  Exec("insert into PartyH(DjLsh, Parent, Type, Code, IsActive) values(901, -9, 'User', 'bin', 1)");
  Exec("insert into PartyH(DjLsh, Parent, Type, Code, IsActive) values(902, -1, 'User', 'system', 1)");
  TPartyDAL dal;
  dal.LoadRoleOfOrganization();
  EXPECT_EQ(dal.RoleOfOrganizationQuery().FieldByName("DjLsh").AsInteger(), department);
  dal.LoadUserOfOrganization("");
  ASSERT_EQ(dal.UserOfOrganizationQuery().DataSet().RowCount(), 2);
  EXPECT_EQ(dal.UserOfOrganizationQuery().FieldByName("Code").AsString(), "li");
  dal.LoadUserOfOrganization("a.Code = 'zhang'");
  EXPECT_EQ(dal.UserOfOrganizationQuery().DataSet().RowCount(), 1);
}

}  // namespace zantest
