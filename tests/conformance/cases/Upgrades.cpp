#include "Frame/Un_UpgradeDB.h"
#include "tests/conformance/Conformance.h"

namespace zantest {

using zanrole::TUpgradeDB;

namespace {

constexpr std::string_view kColumns =
    "select Creator, CreateTime, CreatorName, ModifierName, ModifyTime from STUsers";

}  // namespace

TEST_P(Conformance, Upgrades_AddTheColumnsThatAnOldTableLacks) {
  Exec("create table STUsers (OID int not null, UserID " + Engine().TextType(200) + ", primary key (OID))");
  Exec("insert into STUsers(OID, UserID) values(1, 'kept')");
  EXPECT_THROW(Rows(kColumns), zanrole::EDatabaseError);
  TUpgradeDB().DoUpgrade();
  EXPECT_EQ(Rows(kColumns), (std::vector<TTextRow>{{"(null)", "(null)", "(null)", "(null)", "(null)"}}));
  EXPECT_EQ(Cell("select UserID from STUsers"), "kept");
  Exec("update STUsers set Creator = 5, CreatorName = '名', CreateTime = " + zanrole::DBCurDateStr());
  EXPECT_EQ(Rows("select Creator, CreatorName from STUsers"), (std::vector<TTextRow>{{"5", "名"}}));
}

TEST_P(Conformance, Upgrades_AddTheOneColumnThatIsMissing) {
  Exec("create table STUsers (OID int not null, Creator int, CreateTime " + Engine().DateTimeType() +
       ", CreatorName " + Engine().TextType(200) + ", ModifierName " + Engine().TextType(200) +
       ", primary key (OID))");
  TUpgradeDB().DoUpgrade();
  EXPECT_TRUE(Rows(kColumns).empty());
}

TEST_P(Conformance, Upgrades_LeaveACompleteTableAlone) {
  Engine().InstallSchema();
  TUpgradeDB().DoUpgrade();
  TUpgradeDB().DoUpgrade();
  EXPECT_TRUE(Rows(kColumns).empty());
}

TEST_P(Conformance, Upgrades_WithoutTheTableTheyRaiseAndMayBeTriedAgain) {
  EXPECT_THROW(TUpgradeDB::Execute(), zanrole::EDatabaseError);
  Engine().InstallSchema();
  EXPECT_NO_THROW(TUpgradeDB::Execute());
}

}  // namespace zantest
