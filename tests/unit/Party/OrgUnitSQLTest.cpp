#include "Party/OrgUnitSQL.h"

#include "Frame/Dialects.h"
#include "tests/unit/Party/PartyFixture.h"

namespace zantest {
namespace {

using namespace zanrole;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

const std::vector<std::string> kNodeColumns = {"DjLsh", "Parent", "Sequence", "IsActive",
                                               "Type",  "Name",   "Title",    "code"};

std::vector<TZanValue> Node(int id, int parent, const char* kind) {
  return {std::int64_t{id},  std::int64_t{parent}, std::int64_t{1},  std::int64_t{1},
          std::string(kind), std::string("N"),     std::string("T"), std::string("c" + std::to_string(id))};
}

class TOrgUnitSQLTest : public TPartyTest {};

TEST_P(TOrgUnitSQLTest, TheStatementOfTheWholeTree) {
  EXPECT_THAT(
      StatementsOf([] { OpenStatement(*TDbProviderFactory::GetQuery(), TOrgUnitSQL::OpenSql()); }),
      ElementsAre("select * from PartyH where Type in ('Company','Department','PositionEntity') order by "
                  "Type, Sequence"));
}

TEST_P(TOrgUnitSQLTest, TheTreeIsReadWithItsManagerPostsByTwoStatements) {
  FHost.Answer("order by Type, Parent, Sequence", kNodeColumns,
               {Node(1, -1, "Company"), Node(3, 2, "PositionEntity"), Node(4, 2, "PositionEntity")});
  FHost.Answer("a.isManager = 1", {"ObjID"}, {{std::int64_t{4}}, {std::int64_t{99}}});
  TOrgUnitList units;
  EXPECT_THAT(
      StatementsOf([&] { TOrgUnitSQL::LoadOrgUnitsToList(units); }),
      ElementsAre(
          "select * from PartyH where Type in ('Company','Department','PositionEntity') order by Type, "
          "Parent, Sequence",
          "select a.ObjID from PositionEntityH a inner join PartyH b on a.ObjID = b.DjLsh where "
          "a.isManager = 1 and b.Type = 'PositionEntity'"));
  ASSERT_EQ(units.Count(), 3);
  EXPECT_EQ(units[0].ID, 1);
  EXPECT_TRUE(units[0].IsActive);
  EXPECT_FALSE(units[0].PEIsManager);
  EXPECT_FALSE(units[1].PEIsManager);
  EXPECT_TRUE(units[2].PEIsManager);
}

TEST_P(TOrgUnitSQLTest, OnePositionIsAskedWhetherItIsAManagerPost) {
  TOrgUnit unit;
  unit.ID = 5;
  FHost.Answer("select 1 from PositionEntityH", {"1"}, {{std::int64_t{1}}});
  EXPECT_THAT(StatementsOf([&] { TOrgUnitSQL::CheckPEManagerOne(unit); }),
              ElementsAre("select 1 from PositionEntityH where isManager = 1 and ObjID = 5"));
  EXPECT_TRUE(unit.PEIsManager);
  TOrgUnitSQL::CheckPEManagerOne(unit);
  EXPECT_FALSE(unit.PEIsManager);
}

TEST_P(TOrgUnitSQLTest, TheActivePeopleOfAPositionReplaceItsChildren) {
  TOrgUnit position, other;
  position.ID = 5;
  position.AddChild(other);
  FHost.Answer("p.IsActive=1", kNodeColumns, {Node(8, 5, "User"), Node(9, 5, "User")});
  EXPECT_THAT(
      StatementsOf([&] { TOrgUnitSQL::LoadPositionEntityUsers(position); }),
      ElementsAre("select p.*, u.ObjID as MainPO from PartyH p left join (select distinct code, objID "
                  "from userH) u on u.code=p.code where (p.IsActive=1) and (p.Type='User') and "
                  "(p.Parent=5) order by Sequence"));
  ASSERT_EQ(position.Children().size(), 2u);
  EXPECT_EQ(position.Children()[0]->ID, 8);
  TOrgUnitSQL::LoadPositionEntityUsers(position);
  EXPECT_THAT(position.Children(), IsEmpty());
}

TEST_P(TOrgUnitSQLTest, ThePeopleOfAPositionAreListedActiveOrNot) {
  TOrgUnit position;
  position.ID = 5;
  TOrgUnitList people;
  auto columns = kNodeColumns;
  columns.push_back("MainPO");
  auto row = Node(8, 5, "User");
  row[3] = std::int64_t{0};
  row.push_back(std::int64_t{8});
  FHost.Answer("p.Parent=:Parent", columns, {row});
  EXPECT_THAT(
      StatementsOf([&] { TOrgUnitSQL::ListUsersByParent(position, people); }),
      ElementsAre("select p.*, u.ObjID as MainPO from PartyH p left join (select distinct code, objID "
                  "from userH) u on u.code=p.code where (p.Type='User') and (p.Parent=:Parent) order "
                  "by Sequence"));
  EXPECT_THAT(FHost.Statements[0].Params, ElementsAre(Pair("Parent", TZanValue{std::int64_t{5}})));
  ASSERT_EQ(people.Count(), 1);
  EXPECT_EQ(people[0].mainPO, 8);
  EXPECT_FALSE(people[0].IsActive);
}

TEST_P(TOrgUnitSQLTest, UnitsAreFoundByKindAndCode) {
  FHost.Answer("=:Type) and (code=:code)", kNodeColumns, {Node(8, 5, "User"), Node(9, 6, "User")});
  EXPECT_THAT(StatementsOf([] {
                const auto units = TOrgUnitSQL::FindOrganUnits("User", "zhang");
                ASSERT_EQ(units->Count(), 2);
                EXPECT_EQ((*units)[1].ID, 9);
              }),
              ElementsAre("select * from PartyH where (" + ByDialect("[Type]", "\"TYPE\"", "`Type`") +
                          "=:Type) and (code=:code)"));
  EXPECT_THAT(FHost.Statements[0].Params,
              ElementsAre(Pair("Type", TZanValue{"User"}), Pair("code", TZanValue{"zhang"})));
}

TEST_P(TOrgUnitSQLTest, TheIdentityOfANodeIsFoundByKindAndCodeAndMinusOneWithoutIt) {
  EXPECT_THAT(StatementsOf([] { EXPECT_EQ(TOrgUnitSQL::GetPartyDjLsh("Company", "C"), -1); }),
              ElementsAre("SELECT ph.DjLsh FROM PartyH ph WHERE ph.Type= :pType AND ph.Code= :pCode"));
  EXPECT_THAT(FHost.Statements[0].Params,
              ElementsAre(Pair("pType", TZanValue{"Company"}), Pair("pCode", TZanValue{"C"})));
  FHost.Answer("ph.DjLsh", {"DjLsh"}, {{std::int64_t{7}}, {std::int64_t{8}}});
  EXPECT_EQ(TOrgUnitSQL::GetPartyDjLsh("Company", "C"), 7);
}

TEST_P(TOrgUnitSQLTest, OneSequenceIsWrittenAloneAndManyAsOneBatch) {
  TOrgUnitList units;
  EXPECT_THAT(StatementsOf([&] { TOrgUnitSQL::BatUpdateOrgUnitSequence(units); }), IsEmpty());
  for (int i = 1; i <= 2; ++i) {
    TOrgUnit& unit = units.Add(std::make_unique<TOrgUnit>());
    unit.ID = 10 + i;
    unit.sequence = i;
  }
  EXPECT_THAT(StatementsOf([&] { TOrgUnitSQL::UpdateOrgUnitSequence(units[1]); }),
              ElementsAre("Update PartyH set sequence=2 where djlsh=12"));
  EXPECT_THAT(
      StatementsOf([&] { TOrgUnitSQL::BatUpdateOrgUnitSequence(units); }),
      ElementsAre(Batch("Update PartyH set sequence=1 where djlsh=11; Update PartyH set sequence=2 where "
                        "djlsh=12;")));
}

TEST_P(TOrgUnitSQLTest, FaultsOfReadingPassOnAsPlainFaultsWithTheirMessage) {
  const auto fault = [this](const std::function<void()>& act) {
    FHost.FailStatement(1);
    try {
      act();
    } catch (const EDatabaseError&) {
      return std::string("not a plain fault");
    } catch (const EZanError& error) {
      return std::string(error.what());
    }
    return std::string("no fault");
  };
  TOrgUnit position;
  TOrgUnitList people;
  EXPECT_THAT(fault([&] { TOrgUnitSQL::ListUsersByParent(position, people); }),
              testing::HasSubstr("left join (select distinct code, objID from userH)"));
  EXPECT_THAT(fault([] { TOrgUnitSQL::FindOrganUnits("User", "x"); }), testing::HasSubstr("(code=:code)"));
}

IN_EVERY_DIALECT(TOrgUnitSQLTest);

}  // namespace
}  // namespace zantest
