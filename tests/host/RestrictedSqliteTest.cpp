#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

#include "host/platform/Schema.h"
#include "host/query/CallerText.h"
#include "host/query/DataUrl.h"
#include "host/query/RestrictedDatabase.h"
#include "host/query/SecretColumns.h"
#include "host/query/Sqlite/Connection.h"
#include "tests/host/Rows.h"
#include "tests/support/TemporaryFolder.h"

// What keeps a restricted session of the embedded database, layer by layer. What callers get and do not get
// on each engine stands in tests/conformance/cases.

namespace zantest {

using testing::HasSubstr;
using zanhost::TAccess;
using zanhost::TOpenMode;
using zanhost::TSqliteConnection;
using zanhost::TSqliteFault;
using zanhost::WhyNotSent;

namespace {

/// An installed database, and the connection under a restricted session, which takes any text.
class RestrictedSqlite : public testing::Test {
 protected:
  void SetUp() override {
    zanhost::InstallSchema(*Full());
    Execute(*Full(), "insert into STUsers(OID, UserID, Password) values(1, 'a', 'geheim')");
  }

  std::string Url() const { return "sqlite:" + FFolder.Path().string(); }
  std::unique_ptr<zanhost::TDatabase> Full() const {
    return zanhost::OpenDatabase(Url(), TOpenMode::CreateIfMissing);
  }
  TSqliteConnection& Connection() {
    if (!FConnection) FConnection.emplace(FFolder / "zanrole.db", TOpenMode::MustExist, TAccess::Restricted);
    return *FConnection;
  }

  /// The message with which a text is refused.
  std::string FaultOf(std::string_view text) {
    try {
      Connection().BeginStatement();
      const zanhost::TStatementHandle statement = Connection().Prepare(text, false);
      while (Connection().Step(statement.get())) {
      }
    } catch (const TSqliteFault& fault) {
      return fault.Message;
    }
    return "(it ran)";
  }

 private:
  TTemporaryFolder FFolder;
  std::optional<TSqliteConnection> FConnection;
};

}  // namespace

TEST(CallerText, IsOneSelectWithoutParameters) {
  for (const char* text :
       {"select 1", " Select 1 ;", "select 1 -- ; select 2", "select ';' from T where a = ';'"})
    EXPECT_EQ(WhyNotSent(text), "") << text;
  for (const char* text :
       {"", ";", "select 1; select 2", "begin select 1; end;", "(select 1)", "delete from T",
        "exec P_RefreshPartyParentPath", "call MySql_execute_MultiSql('select 1')", "select :Name",
        "pragma table_info(T)", "explain select 1"})
    EXPECT_THAT(WhyNotSent(text), HasSubstr("single select")) << text;
}

TEST(CallerText, LacksTheWordsThatEnginesLetPass) {
  for (const char* text :
       {"select Housing, unnatural, Width, withdrawn, blocked, natural_1 from T", "select 1 from get_lock"})
    EXPECT_EQ(WhyNotSent(text), "") << text;
  for (const char* text :
       {"select 1 from a natural join b", "select 1 from a NATURAL join b",
        "select 1 from a join b on 1=1.natural join c", "select 1 from a join b on \\Nnatural join c",
        "select 1 from a/*!natural*/join b", "select 1 from a \xEF\xBB\xBFnatural join b",
        "select 1 from a # '\nnatural join b -- '", "select 1 from a where b = 'natural'"})
    EXPECT_THAT(WhyNotSent(text), HasSubstr("The word 'natural'")) << text;
  EXPECT_THAT(WhyNotSent("select 1 from a join b using(c)"), HasSubstr("The word 'using'"));
  EXPECT_THAT(WhyNotSent("select (with x as (select 1) select 1 from x)"), HasSubstr("The word 'with'"));
  EXPECT_THAT(WhyNotSent("select 1 from a lock in share mode"), HasSubstr("The word 'lock'"));
}

TEST_F(RestrictedSqlite, EngineDoesNothingButRead) {
  for (const char* text :
       {"insert into STDomains(ID) values(1)", "update STUsers set UserID = 'b'", "delete from STUsers",
        "create table T(a)", "create temp table T(a)", "create temp view V as select 1", "drop table STUsers",
        "alter table STUsers add x", "attach database ':memory:' as other", "detach database main",
        "pragma query_only = off", "pragma table_info(STUsers)", "begin", "begin immediate", "savepoint s",
        "commit", "analyze", "reindex", "explain delete from STUsers"})
    EXPECT_THAT(FaultOf(text), testing::AnyOf(HasSubstr("does something else than reading"),
                                              HasSubstr("is no table that is read here")))
        << text;
  EXPECT_THAT(FaultOf("vacuum"), testing::Not("(it ran)"));
  EXPECT_EQ(Number(*Full(), "select count(*) from STUsers where UserID = 'a'"), 1);
}

TEST_F(RestrictedSqlite, EngineReadsTablesAndTheirListOnly) {
  EXPECT_EQ(FaultOf("select OID, UserID from STUsers"), "(it ran)");
  EXPECT_EQ(FaultOf("select name from sqlite_master"), "(it ran)");
  for (const char* text :
       {"select * from dbstat", "select * from sqlite_stmt", "select * from json_each('[1]')",
        "select * from pragma_database_list", "select count(*) from pragma_module_list"})
    EXPECT_THAT(FaultOf(text), HasSubstr("reading tables, and is not run here")) << text;
  EXPECT_THAT(FaultOf("select * from sqlite_temp_master"), HasSubstr("is no table that is read here"));
  EXPECT_THAT(FaultOf("with recursive c(n) as (select 1 union all select n + 1 from c) select n from c"),
              HasSubstr("does something else than reading"));
}

TEST_F(RestrictedSqlite, EngineReadsNoPasswordWhateverAsksForIt) {
  for (const char* text :
       {"select Password from STUsers", "select * from STUsers", "select 1 from STUsers where Password > ''",
        "select 1 from STUsers order by password", "select 1 in STUsers from STUsers",
        "select count(*) from STUsers group by main.STUsers.[Password]",
        "select 1 from STUsers a join STUsers b on a.Password = b.Password",
        "select sum(OID) over (order by Password) from STUsers"})
    EXPECT_EQ(FaultOf(text), "The column STUsers.Password is not read here: it may hold a password.") << text;
}

TEST_F(RestrictedSqlite, EngineCallsOrdinaryFunctionsOnly) {
  EXPECT_EQ(
      FaultOf("select upper(UserID), count(*), str(1), left_characters('ab', 1), getdate() from STUsers"),
      "(it ran)");
  for (const char* text : {"select load_extension('x')", "select randomblob(9)", "select zeroblob(9)",
                           "select printf('%99d', 1)", "select fts3_tokenizer('simple')", "select hex('a')"})
    EXPECT_THAT(FaultOf(text), HasSubstr("cannot be used here")) << text;
}

TEST_F(RestrictedSqlite, NothingIsPreparedBeforeASecondStatement) {
  EXPECT_EQ(FaultOf("select 1; select 2"), "There is more behind the end of the statement.");
  EXPECT_EQ(FaultOf(std::string_view("select 1\0; select 2", 19)),
            "There is more behind the end of the statement.");
}

TEST_F(RestrictedSqlite, ALimitOfTimeHoldsWhereFunctionsCostMost) {
  // A text of 32 KiB, and one of half its length that is nearly found at each place of it.
  const std::string a32(32, 'a');
  const std::string text = "replace(replace('" + a32 + "', 'a', '" + a32 + "'), 'a', '" + a32 + "')";
  std::string statement =
      "select sum(instr(t.x, substr(t.x, 1, 16000) || 'b')) from (select " + text + " x) t";
  for (int i = 0; i < 6; ++i) statement += ", sqlite_master m" + std::to_string(i);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_THAT(FaultOf(statement), HasSubstr("stopped after 5 seconds"));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(8));
}

