#include "Party/OrgUnitSQL.h"
#include "tests/unit/Party/PartyFixture.h"

namespace zantest {
namespace {

using namespace zanrole;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

constexpr const char* kInsertNode =
    "Insert Into PartyH (DjLsh,Parent,IsActive,Sequence,Type,Title,name,code) Values "
    "(:DjLsh,:Parent,:IsActive,:Sequence,:Type,:Title,:name,:code)";
constexpr const char* kUpdateNode =
    "Update PartyH Set Parent=:Parent, IsActive=:IsActive, Sequence=:Sequence, Type=:Type, Title=:Title,name "
    "=:name,code =:code Where Djlsh= 5";
constexpr const char* kUpdatePerson = "update userH set objID = :objID where code = :code";
constexpr const char* kInsertPerson =
    "insert into userH (djlsh, name, title, code, objID ) VAlues (:djlsh, :name, :title, :code, :objID)";

TZanValue Int(std::int64_t value) { return value; }

class TOrgUnitSaveTest : public TPartyTest {
 protected:
  static void Fill(TOrgUnit& unit, const char* kind, bool isNew = true) {
    unit.ID = 5;
    unit.parentID = 4;
    unit.sequence = 3;
    unit.IsActive = true;
    unit.kind = kind;
    unit.name = "N";
    unit.title = "T";
    unit.code = "C";
    unit.isNew = isNew;
  }
  std::vector<std::string> Save(const TOrgUnit& unit) {
    return StatementsOf([&] { TOrgUnitSQL::SaveOrganUnits(unit); });
  }
  const std::vector<std::pair<std::string, TZanValue>>& LastParams() {
    return FHost.Statements.back().Params;
  }
};

TEST_P(TOrgUnitSaveTest, ANewNodeIsInsertedAndAnOldOneUpdated) {
  TOrgUnit unit;
  Fill(unit, "WorkGroup");
  const TZanValue yes = GetParam() == TDialect::SqlServer ? TZanValue{true} : Int(1);
  EXPECT_THAT(Save(unit), ElementsAre(kInsertNode));
  EXPECT_THAT(LastParams(), ElementsAre(Pair("DjLsh", Int(5)), Pair("Parent", Int(4)), Pair("IsActive", yes),
                                        Pair("Sequence", Int(3)), Pair("Type", TZanValue{"WorkGroup"}),
                                        Pair("Title", TZanValue{"T"}), Pair("name", TZanValue{"N"}),
                                        Pair("code", TZanValue{"C"})));
  EXPECT_TRUE(unit.isNew) << "the caller clears it";
  unit.isNew = false;
  EXPECT_THAT(Save(unit), ElementsAre(kUpdateNode));
  EXPECT_THAT(LastParams(), SizeIs(7));
}

TEST_P(TOrgUnitSaveTest, ACompanyOrDepartmentWhoseEntityRowHasTheNodeAlreadyWritesNothingToIt) {
  for (const std::string kind : {"Company", "Department"}) {
    TOrgUnit unit;
    Fill(unit, kind.c_str(), /*isNew*/ false);
    unit.tempDjlsh = 8;
    FHost.Answer("H where objID=5", {"Djlsh"}, {{Int(1)}});
    EXPECT_THAT(Save(unit), ElementsAre(kUpdateNode, "select * from " + kind + "H where objID=5"));
  }
}

TEST_P(TOrgUnitSaveTest, ANodeAdoptsTheEntityRowThatItIsToBeBoundTo) {
  for (const std::string kind : {"Company", "Department"}) {
    TOrgUnit unit;
    Fill(unit, kind.c_str());
    unit.tempDjlsh = 8;
    FHost.Answer("H where djlsh=8", {"Djlsh"}, {{Int(8)}});
    EXPECT_THAT(Save(unit), ElementsAre(kInsertNode, "select * from " + kind + "H where objID=5",
                                        "select * from " + kind + "H where djlsh=8",
                                        "update " + kind + "H set ObjID=:ObjID where djlsh=8"));
    EXPECT_THAT(LastParams(), ElementsAre(Pair("ObjID", Int(5))));
  }
  EXPECT_THAT(FHost.NumbersDrawn, IsEmpty());
}

TEST_P(TOrgUnitSaveTest, ANodeWithoutEntityGetsOneWithANumberOfItsOwnKind) {
  for (const std::string kind : {"Company", "Department"}) {
    TOrgUnit unit;
    Fill(unit, kind.c_str());
    FHost.NumbersDrawn.clear();
    EXPECT_THAT(
        Save(unit),
        ElementsAre(kInsertNode, "select * from " + kind + "H where objID=5",
                    "select * from " + kind + "H where djlsh=0",
                    "insert into " + kind +
                        "H ( Djlsh,ObjID,code,Name,Title ) Values(:Djlsh,:ObjID,:code,:Name,:Title)"));
    EXPECT_THAT(LastParams(),
                ElementsAre(Pair("Djlsh", Int(1)), Pair("ObjID", Int(5)), Pair("code", TZanValue{"C"}),
                            Pair("Name", TZanValue{"N"}), Pair("Title", TZanValue{"T"})));
    EXPECT_THAT(FHost.NumbersDrawn, ElementsAre(kind));
  }
}

TEST_P(TOrgUnitSaveTest, APositionGetsItsEntityOnceWithoutSuperior) {
  TOrgUnit unit;
  Fill(unit, "PositionEntity");
  unit.positionCode = "K";
  const std::string find = "select * from PositionEntityH where objID=5";
  EXPECT_THAT(
      Save(unit),
      ElementsAre(kInsertNode, find,
                  "insert into PositionEntityH ( Djlsh,ObjID,code,Name,Title,PositionCode,UpperPosition ) "
                  "Values(:Djlsh,:ObjID,:code,:Name,:Title,:PositionCode,:UpperPosition)"));
  EXPECT_THAT(LastParams(), Contains(Pair("PositionCode", TZanValue{"K"})));
  EXPECT_THAT(LastParams(), Contains(Pair("UpperPosition", Int(-9))));
  EXPECT_THAT(FHost.NumbersDrawn, ElementsAre("PositionEntity"));
  FHost.Answer(find, {"Djlsh"}, {{Int(1)}});
  EXPECT_THAT(Save(unit), ElementsAre(kInsertNode, find));
}

TEST_P(TOrgUnitSaveTest, APersonIsTouchedOnlyByAUnitThatSaysSo) {
  TOrgUnit unit;
  Fill(unit, "User");
  EXPECT_THAT(Save(unit), ElementsAre(kInsertNode));
}

TEST_P(TOrgUnitSaveTest, ANewPersonGetsARowAndAnAccount) {
  TOrgUnit unit;
  Fill(unit, "User");
  unit.code = "o'n";
  unit.UserPartyUpdate = true;
  FHost.Answer("Select Max(OID)", {"MID"}, {{Int(41)}});
  EXPECT_THAT(Save(unit), ElementsAre(kInsertNode, "select Djlsh from userH where code='o''n'", kInsertPerson,
                                      "select OID from stusers where UserID = 'o''n'",
                                      "Select Max(OID) as MID From STUsers",
                                      "insert into stusers ( OID, UserID, UserName ) VAlues (:OID, :UserID, "
                                      ":UserName)"));
  EXPECT_THAT(LastParams(), ElementsAre(Pair("OID", Int(42)), Pair("UserID", TZanValue{"o'n"}),
                                        Pair("UserName", TZanValue{"N"})));
  EXPECT_THAT(FHost.NumbersDrawn, ElementsAre("user"));
}

TEST_P(TOrgUnitSaveTest, TheFirstAccountOfAnEmptyTableIsOne) {
  TOrgUnit unit;
  Fill(unit, "User");
  unit.UserPartyUpdate = true;
  Save(unit);
  EXPECT_THAT(LastParams(), Contains(Pair("OID", Int(1))));
}

TEST_P(TOrgUnitSaveTest, APersonWhoseMainPostIsUnknownGetsTheNewRowAsMainPost) {
  TOrgUnit unit;
  Fill(unit, "User");
  unit.UserPartyUpdate = true;
  FHost.Answer("select Djlsh from userH", {"Djlsh"}, {{Int(3)}});
  FHost.Answer("select OID from stusers", {"OID"}, {{Int(3)}});
  EXPECT_THAT(Save(unit), ElementsAre(kInsertNode, "select Djlsh from userH where code='C'", kUpdatePerson,
                                      "select OID from stusers where UserID = 'C'"));
  EXPECT_THAT(FHost.Statements[2].Params, Contains(Pair(testing::_, Int(5))));
  unit.mainPO = 77;
  FHost.Answer("select Djlsh from userH", {"Djlsh"}, {{Int(3)}});
  FHost.Answer("select OID from stusers", {"OID"}, {{Int(3)}});
  Save(unit);
  EXPECT_THAT(FHost.Statements[2].Params, Contains(Pair(testing::_, Int(77))));
}

TEST_P(TOrgUnitSaveTest, APersonWithoutLoginGetsNoAccount) {
  TOrgUnit unit;
  Fill(unit, "User");
  unit.code = "";
  unit.UserPartyUpdate = true;
  EXPECT_THAT(Save(unit), ElementsAre(kInsertNode, "select Djlsh from userH where code=''", kInsertPerson));
}

TEST_P(TOrgUnitSaveTest, ANodeWhoseEntityADocumentMadeIsSavedAlone) {
  TOrgUnit unit;
  Fill(unit, "Company");
  EXPECT_THAT(StatementsOf([&] { TOrgUnitSQL::SaveOrganUnitsWithoutExtend(unit); }),
              ElementsAre(kInsertNode));
}

TEST_P(TOrgUnitSaveTest, AFaultBehindTheNodeLeavesItsRowAndIsRaisedAsAPlainFault) {
  TOrgUnit unit;
  Fill(unit, "Company");
  for (int failing = 1; failing <= 4; ++failing) {
    EXPECT_THAT(StatementsOf([&] {
                  FHost.FailStatement(failing);
                  try {
                    TOrgUnitSQL::SaveOrganUnits(unit);
                    ADD_FAILURE() << "no fault";
                  } catch (const EDatabaseError&) {
                    ADD_FAILURE() << "not a plain fault";
                  } catch (const EZanError& error) {
                    EXPECT_NE(std::string(error.what()), "");
                  }
                }),
                SizeIs(static_cast<std::size_t>(failing)));
    EXPECT_EQ(unit.ID, 5) << "the unit keeps its identity";
  }
}

TEST_P(TOrgUnitSaveTest, AMoveDeletesTheOtherPostsAndMakesTheNewOneTheMainPost) {
  TOrgUnit unit;
  Fill(unit, "User", /*isNew*/ false);
  unit.code = "o'n";
  EXPECT_THAT(
      StatementsOf([&] { TOrgUnitSQL::PositionAssignUser(unit, /*keepOthers*/ false); }),
      ElementsAre("delete from PartyH where Type='User' and Code='o''n' and Parent <> 4 and Parent in "
                  "(select DjLsh from PartyH where Type='PositionEntity')",
                  kInsertNode));
  EXPECT_EQ(unit.ID, 1);
  EXPECT_EQ(unit.mainPO, 1);
  EXPECT_TRUE(unit.isNew);
  EXPECT_THAT(FHost.NumbersDrawn, ElementsAre("Party"));
}

TEST_P(TOrgUnitSaveTest, AFurtherPostLeavesTheOldMainPost) {
  TOrgUnit unit;
  Fill(unit, "User");
  FHost.Answer("select objID from UserH", {"objID"}, {{Int(77)}});
  EXPECT_THAT(StatementsOf([&] { TOrgUnitSQL::PositionAssignUser(unit, /*keepOthers*/ true); }),
              ElementsAre("select objID from UserH where code='C'", kInsertNode));
  EXPECT_EQ(unit.ID, 1);
  EXPECT_EQ(unit.mainPO, 77);
  FHost.Answer("select objID from UserH", {"objID"}, {{Int(0)}});
  TOrgUnitSQL::PositionAssignUser(unit, /*keepOthers*/ true);
  EXPECT_EQ(unit.mainPO, 2) << "there was none";
}

IN_EVERY_DIALECT(TOrgUnitSaveTest);

}  // namespace
}  // namespace zantest
