#include "host/platform/Schema.h"

#include <gmock/gmock.h>

#include <set>

#include "host/platform/SchemaFiles.h"
#include "host/query/DataUrl.h"
#include "tests/host/Rows.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using testing::HasSubstr;
using zanhost::InstallSchema;
using zanhost::kSchemaVersion;
using zantest::Execute;
using zantest::Number;
using zantest::Text;

class Schema : public testing::Test {
 protected:
  std::unique_ptr<zanhost::TDatabase> Open() {
    return zanhost::OpenDatabase("sqlite:" + FFolder.Path().string(), zanhost::TOpenMode::CreateIfMissing);
  }

  zantest::TTemporaryFolder FFolder;
  std::unique_ptr<zanhost::TDatabase> FDatabase = Open();
};

class InstalledSchema : public Schema {
 protected:
  InstalledSchema() { InstallSchema(*FDatabase); }
};

}  // namespace

TEST_F(Schema, InstallingGivesTheVersionAndEveryTable) {
  EXPECT_EQ(zanhost::InstalledSchemaVersion(*FDatabase), 0);
  EXPECT_EQ(InstallSchema(*FDatabase), kSchemaVersion);
  for (const char* table : {"ObjectRegister",
                            "STPermission",
                            "Permission",
                            "STUsers",
                            "STUserGroup",
                            "STUserPasswordStrategy",
                            "Tree",
                            "ExFunction",
                            "ST_DataParams",
                            "PartyH",
                            "CompanyH",
                            "DepartmentH",
                            "DepartmentsH",
                            "PositionH",
                            "PositionEntityH",
                            "PositionMapH",
                            "UserH",
                            "STDomains",
                            "STDomainMembers",
                            "STDomainInherits",
                            "STDomainPermission",
                            "STDomainOAPermission",
                            "STDomainWebPermission",
                            "STFieldPermissionControl",
                            "STFieldPermissionSet",
                            "WebMenu",
                            "OA_MenusH",
                            "STOAPermission",
                            "WebPermission",
                            "DocumentTempletH",
                            "DjDy",
                            "CxDy",
                            "XmDy",
                            "CxXsDy",
                            "MlDy",
                            "ViewDy",
                            "ST_msgUser",
                            "ST_MsgKu"})
    EXPECT_EQ(Number(*FDatabase, std::string("select count(*) from ") + table), 0) << table;
}

TEST_F(InstalledSchema, TableOfGradedAdministratorsIsLeftToTheModule) {
  EXPECT_EQ(Number(*FDatabase, "select count(*) from sqlite_master where name = 'STUserPartyPermission'"), 0);
}

TEST_F(InstalledSchema, InstallingAgainTouchesNothing) {
  Execute(*FDatabase, "insert into STDomains (ID, Name) values (1, 'A')");
  Execute(*FDatabase, "update ZanSchemaVersion set InstalledAt = 'then'");
  const int before = Number(*FDatabase, "select total_changes()");
  EXPECT_EQ(InstallSchema(*FDatabase), kSchemaVersion);
  EXPECT_EQ(Number(*FDatabase, "select total_changes()"), before);
  EXPECT_EQ(Text(*FDatabase, "select InstalledAt from ZanSchemaVersion"), "then");
  EXPECT_EQ(Text(*FDatabase, "select Name from STDomains"), "A");
}

TEST_F(Schema, OldDatabaseIsBroughtUpAndKeepsItsRows) {
  FDatabase->ExecScript(
      "create table STUsers (OID int primary key, UserID nvarchar(50), UserName nvarchar(50), uGroup int,"
      " IsAdministrator int, RelateUserH int);"
      "insert into STUsers values (7, 'old', '旧用户', 0, 0, null);");
  EXPECT_EQ(InstallSchema(*FDatabase), kSchemaVersion);
  EXPECT_EQ(Text(*FDatabase, "select UserName from STUsers where OID = 7"), "旧用户");
  EXPECT_EQ(Number(*FDatabase, "select count(*) from PartyH"), 0);
}

TEST_F(InstalledSchema, OlderVersionIsBroughtUp) {
  Execute(*FDatabase, "update ZanSchemaVersion set Version = 0");
  Execute(*FDatabase, "drop table WebMenu");
  EXPECT_EQ(InstallSchema(*FDatabase), kSchemaVersion);
  EXPECT_EQ(Number(*FDatabase, "select count(*) from WebMenu"), 0);
  EXPECT_EQ(Number(*FDatabase, "select count(*) from ZanSchemaVersion"), 1);
}

TEST_F(InstalledSchema, LaterVersionIsRefusedAndKept) {
  Execute(*FDatabase, "update ZanSchemaVersion set Version = 1000");
  try {
    InstallSchema(*FDatabase);
    FAIL() << "a later version was accepted";
  } catch (const zanrole::EZanError& error) {
    EXPECT_THAT(error.what(), HasSubstr("version 1000"));
  }
  EXPECT_EQ(zanhost::InstalledSchemaVersion(*FDatabase), 1000);
}

