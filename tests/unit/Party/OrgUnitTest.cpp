#include "Party/Un_OrgUnit.h"

#include "tests/unit/Party/PartyFixture.h"

namespace zantest {
namespace {

using namespace zanrole;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class TOrgUnitTest : public TPartyTest {
 protected:
  static void Fill(TOrgUnit& unit, int id, int parent, const char* kind = "Department") {
    unit.ID = id;
    unit.parentID = parent;
    unit.kind = kind;
    unit.name = "N";
    unit.title = "T";
  }
};

TEST_P(TOrgUnitTest, AUnitIsReadByItsIdentity) {
  FHost.Answer("from partyH", {"DjLsh", "Parent", "Sequence", "IsActive", "Type", "Name", "Title", "code"},
               {{std::int64_t{5}, std::int64_t{4}, std::int64_t{3}, std::int64_t{1}, std::string("Company"),
                 std::string("集团"), std::string("G"), std::string("C1")}});
  EXPECT_THAT(StatementsOf([] {
                const TOrgUnit unit(5);
                EXPECT_EQ(unit.ID, 5);
                EXPECT_EQ(unit.parentID, 4);
                EXPECT_EQ(unit.sequence, 3);
                EXPECT_TRUE(unit.IsActive);
                EXPECT_TRUE(unit.isCompany());
                EXPECT_EQ(unit.name, "集团");
                EXPECT_EQ(unit.title, "G");
                EXPECT_EQ(unit.code, "C1");
                EXPECT_FALSE(unit.isNew);
              }),
              ElementsAre("select * from partyH where djlsh=5"));
}

TEST_P(TOrgUnitTest, AnUnknownIdentityIsRaised) {
  try {
    const TOrgUnit unit(5);
    FAIL() << "no fault";
  } catch (const EZanError& error) {
    EXPECT_STREQ(error.what(), "没有找到该ID号对应的组织机构单元");
  }
}

TEST_P(TOrgUnitTest, ADataSetWithoutStatePathAndMainPostLoads) {
  TDataSet rows{"DjLsh", "Parent", "Sequence", "Type", "Name", "Title", "code"};
  rows.Append();
  rows.FieldByName("DjLsh").SetValue(std::int64_t{5});
  rows.FieldByName("Name").SetValue(std::string("集团"));
  TOrgUnit unit;
  unit.isNew = true;
  unit.LoadFromDB(rows);
  EXPECT_EQ(unit.ID, 5);
  EXPECT_EQ(unit.LongName, "集团");
  EXPECT_EQ(unit.mainPO, 0);
  EXPECT_FALSE(unit.isNew);
}

TEST_P(TOrgUnitTest, StatePathAndMainPostAreTakenWhereTheDataSetHasThem) {
  TDataSet rows{"DjLsh", "Parent", "Sequence", "Type",     "Name",
                "Title", "code",   "IsActive", "LongName", "MainPO"};
  rows.Append();
  rows.FieldByName("Name").SetValue(std::string("集团"));
  rows.FieldByName("IsActive").SetValue(std::int64_t{1});
  rows.FieldByName("LongName").SetValue(std::string("总\\集团"));
  rows.FieldByName("MainPO").SetValue(std::int64_t{8});
  TOrgUnit unit;
  unit.LoadFromDB(rows);
  EXPECT_TRUE(unit.IsActive);
  EXPECT_EQ(unit.LongName, "总\\集团");
  EXPECT_EQ(unit.mainPO, 8);
  rows.FieldByName("LongName").SetValue({});
  unit.LoadFromDB(rows);
  EXPECT_EQ(unit.LongName, "集团") << "an empty path is the name";
}

TEST_P(TOrgUnitTest, KindsAreComparedExactly) {
  TOrgUnit unit;
  unit.kind = "WorkGroup";
  EXPECT_TRUE(unit.isWorkGroup());
  unit.kind = "workGroup";
  EXPECT_FALSE(unit.isWorkGroup());
  unit.kind = "user";
  EXPECT_FALSE(unit.isUser());
}

TEST_P(TOrgUnitTest, TheWordOfTheKind) {
  const auto word = [](const char* kind) {
    TOrgUnit unit;
    unit.kind = kind;
    return unit.GetKindCName();
  };
  EXPECT_EQ(word("Company"), "公司");
  EXPECT_EQ(word("Department"), "部门");
  EXPECT_EQ(word("PositionEntity"), "岗位");
  EXPECT_EQ(word("User"), "用户");
  EXPECT_EQ(word("UserGroup"), "用户组");
  EXPECT_EQ(word("WorkGroup"), "");
}

TEST_P(TOrgUnitTest, ACopyHasIdentityAndTextsAndNoChildren) {
  TOrgUnit unit, child;
  Fill(unit, 5, 4, "User");
  unit.code = "C";
  unit.LongName = "L";
  unit.AddChild(child);
  TOrgUnit copy;
  copy.CopyFrom(unit);
  EXPECT_EQ(copy.ID, 5);
  EXPECT_TRUE(copy.isUser());
  EXPECT_EQ(copy.name + copy.title + copy.code + copy.LongName, "NTCL");
  EXPECT_THAT(copy.Children(), IsEmpty());
}

TEST_P(TOrgUnitTest, AUnitIsFoundAmongTheChildrenBeforeDeeperDown) {
  TOrgUnit root, first, second, below, deeper;
  Fill(root, -1, -2);
  Fill(first, 1, -1);
  Fill(second, 2, -1);
  Fill(below, 2, 1);
  Fill(deeper, 3, 2);
  root.AddChild(first);
  root.AddChild(second);
  first.AddChild(below);
  below.AddChild(deeper);
  EXPECT_EQ(root.FindChildUnitByID(-1), &root);
  EXPECT_EQ(root.FindChildUnitByID(2), &second);
  EXPECT_EQ(root.FindChildUnitByID(3), &deeper);
  EXPECT_EQ(root.FindChildUnitByID(4), nullptr);
}

TEST_P(TOrgUnitTest, AUnitIsHungBelowItsParentOrPutAside) {
  TOrgUnit root, unit, stray;
  Fill(root, -1, -2);
  Fill(unit, 1, -1);
  Fill(stray, 9, 77);
  root.RootAddChild(unit);
  EXPECT_EQ(unit.parentUnit, &root);
  EXPECT_THAT(root.Children(), ElementsAre(&unit));
  root.RootAddChild(stray);
  EXPECT_FALSE(root.left_items.has_value()) << "dropped where there is no list for it";
  root.left_items.emplace();
  root.RootAddChild(stray);
  EXPECT_THAT(*root.left_items, ElementsAre(&stray));
  EXPECT_EQ(stray.parentUnit, nullptr);
}

TEST_P(TOrgUnitTest, AListHoldsAnotherPositionWhenOneOfItsItemsIsSavedAndAnother) {
  TOrgUnitList list;
  EXPECT_FALSE(list.hasOthPEntity(5));
  list.Add(std::make_unique<TOrgUnit>()).ID = 5;
  list.Add(std::make_unique<TOrgUnit>()).ID = 0;
  list.Add(std::make_unique<TOrgUnit>()).ID = -3;
  EXPECT_FALSE(list.hasOthPEntity(5)) << "items at 0 and below do not count";
  EXPECT_TRUE(list.hasOthPEntity(6));
}

TEST_P(TOrgUnitTest, ClearingAListFreesFromTheLastToTheFirst) {
  struct TNoted : TOrgUnit {
    explicit TNoted(std::vector<int>& freed) : Freed(freed) {}
    ~TNoted() override { Freed.push_back(ID); }
    std::vector<int>& Freed;
  };
  std::vector<int> freed;
  TOrgUnitList list;
  for (int id = 1; id <= 3; ++id) list.Add(std::make_unique<TNoted>(freed)).ID = id;
  list.Clear();
  EXPECT_THAT(freed, ElementsAre(3, 2, 1));
}

TEST_P(TOrgUnitTest, ARenameWritesTheEntityAndThenTheNode) {
  const std::vector<std::pair<const char*, std::string>> entities = {
      {"Company", "update CompanyH set Name=:Name, Title=:Title where ObjID= 5"},
      {"Department", "update DepartmentH set Name=:Name, Title=:Title where ObjID= 5"},
      {"PositionEntity", "update PositionEntityH set Name=:Name, title=:title where ObjID= 5"}};
  for (const auto& [kind, statement] : entities) {
    TOrgUnit unit;
    Fill(unit, 5, 4, kind);
    EXPECT_THAT(StatementsOf([&] { unit.UpdateOrganUnit(); }),
                ElementsAre(statement, "update partyH set Name=:Name, Title=:Title where Djlsh= 5"));
    for (const auto& sent : FHost.Statements)
      EXPECT_THAT(sent.Params, ElementsAre(Pair("Name", TZanValue{"N"}), Pair(testing::_, TZanValue{"T"})));
  }
  TOrgUnit group;
  Fill(group, 5, 4, "WorkGroup");
  EXPECT_THAT(StatementsOf([&] { group.UpdateOrganUnit(); }),
              ElementsAre("update partyH set Name=:Name, Title=:Title where Djlsh= 5"));
}

TEST_P(TOrgUnitTest, ARenameOfAPersonWritesTheAccountToo) {
  TOrgUnit unit;
  Fill(unit, 5, 4, "User");
  unit.code = "o'n";
  EXPECT_THAT(StatementsOf([&] { unit.UpdateOrganUnit(); }),
              ElementsAre("update userH set Name=:Name, Title=:Title where code= 'o''n'",
                          "update stusers set UserName=:Name where userID= 'o''n'",
                          "update partyH set Name=:Name, Title=:Title where Djlsh= 5"));
  EXPECT_THAT(FHost.Statements[1].Params, ElementsAre(Pair("Name", TZanValue{"N"})));
}

TEST_P(TOrgUnitTest, ARenameOfAPersonWithoutLoginGoesByTheNodeAndLeavesAccountsAlone) {
  TOrgUnit unit;
  Fill(unit, 5, 4, "User");
  EXPECT_THAT(StatementsOf([&] { unit.UpdateOrganUnit(); }),
              ElementsAre("update userH set Name=:Name, Title=:Title where ObjID= 5",
                          "update partyH set Name=:Name, Title=:Title where Djlsh= 5"));
}

TEST_P(TOrgUnitTest, AFailedRenameIsSwallowedAndLeavesTheRestUnwritten) {
  TOrgUnit unit;
  Fill(unit, 5, 4, "User");
  unit.code = "c";
  for (int failing = 1; failing <= 3; ++failing) {
    EXPECT_THAT(StatementsOf([&] {
                  FHost.FailStatement(failing);
                  EXPECT_NO_THROW(unit.UpdateOrganUnit());
                }),
                testing::SizeIs(static_cast<std::size_t>(failing)));
  }
}

TEST_P(TOrgUnitTest, ADepartmentIsSetFromATableOfThePlatformByItsName) {
  TDepartment department;
  FHost.Answer("DepartmentsH", {"DjLsh", "ID"}, {{std::int64_t{8}, std::string("销售部")}});
  EXPECT_THAT(StatementsOf([&] { department.SetValueByTitle("x'y"); }),
              ElementsAre("Select * from DepartmentsH where name = 'x''y'"));
  EXPECT_EQ(department.ID, 8);
  EXPECT_EQ(department.name, "销售部");
  EXPECT_EQ(department.title, "销售部");
  EXPECT_EQ(department.TOrgUnit::ID, 0) << "its own field, not that of the node";
}

TEST_P(TOrgUnitTest, AnUnknownDepartmentIsCalledUndefined) {
  TDepartment department;
  department.ID = 4;
  department.SetValueByTitle("x");
  EXPECT_EQ(department.ID, 4);
  EXPECT_EQ(department.name, "未定义所属部门");
  EXPECT_EQ(department.title, "未定义所属部门");
}

IN_EVERY_DIALECT(TOrgUnitTest);

}  // namespace
}  // namespace zantest
