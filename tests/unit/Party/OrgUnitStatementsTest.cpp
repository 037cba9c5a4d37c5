#include "Party/Un_OrgUnit.h"
#include "tests/unit/Party/PartyFixture.h"

namespace zantest {
namespace {

using namespace zanrole;
using testing::ElementsAre;

/// What one unit reads and writes.
class TOrgUnitStatements : public TPartyTest {
 protected:
  std::vector<std::string> Renaming(const std::string& kind, const std::string& code = "") {
    TOrgUnit unit;
    unit.ID = 7;
    unit.kind = kind;
    unit.name = "Name";
    unit.title = "Title";
    unit.code = code;
    return StatementsOf([&unit] { unit.UpdateOrganUnit(); });
  }
};

constexpr const char* kRenameNode = "update partyH set Name=:Name, Title=:Title where Djlsh= 7";

IN_EVERY_DIALECT(TOrgUnitStatements);

TEST_P(TOrgUnitStatements, AUnitIsReadByItsIdentity) {
  FHost.Answer("from partyH", {"DjLsh", "Parent", "Sequence", "IsActive", "Type", "Name", "Title", "code"},
               {{7, 1, 2, 1, "Department", "生产部", "产", "01"}});
  const auto read = [] {
    const TOrgUnit unit(7);
    EXPECT_EQ(unit.parentID, 1);
    EXPECT_TRUE(unit.isDepartment());
    EXPECT_EQ(unit.title, "产");
  };
  EXPECT_THAT(StatementsOf(read), ElementsAre("select * from partyH where djlsh=7"));
}

TEST_P(TOrgUnitStatements, ARenameWritesTheEntityAndTheNode) {
  EXPECT_THAT(Renaming("Company"),
              ElementsAre("update CompanyH set Name=:Name, Title=:Title where ObjID= 7", kRenameNode));
  EXPECT_THAT(Renaming("Department"),
              ElementsAre("update DepartmentH set Name=:Name, Title=:Title where ObjID= 7", kRenameNode));
  EXPECT_THAT(Renaming("PositionEntity"),
              ElementsAre("update PositionEntityH set Name=:Name, title=:title where ObjID= 7", kRenameNode));
  EXPECT_THAT(Renaming("WorkGroup"), ElementsAre(kRenameNode));
  for (const TRecordedStatement& statement : FHost.Statements)
    for (const auto& [name, value] : statement.Params)
      EXPECT_EQ(std::get<std::string>(value), SameText(name, "Name") ? "Name" : "Title");
}

TEST_P(TOrgUnitStatements, ARenameOfAPersonReachesTheAccountByTheCode) {
  EXPECT_THAT(Renaming("User"),
              ElementsAre("update userH set Name=:Name, Title=:Title where ObjID= 7", kRenameNode));
  EXPECT_THAT(Renaming("User", "o'neil"),
              ElementsAre("update userH set Name=:Name, Title=:Title where code= 'o''neil'",
                          "update stusers set UserName=:Name where userID= 'o''neil'", kRenameNode));
}

TEST_P(TOrgUnitStatements, ADepartmentIsFoundByItsNameInTheDocumentOfThePlatform) {
  TDepartment department;
  const auto read = [&department] { department.SetValueByTitle("A'"); };
  EXPECT_THAT(StatementsOf(read), ElementsAre("Select * from DepartmentsH where name = 'A'''"));
  EXPECT_EQ(department.name, "未定义所属部门");
  FHost.Answer("DepartmentsH", {"DjLsh", "ID", "Name"}, {{5, "生产", "A'"}});
  read();
  EXPECT_EQ(department.ID, 5);
  EXPECT_EQ(department.title, "生产");
}

}  // namespace
}  // namespace zantest
