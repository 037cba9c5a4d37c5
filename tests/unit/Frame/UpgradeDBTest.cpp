#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Frame/Un_UpgradeDB.h"
#include "tests/support/RecordingHost.h"

namespace zantest {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace zanrole;

const std::string kLook = "select * from STUsers where 1=0";

TEST(UpgradeDB, OnADatabaseWithAllColumnsNoStatementButTheFirstRuns) {
  TRecordingHost host;
  host.Answer(kLook, {"OID", "Creator", "CreateTime", "CreatorName", "ModifierName", "ModifyTime"}, {});
  TUpgradeDB::Execute();
  EXPECT_THAT(host.Texts(), ElementsAre(kLook));
}

TEST(UpgradeDB, AddsExactlyTheOneColumnThatLacks) {
  TRecordingHost host;
  host.Answer(kLook, {"OID", "creator", "CREATETIME", "CreatorName", "ModifierName"}, {});
  TUpgradeDB::Execute();
  EXPECT_THAT(host.Texts(), ElementsAre(kLook, "alter table STUsers add ModifyTime DATETIME"));
}

/// The statements that an empty table gets.
std::vector<std::string> AllColumns(TDialect dialect) {
  TRecordingHost host(dialect);
  TUpgradeDB::Execute();
  return host.Texts();
}

auto AreWithTypes(const std::string& integer, const std::string& date, const std::string& text) {
  const std::string add = "alter table STUsers add ";
  return ElementsAre(kLook, add + "Creator " + integer, add + "CreateTime " + date,
                     add + "CreatorName " + text, add + "ModifierName " + text, add + "ModifyTime " + date);
}

TEST(UpgradeDB, AddsAllInOrderWithTheTypesOfTheDialect) {
  EXPECT_THAT(AllColumns(TDialect::SqlServer), AreWithTypes("int", "DATETIME", "nvarchar(200)"));
  EXPECT_THAT(AllColumns(TDialect::Oracle), AreWithTypes("integer", "DATE", "nvarchar2(200)"));
  EXPECT_THAT(AllColumns(TDialect::MySql), AreWithTypes("int", "DATETIME", "varchar(200)"));
}

TEST(UpgradeDB, RunsOnceInASession) {
  TRecordingHost host;
  TUpgradeDB::Execute();
  host.Statements.clear();
  TUpgradeDB::Execute();
  EXPECT_THAT(host.Texts(), IsEmpty());
}

TEST(UpgradeDB, AFailureIsTriedAgainAtTheNextOpening) {
  TRecordingHost host;
  host.FailStatement(2);
  EXPECT_THROW(TUpgradeDB::Execute(), EDatabaseError);
  host.Statements.clear();
  host.Answer(kLook, {"Creator", "CreateTime", "CreatorName", "ModifierName", "ModifyTime"}, {});
  TUpgradeDB::Execute();
  EXPECT_THAT(host.Texts(), ElementsAre(kLook));
}

}  // namespace
}  // namespace zantest
