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

TEST(UpgradeDB, AddsAllInOrderWithTheTypesOfSqlServer) {
  TRecordingHost host(TDialect::SqlServer);
  TUpgradeDB::Execute();
  EXPECT_THAT(host.Texts(), ElementsAre(kLook, "alter table STUsers add Creator int",
                                        "alter table STUsers add CreateTime DATETIME",
                                        "alter table STUsers add CreatorName nvarchar(200)",
                                        "alter table STUsers add ModifierName nvarchar(200)",
                                        "alter table STUsers add ModifyTime DATETIME"));
}

TEST(UpgradeDB, AddsAllInOrderWithTheTypesOfOracle) {
  TRecordingHost host(TDialect::Oracle);
  TUpgradeDB::Execute();
  EXPECT_THAT(host.Texts(), ElementsAre(kLook, "alter table STUsers add Creator integer",
                                        "alter table STUsers add CreateTime DATE",
                                        "alter table STUsers add CreatorName nvarchar2(200)",
                                        "alter table STUsers add ModifierName nvarchar2(200)",
                                        "alter table STUsers add ModifyTime DATE"));
}

TEST(UpgradeDB, AddsAllInOrderWithTheTypesOfMySql) {
  TRecordingHost host(TDialect::MySql);
  TUpgradeDB::Execute();
  EXPECT_THAT(host.Texts(), ElementsAre(kLook, "alter table STUsers add Creator int",
                                        "alter table STUsers add CreateTime DATETIME",
                                        "alter table STUsers add CreatorName varchar(200)",
                                        "alter table STUsers add ModifierName varchar(200)",
                                        "alter table STUsers add ModifyTime DATETIME"));
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