TEST_F(Schema, FailedInstallationLeavesNothingBehind) {
  FDatabase->ExecScript("create table UserH (DjLsh int);");
  EXPECT_THROW(InstallSchema(*FDatabase), zanrole::EDatabaseError);
  EXPECT_EQ(Number(*FDatabase, "select count(*) from sqlite_master where type = 'table'"), 1);
}

TEST_F(InstalledSchema, LoginIsUniqueAmongUsersAndComparedExactly) {
  Execute(*FDatabase, "insert into STUsers (OID, UserID, uGroup) values (1, 'wang', 0)");
  EXPECT_THROW(Execute(*FDatabase, "insert into STUsers (OID, UserID, uGroup) values (2, 'wang', 0)"),
               zanrole::EDatabaseError);
  Execute(*FDatabase, "insert into STUsers (OID, UserID, uGroup) values (3, 'Wang', 0)");
  Execute(*FDatabase, "insert into STUsers (OID, UserID, uGroup) values (4, 'wang ', 0)");
  EXPECT_EQ(Number(*FDatabase, "select count(*) from STUsers where UserID = 'wang'"), 1);
}

TEST_F(InstalledSchema, RolesMayShareALoginNameOrHaveNone) {
  for (const char* row :
       {"(1, '', 1)", "(2, '', 1)", "(3, null, 1)", "(4, null, null)", "(5, '\\\\R', 1)", "(6, '\\\\R', 1)"})
    Execute(*FDatabase, std::string("insert into STUsers (OID, UserID, uGroup) values ") + row);
  EXPECT_EQ(Number(*FDatabase, "select count(*) from STUsers"), 6);
}

TEST_F(InstalledSchema, ObjectMayBeRegisteredTwiceUnderOneNumber) {
  Execute(*FDatabase, "insert into ObjectRegister (ObjectID, TypeID, Object) values (5, 1, 'A')");
  Execute(*FDatabase, "insert into ObjectRegister (ObjectID, TypeID, Object) values (5, 2, 'B')");
  EXPECT_EQ(Number(*FDatabase, "select count(*) from ObjectRegister where ObjectID = 5"), 2);
}

TEST_F(InstalledSchema, RightWithoutAValueAllows) {
  Execute(*FDatabase, "insert into STPermission (UserID, ObjectID, Oprate) values (1, 2, '执行')");
  EXPECT_EQ(Number(*FDatabase, "select Permission from STPermission"), 1);
}

TEST_F(InstalledSchema, KeysTakeNoNull) {
  EXPECT_THROW(Execute(*FDatabase, "insert into STDomains (Name) values ('A')"), zanrole::EDatabaseError);
  EXPECT_THROW(Execute(*FDatabase, "insert into STUsers (UserName) values ('A')"), zanrole::EDatabaseError);
}

TEST_F(InstalledSchema, RowIdDoesNotStandInForAMissingOID) {
  EXPECT_THROW(Number(*FDatabase, "select OID from PartyH"), zanrole::EDatabaseError);
}

TEST_F(InstalledSchema, ModuleMayAddColumnsToTheAccounts) {
  Execute(*FDatabase, "alter table STUsers add Extra nvarchar(200)");
  EXPECT_EQ(Number(*FDatabase, "select count(Extra) from STUsers"), 0);
}

// The statements that are asked most often find their rows by an index.
TEST_F(InstalledSchema, FrequentStatementsUseAnIndex) {
  for (const char* statement :
       {"select DomainID from STDomainMembers where IsOwned = 0 and UserOID = 1",
        "select distinct DescendantID from STDomainInherits where AncestorID in (1, 2)",
        "select AncestorID from STDomainInherits where DescendantID = 4",
        "select 1 from STDomains where ParentID = 1 and Name = 'A'",
        "select 1 from STDomains where Code = 'A'", "select * from STUsers where UserID = 'A'",
        "select GroupID from STUserGroup where UserID = 1",
        "select UserID from STUserGroup where GroupID = 1", "select * from STPermission where UserID = 1",
        "select * from STPermission where ObjectID = 1", "select * from PartyH where Parent = 1",
        "select * from PartyH where Code = 'A'", "select * from PartyH where Type = 'Company'",
        "select objid from UserH where code = 'A'", "select * from PositionMapH where MapID = 1",
        "select * from ObjectRegister where Object = 'A' and TypeID = 1",
        "select objectID from ObjectRegister where objectID = 1",
        "select upperPosition from positionEntityH where objID = 1"}) {
    const std::string plan = Text(*FDatabase, std::string("explain query plan ") + statement, 3);
    EXPECT_THAT(plan, HasSubstr("SEARCH")) << statement;
  }
}

TEST(SchemaFiles, AreEmbeddedInOrder) {
  std::string last;
  for (const zanhost::TSchemaFile& file : zanhost::SqliteSchemaFiles()) {
    EXPECT_LT(last, file.Name);
    EXPECT_FALSE(file.Text.empty());
    last = file.Name;
  }
  EXPECT_FALSE(last.empty());
}
