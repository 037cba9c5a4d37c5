#include "Role/UserPassword.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Frame/Package.h"
#include "Role/UserInfo.h"
#include "tests/support/RecordingHost.h"

namespace zantest {
namespace {

using namespace zanrole;

TEST(SavePassword, OnSqlServerAndOracleIsOneBatchThatAlsoNotesTheTime) {
  for (const TDialect dialect : {TDialect::SqlServer, TDialect::Oracle}) {
    TRecordingServices services;
    TRecordingHost host(dialect);
    EXPECT_EQ(SavePassword(7, "o'neil", "secret"), "enc(o'neil:secret)");
    ASSERT_EQ(host.Statements.size(), 1u);
    EXPECT_EQ(host.Statements[0].Database, "data");
    EXPECT_EQ(host.Statements[0].Kind, "Exec");
    EXPECT_EQ(host.Statements[0].Text,
              "begin\r\nUpdate STUsers Set Password = 'enc(o''neil:secret)' Where OID = 7;\r\n"
              "Update STUserPasswordStrategy Set LastModifyTime = Getdate()  Where UserID = 'o''neil';\r\n"
              "end;");
  }
}

TEST(SavePassword, OnMySqlIsOneCallWithTheQuotesDoubledTwice) {
  TRecordingServices services;
  TRecordingHost host(TDialect::MySql);
  SavePassword(7, "o'neil", "secret");
  ASSERT_EQ(host.Statements.size(), 1u);
  EXPECT_EQ(
      host.Statements[0].Text,
      "call MySql_execute_MultiSql('Update STUsers Set Password=''enc(o''''neil:secret)'' where oid=7;\r\n"
      "Update STUserPasswordStrategy Set LastModifyTime = now() where UserID=''o''''neil'';')");
}

TEST(SavePassword, RunTwiceGivesTheSameValueBecauseThePlainTextIsRecovered) {
  TRecordingServices services;
  TRecordingHost host;
  const std::string stored = SavePassword(7, "li", "secret");
  EXPECT_EQ(SavePassword(7, "li", stored), stored);
  EXPECT_EQ(host.Statements[0].Text, host.Statements[1].Text);
}

TEST(SavePassword, AValueThatCannotBeDecipheredIsEncipheredAsPlainText) {
  TRecordingServices services;
  TRecordingHost host;
  EXPECT_EQ(SavePassword(7, "li", "stored before passwords were enciphered"),
            "enc(li:stored before passwords were enciphered)");
}

TEST(SavePassword, AValueOfAnotherAccountIsTakenAsPlainText) {
  TRecordingServices services;
  TRecordingHost host;
  EXPECT_EQ(SavePassword(7, "li", "enc(wang:secret)"), "enc(li:enc(wang:secret))");
}

TEST(SavePassword, StoresThePlainTextWhereTheInstallationDoesNotEncipher) {
  TRecordingServices services;
  TRecordingHost host;
  host.SystemInfo().EncryptPassword = false;
  EXPECT_EQ(SavePassword(7, "li", "enc(li:secret)"), "secret");
  EXPECT_THAT(host.Statements.at(0).Text, testing::HasSubstr("Set Password = 'secret' Where OID = 7;"));
}

TEST(SavePassword, AnEmptyPasswordIsBoundToTheLoginToo) {
  TRecordingServices services;
  TRecordingHost host;
  EXPECT_EQ(SavePassword(7, "li", ""), "enc(li:)");
}

TEST(SavePassword, AColonInThePasswordSurvives) {
  TRecordingServices services;
  TRecordingHost host;
  const std::string stored = SavePassword(7, "li", "a:b%s");
  EXPECT_EQ(stored, "enc(li:a:b%s)");
  EXPECT_EQ(SavePassword(7, "li", stored), stored);
}

TEST(SavePassword, ARecordHoldsTheStoredValueFromThenOnHoweverOftenItRuns) {
  TRecordingServices services;
  TRecordingHost host;
  TUserInfo user;
  user.oID = 7;
  user.ID = "li";
  user.Password = "secret";
  SavePassword(user);
  EXPECT_EQ(user.Password, "enc(li:secret)");
  SavePassword(user);
  EXPECT_EQ(user.Password, "enc(li:secret)");
  EXPECT_EQ(host.Statements[0].Text, host.Statements[1].Text);
}

TEST(SavePassword, AStatementThatFailsRaisesAndLeavesTheRecordAsItWas) {
  TRecordingServices services;
  TRecordingHost host;
  TUserInfo user;
  user.Password = "secret";
  host.FailStatement(1);
  EXPECT_THROW(SavePassword(user), EDatabaseError);
  EXPECT_EQ(user.Password, "secret");
}

TEST(ModuleEntries, ReachTheMenuCheckTheCurrentDomainAndThePasswords) {
  TRecordingServices services;
  TRecordingHost host;
  host.AlwaysAnswer("from StPermission", {"Objectid"}, {{9}});
  const TZanroleEntries& entries = *ZanroleEntries();
  EXPECT_TRUE(entries.GetMenuPermission(9));
  EXPECT_FALSE(entries.GetMenuPermission(8));

  entries.SetCurrentDomainID(5);
  host.Statements.clear();
  entries.SavePassword(7, "li", "secret");
  EXPECT_EQ(host.Statements.size(), 1u);
}

}  // namespace
}  // namespace zantest
