#include "Party/OrgUnitSQL.h"
#include "tests/unit/Party/PartyFixture.h"

namespace zantest {
namespace {

using namespace zanrole;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class TOrgUnitDeleteTest : public TPartyTest {
 protected:
  static void Fill(TOrgUnit& unit, int id, const char* kind) {
    unit.ID = id;
    unit.kind = kind;
  }
  std::vector<std::string> DeleteOrgUnit(int id, const char* kind, bool flag = true) {
    TOrgUnit unit;
    Fill(unit, id, kind);
    return StatementsOf([&] { TOrgUnitSQL::DeleteOrgUnit(unit, flag); });
  }
  void AnswerMainPost(int id) {
    FHost.Answer("select ObjID from UserH where ObjID=" + std::to_string(id), {"ObjID"},
                 {{std::int64_t{id}}});
  }
};

TEST_P(TOrgUnitDeleteTest, TheRowOfAMainPostGoesToTheRecycleBinAndThePersonHasNoMainPost) {
  AnswerMainPost(5);
  EXPECT_THAT(DeleteOrgUnit(5, "User"), ElementsAre("select ObjID from UserH where ObjID=5",
                                                    "UPDATE PartyH SET Parent = -9 WHERE Djlsh=5",
                                                    "update userH set ObjID=0 where ObjID=5"));
}

TEST_P(TOrgUnitDeleteTest, TheRowOfASecondPostIsRemoved) {
  EXPECT_THAT(DeleteOrgUnit(5, "User"),
              ElementsAre("select ObjID from UserH where ObjID=5", "delete from PartyH where Djlsh=5",
                          "update userH set ObjID=0 where ObjID=5"));
}

TEST_P(TOrgUnitDeleteTest, OfAnotherNodeTheRowGoesAndTheEntityOfAPositionWithIt) {
  EXPECT_THAT(DeleteOrgUnit(5, "Company"), ElementsAre("delete from PartyH where Djlsh=5"));
  EXPECT_THAT(DeleteOrgUnit(5, "PositionEntity"),
              ElementsAre("delete from PartyH where Djlsh=5", "delete from PositionEntityH where ObjID=5"));
}

TEST_P(TOrgUnitDeleteTest, ANodeWithoutIdentityIsLeftAloneAndTheFlagHasNoEffect) {
  EXPECT_THAT(DeleteOrgUnit(0, "Company"), IsEmpty());
  EXPECT_THAT(DeleteOrgUnit(0, "Company", /*flag*/ false), IsEmpty());
  EXPECT_THAT(DeleteOrgUnit(5, "Company", /*flag*/ false), ElementsAre("delete from PartyH where Djlsh=5"));
}

TEST_P(TOrgUnitDeleteTest, AFaultIsSwallowedAndEndsTheDeletion) {
  for (int failing = 1; failing <= 3; ++failing) {
    AnswerMainPost(5);
    FHost.Statements.clear();
    FHost.FailStatement(failing);
    TOrgUnit unit;
    Fill(unit, 5, "User");
    EXPECT_NO_THROW(TOrgUnitSQL::DeleteOrgUnit(unit, true));
    EXPECT_THAT(FHost.Statements, SizeIs(static_cast<std::size_t>(failing)));
  }
}

TEST_P(TOrgUnitDeleteTest, TheNodeIsDeletedWithItsEntity) {
  const std::vector<std::pair<const char*, std::string>> entities = {
      {"Company", "Delete from CompanyH where ObjID=5"},
      {"Department", "Delete from DepartmentH where ObjID=5"},
      {"PositionEntity", "Delete from PositionEntityH where ObjID=5"},
      {"User", "Delete from UserH where ObjID=5"}};
  for (const auto& [kind, statement] : entities) {
    TOrgUnit unit;
    Fill(unit, 5, kind);
    EXPECT_THAT(StatementsOf([&] { TOrgUnitSQL::DeleteOrgUnitEntity(unit); }),
                ElementsAre("delete from PartyH where Djlsh=5", statement));
  }
  EXPECT_EQ(FHost.Statements.back().Text, "Delete from UserH where ObjID=5");
  TOrgUnit company;
  Fill(company, 5, "Company");
  FHost.FailStatement(2);
  EXPECT_THROW(TOrgUnitSQL::DeleteOrgUnitEntity(company), EDatabaseError);
  EXPECT_EQ(FHost.Statements.back().Text, "Delete  from CompanyH where ObjID=5");
}

TEST_P(TOrgUnitDeleteTest, RemovingFromTheTreeTakesTheChildrenFirstAndKeepsTheEntities) {
  TOrgUnit company, department, below;
  Fill(company, 1, "Company");
  Fill(department, 2, "Department");
  Fill(below, 3, "Department");
  company.AddChild(department);
  department.AddChild(below);
  EXPECT_THAT(StatementsOf([&] { TOrgUnitSQL::DeleteRelation(company); }),
              ElementsAre("delete from PartyH where Djlsh=3", "delete from PartyH where Djlsh=2",
                          "delete from PartyH where Djlsh=1"));
}

TEST_P(TOrgUnitDeleteTest, DeletingForGoodTakesThePeopleOfAPositionFirst) {
  TOrgUnit department, position;
  Fill(department, 2, "Department");
  Fill(position, 3, "PositionEntity");
  department.AddChild(position);
  FHost.Answer("p.Parent=:Parent", {"DjLsh", "Parent", "Sequence", "Type", "Name", "Title", "code"},
               {{std::int64_t{8}, std::int64_t{3}, std::int64_t{1}, std::string("User"), std::string("N"),
                 std::string("T"), std::string("c")}});
  AnswerMainPost(8);
  EXPECT_THAT(
      StatementsOf([&] { TOrgUnitSQL::Delete(department); }),
      ElementsAre(testing::StartsWith("select p.*, u.ObjID as MainPO"),
                  "select ObjID from UserH where ObjID=8", "UPDATE PartyH SET Parent = -9 WHERE Djlsh=8",
                  "update userH set ObjID=0 where ObjID=8", "delete from PartyH where Djlsh=3",
                  "Delete from PositionEntityH where ObjID=3", "delete from PartyH where Djlsh=2",
                  "Delete from DepartmentH where ObjID=2"));
}

IN_EVERY_DIALECT(TOrgUnitDeleteTest);

}  // namespace
}  // namespace zantest
