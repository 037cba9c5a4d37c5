#include "Party/Un_PositionUnit.h"
#include "tests/unit/Party/PartyFixture.h"

namespace zantest {
namespace {

using namespace zanrole;
using testing::ElementsAre;

/// What one position reads and writes.
class TPositionUnitStatements : public TPartyTest {
 protected:
  TPositionUnitStatements() { FPosition.ID = 5; }
  TPositionEntity FPosition;
};

IN_EVERY_DIALECT(TPositionUnitStatements);

TEST_P(TPositionUnitStatements, APositionIsReadWithItsEntity) {
  FHost.Answer("from partyH,positionEntityH",
               {"Type", "name", "title", "IsActive", "Parent", "Code", "PositionCode", "UpperPosition"},
               {{"PositionEntity", "车间主管", "主管", 1, 4, "0101", "K", 3}});
  const auto read = [] {
    const TPositionEntity position(5);
    EXPECT_EQ(position.title, "主管");
    EXPECT_EQ(position.FupperPositionID, 3);
  };
  EXPECT_THAT(
      StatementsOf(read),
      ElementsAre("Select partyH.Type,partyH.name,partyH.title,partyH.IsActive,partyH.Parent,partyH.Code, "
                  "positionEntityH.PositionCode,positionEntityH.UpperPosition from partyH,positionEntityH "
                  "where partyH.Djlsh=positionEntityH.objID and partyH.Djlsh= 5"));
}

TEST_P(TPositionUnitStatements, TheSuperiorIsReadAtFirstUse) {
  const auto read = [this] {
    EXPECT_EQ(FPosition.GetUpperPosition().ID, 0);
    EXPECT_EQ(FPosition.GetUpperPosition().ID, 0);
    EXPECT_EQ(FPosition.GetUpperPositionID(), 0);
  };
  EXPECT_THAT(StatementsOf(read),
              ElementsAre("select * from partyh where Djlsh in ( select UpperPosition from positionEntityh "
                          "where ObjID =5)",
                          "select upperPosition from positionEntityH where objID=5"));
}

TEST_P(TPositionUnitStatements, TheSuperiorIsWrittenByThreeStatements) {
  TPositionEntity upper;
  upper.ID = 3;
  FPosition.upperPosition = &upper;
  FPosition.FupperPositionID = 4;
  const auto write = [this] {
    FPosition.saveUpperPosition();
    FPosition.updateUpperPositionID();
    FPosition.clearUpperPosition();
  };
  EXPECT_THAT(StatementsOf(write), ElementsAre("update PositionEntityH set UpperPosition= 3 where objID=5",
                                               "update PositionEntityH set UpperPosition=4 where ObjID=5",
                                               "Update PositionEntityH Set upperPosition= -9 where ObjID=5"));
}

TEST_P(TPositionUnitStatements, ASuperiorMustNotStandBelowThePosition) {
  const std::string all = "Select ObjID,Code,upperPosition from PositionEntityH";
  FHost.AlwaysAnswer(all, {"ObjID", "Code", "upperPosition"},
                     {{5, "", 3}, {3, "", -9}, {6, "", 5}, {8, "", 9}, {9, "", 8}});
  const auto test = [this] {
    EXPECT_TRUE(FPosition.testUpperPosition(3));
    EXPECT_FALSE(FPosition.testUpperPosition(5));
    EXPECT_FALSE(FPosition.testUpperPosition(6));
    EXPECT_TRUE(FPosition.testUpperPosition(8));
  };
  EXPECT_THAT(StatementsOf(test), ElementsAre(all, all, all, all));
}

TEST_P(TPositionUnitStatements, AnUpdateWritesTheNodeAndTheEntity) {
  EXPECT_THAT(StatementsOf([this] { FPosition.update(); }),
              ElementsAre("Update PartyH Set Parent=:Parent, IsActive=:IsActive, Title=:Title,name =:name "
                          "Where Djlsh= 5",
                          "Update PositionEntityH Set Name=:name, title=:title,upperPosition=:upperPosition "
                          "where ObjID=5"));
}

}  // namespace
}  // namespace zantest