TEST_F(RestrictedSqlite, SessionMayBeTheFirstOneAndSeesWhatComesLater) {
  const auto restricted = zanhost::OpenRestricted(Url());
  EXPECT_EQ(Text(*restricted, "select UserID from STUsers"), "a");
  Execute(*Full(), "update STUsers set UserID = 'b'");
  EXPECT_EQ(Text(*restricted, "select UserID from STUsers"), "b");
  EXPECT_THROW(Execute(*restricted, "delete from STUsers"), zanrole::EDatabaseError);
}

TEST_F(RestrictedSqlite, ScriptsAndBackupsAreRefused) {
  const auto restricted = zanhost::OpenRestricted(Url());
  const TTemporaryFolder target;
  EXPECT_THROW(restricted->ExecScript("create table T(a);"), zanrole::EDatabaseError);
  EXPECT_THROW(restricted->BackupTo(target / "copy"), zanrole::EDatabaseError);
}

TEST(RestrictedUrl, NamesADatabaseThatIsThere) {
  const TTemporaryFolder folder;
  for (const std::string& url :
       {"sqlite:" + (folder / "none").string(), std::string("sqlite:"), std::string("other")})
    EXPECT_THROW(zanhost::OpenRestricted(url), zanrole::EDatabaseError) << url;
  EXPECT_FALSE(std::filesystem::exists(folder / "none"));
}

TEST_F(RestrictedSqlite, ColumnsThatAreNotReadAreThese) {
  const auto full = Full();
  const auto query = full->GetQuery();
  query->SQL().SetText(
      "select m.name, c.name from sqlite_master m, pragma_table_info(m.name) c where m.type = 'table'");
  std::vector<std::string> secret;
  for (query->Open(); !query->Eof(); query->Next())
    if (zanhost::IsSecretColumn(query->Fields(0).AsString(), query->Fields(1).AsString()))
      secret.push_back(query->Fields(0).AsString() + "." + query->Fields(1).AsString());
  EXPECT_THAT(secret, testing::UnorderedElementsAre("STUsers.Password", "UserH.bbspassword",
                                                    "UserH.loginPassword", "ST_DataParams.ParamValue",
                                                    "ST_DataParams.ParamXML", "ZanPluginParam.ParamText"));
}

}  // namespace zantest
