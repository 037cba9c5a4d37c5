#include "Party/Un_PositionUnit.h"

#include "tests/unit/Party/PartyFixture.h"

namespace zantest {
namespace {

using namespace zanrole;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class TPositionUnitTest : public TPartyTest {
 protected:
  /// Rows of PositionEntityH: position and superior.
  void AnswerChain(const std::vector<std::pair<int, int>>& rows) {
    std::vector<std::vector<TZanValue>> cells;
    for (const auto& [id, upper] : rows)
      cells.push_back({std::int64_t{id}, std::string("C"), std::int64_t{upper}});
    FHost.Answer("Select ObjID,Code,upperPosition from PositionEntityH", {"ObjID", "Code", "upperPosition"},
                 cells);
  }
  static bool Test(int position, int candidate) {
    TPositionEntity entity;
    entity.ID = position;
    TPositionEntity upper;
    upper.ID = candidate;
    return entity.testUpperPosition(upper);
  }
};

TEST_P(TPositionUnitTest, APositionIsNoSuperiorOfItself) {
  AnswerChain({{1, -9}});
  EXPECT_FALSE(Test(1, 1));
}

TEST_P(TPositionUnitTest, ACandidateWhoseChainEndsInNoneMayBecomeTheSuperior) {
  AnswerChain({{1, -9}, {2, 3}, {3, -9}});
  EXPECT_THAT(StatementsOf([] { EXPECT_TRUE(Test(1, 2)); }),
              ElementsAre("Select ObjID,Code,upperPosition from PositionEntityH"));
}

TEST_P(TPositionUnitTest, ACandidateBelowThePositionIsRefusedAtAnyDepth) {
  AnswerChain({{1, -9}, {2, 1}, {3, 2}, {4, 3}});
  EXPECT_FALSE(Test(1, 2));
  AnswerChain({{1, -9}, {2, 1}, {3, 2}, {4, 3}});
  EXPECT_FALSE(Test(1, 4));
  AnswerChain({{1, -9}, {2, 1}, {3, 2}, {4, 3}});
  EXPECT_TRUE(Test(4, 1));
}

TEST_P(TPositionUnitTest, AChainThatEndsInAPositionWithoutRowIsNoLoop) {
  AnswerChain({{1, -9}, {2, 77}});
  EXPECT_TRUE(Test(1, 2));
  AnswerChain({});
  EXPECT_TRUE(Test(1, 2));
  AnswerChain({{2, -9}});
  EXPECT_TRUE(Test(1, -9));
}

TEST_P(TPositionUnitTest, ALoopThatThePositionIsNoPartOfEndsTheWalk) {
  AnswerChain({{1, -9}, {2, 3}, {3, 2}});
  EXPECT_TRUE(Test(1, 2));
}

TEST_P(TPositionUnitTest, OfTwoRowsOfAPositionTheFirstCounts) {
  AnswerChain({{2, -9}, {2, 1}});
  EXPECT_TRUE(Test(1, 2));
}

TEST_P(TPositionUnitTest, APositionIsReadFromItsTwoRows) {
  FHost.Answer("from partyH,positionEntityH",
               {"Type", "name", "title", "IsActive", "Parent", "Code", "PositionCode", "UpperPosition"},
               {{std::string("x"), std::string("经理"), std::string("T"), std::int64_t{1}, std::int64_t{4},
                 std::string("C"), std::string("K"), std::int64_t{9}}});
  EXPECT_THAT(
      StatementsOf([] {
        const TPositionEntity position(5);
        EXPECT_EQ(position.ID, 5);
        EXPECT_EQ(position.parentID, 4);
        EXPECT_EQ(position.name, "经理");
        EXPECT_EQ(position.title, "T");
        EXPECT_EQ(position.code, "C");
        EXPECT_TRUE(position.IsActive);
        EXPECT_EQ(position.positionCode, "K");
        EXPECT_EQ(position.FupperPositionID, 9);
        EXPECT_EQ(position.kind, "PositionEntity");
      }),
      ElementsAre("Select partyH.Type,partyH.name,partyH.title,partyH.IsActive,partyH.Parent,partyH.Code, "
                  "positionEntityH.PositionCode,positionEntityH.UpperPosition from partyH,positionEntityH "
                  "where partyH.Djlsh=positionEntityH.objID and partyH.Djlsh= 5"));
}

TEST_P(TPositionUnitTest, AnUnknownPositionIsAnEmptyUnit) {
  const TPositionEntity position(5);
  EXPECT_EQ(position.ID, 0);
  EXPECT_EQ(position.kind, "PositionEntity");
}

TEST_P(TPositionUnitTest, ACopyOfAUnitTakesItsTextsAndItsPlace) {
  TOrgUnit unit;
  unit.ID = 5;
  unit.parentID = 4;
  unit.name = "经理";
  unit.title = "T";
  unit.code = "C";
  unit.kind = "PositionEntity";
  unit.positionCode = "K";
  unit.sequence = 3;
  TPositionEntity position;
  position.copyFromOrgUnit(unit);
  EXPECT_EQ(position.ID, 5);
  EXPECT_EQ(position.parentID, 4);
  EXPECT_EQ(position.name, "经理");
  EXPECT_EQ(position.title, "T");
  EXPECT_EQ(position.code, "C");
  EXPECT_TRUE(position.isPositionEntity());
  EXPECT_EQ(position.positionCode, "K");
  EXPECT_EQ(position.sequence, 0);
}

TEST_P(TPositionUnitTest, TheSuperiorIsReadAtItsFirstUseOnly) {
  FHost.Answer("select * from partyh where Djlsh in",
               {"DjLsh", "Parent", "Sequence", "Type", "Name", "Title", "Code"},
               {{std::int64_t{9}, std::int64_t{4}, std::int64_t{1}, std::string("PositionEntity"),
                 std::string("总经理"), std::string("T"), std::string("C")}});
  TPositionEntity position;
  position.ID = 5;
  EXPECT_THAT(StatementsOf([&] {
                EXPECT_EQ(position.GetUpperPosition().ID, 9);
                EXPECT_EQ(position.GetUpperPosition().name, "总经理");
                EXPECT_EQ(position.upperPosition, &position.GetUpperPosition());
              }),
              ElementsAre("select * from partyh where Djlsh in ( select UpperPosition from positionEntityh "
                          "where ObjID =5)"));
  EXPECT_EQ(TPositionEntity().GetUpperPosition().ID, 0) << "there is none";
}

TEST_P(TPositionUnitTest, TheIdentityOfTheSuperiorIsAskedForWhileItIsUnknown) {
  TPositionEntity position;
  position.ID = 5;
  const std::string statement = "select upperPosition from positionEntityH where objID=5";
  EXPECT_THAT(StatementsOf([&] { EXPECT_EQ(position.GetUpperPositionID(), 0); }), ElementsAre(statement));
  FHost.Answer("select upperPosition", {"upperPosition"}, {{std::int64_t{-9}}});
  EXPECT_THAT(StatementsOf([&] { EXPECT_EQ(position.GetUpperPositionID(), -9); }), ElementsAre(statement));
  EXPECT_THAT(StatementsOf([&] { EXPECT_EQ(position.GetUpperPositionID(), -9); }), IsEmpty());
}

TEST_P(TPositionUnitTest, TheDepartmentIsTheUnitOfTheParent) {
  FHost.Answer("select * from partyH where djlsh=4",
               {"DjLsh", "Parent", "Sequence", "IsActive", "Type", "Name", "Title", "code"},
               {{std::int64_t{4}, std::int64_t{1}, std::int64_t{2}, std::int64_t{1},
                 std::string("Department"), std::string("N"), std::string("T"), std::string("C")}});
  TPositionEntity position;
  position.parentID = 4;
  EXPECT_THAT(StatementsOf([&] {
                EXPECT_TRUE(position.GetUpperDepartment().isDepartment());
                EXPECT_EQ(position.GetUpperDepartment().ID, 4);
              }),
              ElementsAre("select * from partyH where djlsh=4"));
}

TEST_P(TPositionUnitTest, TheSuperiorIsWrittenInThreeWays) {
  TPositionEntity upper;
  upper.ID = 9;
  TPositionEntity position;
  position.ID = 5;
  position.upperPosition = &upper;
  position.FupperPositionID = 8;
  EXPECT_THAT(StatementsOf([&] {
                position.saveUpperPosition();
                position.updateUpperPositionID();
                position.clearUpperPosition();
              }),
              ElementsAre("update PositionEntityH set UpperPosition= 9 where objID=5",
                          "update PositionEntityH set UpperPosition=8 where ObjID=5",
                          "Update PositionEntityH Set upperPosition= -9 where ObjID=5"));
}

TEST_P(TPositionUnitTest, UpdateWritesTheNodeAndThenTheEntity) {
  TPositionEntity position;
  position.ID = 5;
  position.parentID = 4;
  position.IsActive = true;
  position.name = "N";
  position.title = "T";
  position.FupperPositionID = 9;
  EXPECT_THAT(
      StatementsOf([&] { position.update(); }),
      ElementsAre(
          "Update PartyH Set Parent=:Parent, IsActive=:IsActive, Title=:Title,name =:name Where Djlsh= 5",
          "Update PositionEntityH Set Name=:name, title=:title,upperPosition=:upperPosition where "
          "ObjID=5"));
  const TZanValue yes = GetParam() == TDialect::SqlServer ? TZanValue{true} : TZanValue{std::int64_t{1}};
  EXPECT_THAT(FHost.Statements[0].Params,
              ElementsAre(Pair("Parent", TZanValue{std::int64_t{4}}), Pair("IsActive", yes),
                          Pair("Title", TZanValue{"T"}), Pair("name", TZanValue{"N"})));
  EXPECT_THAT(FHost.Statements[1].Params,
              ElementsAre(Pair("name", TZanValue{"N"}), Pair("Title", TZanValue{"T"}),
                          Pair("upperPosition", TZanValue{std::int64_t{9}})));
}

TEST_P(TPositionUnitTest, AFailedUpdateIsRaisedAsAPlainFaultAndLeavesWhatWasWritten) {
  TPositionEntity position;
  position.ID = 5;
  FHost.FailStatement(2);
  std::string message;
  EXPECT_THAT(StatementsOf([&] {
                try {
                  position.update();
                } catch (const EDatabaseError&) {
                  ADD_FAILURE() << "not a plain fault";
                } catch (const EZanError& error) {
                  message = error.what();
                }
              }),
              testing::SizeIs(2));
  EXPECT_FALSE(message.empty());
}

IN_EVERY_DIALECT(TPositionUnitTest);

}  // namespace
}  // namespace zantest
