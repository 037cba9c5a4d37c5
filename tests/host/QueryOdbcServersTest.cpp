#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "host/platform/Numbering.h"
#include "host/platform/Schema.h"
#include "host/query/LineScript.h"
#include "host/query/Odbc/Servers/Rules.h"
#include "tests/host/OdbcFake.h"
#include "tests/support/TemporaryFolder.h"

namespace zantest {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using zanhost::ParseOdbcUrl;
using zanrole::EDatabaseError;

namespace {

/// The sentence with which the work fails.
template <typename TWork>
std::string FaultOf(TWork work) {
  try {
    work();
  } catch (const EDatabaseError& error) {
    return error.what();
  }
  return "(no fault)";
}

class SqlServer : public testing::Test {
 protected:
  SqlServer() {
    FOdbc.Answer("db_name()", {""}, {"zan"});
    for (int i = 0; i < 2; ++i) FOdbc.Answer("sys.databases", {"a", "b"}, {"Chinese_PRC_CI_AS", "1"});
    FDatabase = FOdbc.Open("?system=zansys");
    FOdbc.Sent.clear();
  }
  void Exec(std::string_view text) {
    const auto query = FDatabase->GetQuery();
    query->SQL().SetText(std::string(text));
    query->ExecSQL();
  }

  /// Where the first statement with this piece stands in what was sent.
  std::size_t PlaceOf(std::string_view piece) {
    const auto holds = [&](const std::string& sent) { return sent.find(piece) != std::string::npos; };
    return static_cast<std::size_t>(std::ranges::find_if(FOdbc.Sent, holds) - FOdbc.Sent.begin());
  }
  /// The statement that brought the database into use in which this piece was run.
  std::string DatabaseOfPiece(std::string_view piece) {
    const std::size_t place = PlaceOf(piece);
    if (place == FOdbc.Sent.size()) return "(not sent)";
    for (std::size_t at = place; at-- > 0;)
      if (FOdbc.Sent[at].starts_with("use ")) return FOdbc.Sent[at];
    return "(none)";
  }

  TFakeOdbc FOdbc{"Microsoft SQL Server"};
  std::unique_ptr<zanhost::TOdbcDatabase> FDatabase;
};

class Oracle : public testing::Test {
 protected:
  Oracle() {
    FOdbc.Answer("CURRENT_SCHEMA", {""}, {"ZAN"});
    FOdbc.Answer("NLS_CHARACTERSET", {""}, {"AL32UTF8"});
    for (int i = 0; i < 2; ++i) FOdbc.Answer("all_users", {""}, {"1"});
    FDatabase = FOdbc.Open("?system=ZANSYS");
    FOdbc.Sent.clear();
  }
  void Exec(std::string_view text) {
    const auto query = FDatabase->GetQuery();
    query->SQL().SetText(std::string(text));
    query->ExecSQL();
  }

  /// Where the first statement with this piece stands in what was sent.
  std::size_t PlaceOf(std::string_view piece) {
    const auto holds = [&](const std::string& sent) { return sent.find(piece) != std::string::npos; };
    return static_cast<std::size_t>(std::ranges::find_if(FOdbc.Sent, holds) - FOdbc.Sent.begin());
  }
  /// The statement that brought the database into use in which this piece was run.
  std::string DatabaseOfPiece(std::string_view piece) {
    const std::size_t place = PlaceOf(piece);
    if (place == FOdbc.Sent.size()) return "(not sent)";
    for (std::size_t at = place; at-- > 0;)
      if (FOdbc.Sent[at].starts_with("alter session set current_schema")) return FOdbc.Sent[at];
    return "(none)";
  }

  TFakeOdbc FOdbc{"Oracle"};
  std::unique_ptr<zanhost::TOdbcDatabase> FDatabase;
};

std::string Adapted(std::string (*adapt)(zanhost::TTokens&), std::string_view text) {
  zanhost::TTokens tokens = zanhost::Tokenize(text);
  return adapt(tokens);
}

}  // namespace

TEST(OdbcUrl, IsReadWithItsOptions) {
  const auto url =
      ParseOdbcUrl("odbc:DRIVER={A;B};SERVER=db,1433;UID=me;PWD={p?;}}x};?system=s%20y&folder=/srv/x");
  EXPECT_EQ(url.Connection, "DRIVER={A;B};SERVER=db,1433;UID=me;PWD={p?;}}x}");
  EXPECT_EQ(url.Password, "p?;}x");
  EXPECT_EQ(url.Server(), "db,1433");
  EXPECT_EQ(url.User(), "me");
  EXPECT_EQ(url.Data, "");
  EXPECT_EQ(url.System, "s y");
  EXPECT_EQ(url.Folder, "/srv/x");
  const auto small = ParseOdbcUrl("odbc:DSN=books?data=d");
  EXPECT_EQ(small.Server(), "books");
  EXPECT_EQ(small.Data, "d");
  EXPECT_EQ(small.Folder, "data");
}

TEST(OdbcUrl, PasswordMayComeFromAFile) {
  const TTemporaryFolder folder;
  std::ofstream(folder / "secret") << "a}b;c\nrest\n";
  const auto url = ParseOdbcUrl("odbc:DSN=d;UID=me?passwordfile=" + (folder / "secret").string());
  EXPECT_EQ(url.Connection, "DSN=d;UID=me;PWD={a}}b;c}");
  EXPECT_EQ(url.Password, "a}b;c");
  EXPECT_THAT(FaultOf([] { ParseOdbcUrl("odbc:DSN=d?passwordfile=/nowhere"); }), HasSubstr("/nowhere"));
}

TEST(OdbcUrl, ShownFormsHideWhatMayBeSecret) {
  const auto shown = zanhost::ShownOdbcUrl;
  EXPECT_EQ(shown("odbc:DSN=d;UID=me;PWD=geheim?system=s"), "odbc:DSN=d;UID=me;PWD=***?system=s");
  EXPECT_EQ(shown("odbc:DSN=d;Password={ge;heim}"), "odbc:DSN=d;Password=***");
  EXPECT_EQ(shown("odbc:DSN=d;PWD=ge;heim"), "odbc:DSN=d;PWD=***;***");
  EXPECT_EQ(shown("odbc:DSN=d;PWD=ge?heim"), "odbc:DSN=d;PWD=***?***");
  EXPECT_EQ(shown("odbc:DSN=d;PWD={ge;heim"), "odbc:DSN=d;PWD=***");
  EXPECT_EQ(shown("odbc:DSN=d;AccessToken=geheim;UID=u"), "odbc:DSN=d;AccessToken=***;UID=u");
}

TEST(OdbcUrl, FaultsHideThePassword) {
  for (const std::string url : {"odbc:UID=me;PWD=geheim", "odbc:DSN=d;PWD=geheim?nothing=1",
                                "odbc:DSN=d;PWD=x?geheim", "odbc:DSN=d;PWD=geheim?system=%zz",
                                "odbc:DSN=nowhere;PWD=geheim", "odbc:DRIVER=nowhere;PWD=geheim;SERVER=x"}) {
    const std::string fault = FaultOf([&] { zanhost::OpenDatabase(url, zanhost::TOpenMode::MustExist); });
    EXPECT_NE(fault, "(no fault)") << url;
    EXPECT_EQ(fault.find("geheim"), std::string::npos) << fault;
  }
}

TEST(OdbcServers, AreRecognisedByTheProductBehindTheDriver) {
  const auto serverOf = [](const char* product) { return zanhost::FindOdbcServer(product).Server; };
  EXPECT_EQ(serverOf("Microsoft SQL Server"), zanhost::TServerKind::SqlServer);
  EXPECT_EQ(serverOf("Oracle"), zanhost::TServerKind::Oracle);
  EXPECT_EQ(serverOf("MariaDB"), zanhost::TServerKind::MariaDb);
  EXPECT_EQ(serverOf("MySQL"), zanhost::TServerKind::MariaDb);
  TFakeOdbc odbc("PostgreSQL");
  EXPECT_THAT(FaultOf([&] { odbc.Open(); }), HasSubstr("product 'PostgreSQL'"));
}

TEST_F(SqlServer, SpeaksItsDialectAndSetsTheSession) {
  EXPECT_EQ(FDatabase->Dialect(), zanrole::TDialect::SqlServer);
  EXPECT_EQ(FDatabase->ServerType(), "mssql");
  FDatabase->SetLimits({.Busy = std::chrono::seconds(2), .Statement = std::chrono::seconds(7)});
  ASSERT_EQ(FOdbc.Sent.size(), 1u);
  EXPECT_THAT(FOdbc.Sent[0], HasSubstr("set xact_abort on; set lock_timeout 2000;"));
  EXPECT_EQ(FOdbc.TimeLimit, 7);
}

TEST_F(SqlServer, ABatchIsOneCallInATransaction) {
  Exec("begin\r\ninsert into T values(:A);\r\nif @@ROWCOUNT = 0 insert into T values('允许');\r\nend;");
  EXPECT_THAT(FOdbc.Sent,
              ElementsAre("begin transaction",
                          "begin\n\r\ninsert into T values(?);\n\r\nif @@ROWCOUNT = 0 insert into T "
                          "values(N'允许');\nend;",
                          "commit transaction"));
}

TEST_F(SqlServer, ABatchThatFailsIsTakenBack) {
  FOdbc.Fail("delete", {"42S02", 208, "Invalid object name 'T'.", false});
  EXPECT_THAT(FaultOf([&] { Exec("begin delete from T; end;"); }), HasSubstr("Invalid object name 'T'."));
  EXPECT_EQ(FOdbc.Sent.back(), "if @@trancount > 0 rollback transaction");
}

TEST_F(SqlServer, QueriesOnTheSystemDatabaseBringItIntoUse) {
  const auto query = FDatabase->GetSysQuery();
  query->SQL().SetText("delete from Tree");
  query->ExecSQL();
  Exec("delete from STUsers");
  EXPECT_THAT(FOdbc.Sent,
              ElementsAre("use [zansys]", "delete from Tree;", "use [zan]", "delete from STUsers;"));
}

TEST_F(SqlServer, AStatementWithParametersIsPreparedOnce) {
  const auto query = FDatabase->GetQuery();
  query->SQL().SetText("update T set A = :A where B = :B and C = :a");
  for (int i = 1; i <= 3; ++i) {
    query->ParamByName("A").AsString("a" + std::to_string(i));
    query->ParamByName("B").AsInteger(i);
    query->ExecSQL();
  }
  EXPECT_EQ(FOdbc.Prepared, 1);
  EXPECT_THAT(FOdbc.Bound, ElementsAre("a3", "3", "a3"));
}

TEST_F(SqlServer, TroublesHaveSentences) {
  const auto faultOf = [&](zanhost::TOdbcError error) {
    FOdbc.Fail("delete", std::move(error));
    return FaultOf([&] { Exec("delete from T where Password = 'geheim2'"); });
  };
  EXPECT_THAT(faultOf({"42000", 1222, "Lock request time out period exceeded.", false}),
              HasSubstr("is busy"));
  EXPECT_THAT(faultOf({"40001", 1205, "deadlock victim", false}), HasSubstr("same rows"));
  EXPECT_THAT(faultOf({"HYT00", 0, "Query timeout expired", false}), HasSubstr("stopped after 30 seconds"));
  EXPECT_THAT(faultOf({"HY008", 0, "Operation canceled", false}), HasSubstr("was cancelled"));
  const std::string told = faultOf({"42000", 102, "Incorrect syntax near 'geheim2'", false});
  EXPECT_THAT(told, HasSubstr("refused a statement about passwords: error 102 (42000)"));
  EXPECT_THAT(told, Not(HasSubstr("geheim2")));
  FOdbc.Fail("delete", {"42000", 1, "login with geheim", false});
  EXPECT_THAT(FaultOf([&] { Exec("delete from T"); }), HasSubstr("login with ***"));
}

TEST_F(SqlServer, ALostConnectionIsToldAndTheNextStatementConnectsAnew) {
  FOdbc.Fail("delete", {"08S01", 10054, "TCP Provider: reset", true});
  EXPECT_THAT(FaultOf([&] { Exec("delete from T"); }), HasSubstr("server db was lost"));
  EXPECT_EQ(FOdbc.Connections.size(), 1u);
  Exec("delete from T");
  EXPECT_EQ(FOdbc.Connections.size(), 2u);
  EXPECT_THAT(FOdbc.Sent, Contains("use [zan]"));
}

TEST_F(SqlServer, AScriptEndsItsPiecesAtGo) {
  FDatabase->ExecScript("create table A (X int);\ncreate table B (X int);\nGO\n  go\nselect ' \ngo2'\ngo");
  EXPECT_THAT(FOdbc.Sent,
              ElementsAre("begin transaction", "create table A (X int);\ncreate table B (X int);\n",
                          "select ' \ngo2'\n", "commit transaction"));
}

TEST_F(SqlServer, ANumberIsDrawnByOneStatement) {
  FOdbc.Answer("merge into ZanCounter", {"LastValue"}, {"8"});
  EXPECT_EQ(zanhost::NewDjLsh(*FDatabase, "PARTY"), 8);
  ASSERT_EQ(FOdbc.Sent.size(), 1u);
  EXPECT_EQ(FOdbc.Sent[0],
            "merge into ZanCounter with (holdlock) c\n"
            "using (select coalesce((select max(DjLsh) from PartyH), 0) + 1 Lowest) n\n"
            "on (c.Name = ?)\n"
            "when matched then update\n"
            " set LastValue = case when c.LastValue >= n.Lowest then c.LastValue + 1 else n.Lowest end\n"
            "when not matched then insert (Name, LastValue) values (?, n.Lowest)\n"
            "output inserted.LastValue;");
  EXPECT_THAT(FOdbc.Bound, ElementsAre("party", "party"));
}

TEST_F(SqlServer, ACounterWithoutATableBeginsAtOne) {
  FOdbc.Answer("merge into ZanCounter", {"LastValue"}, {"1"});
  EXPECT_EQ(zanhost::NewDjLsh(*FDatabase, "Other"), 1);
  EXPECT_THAT(FOdbc.Sent[0], HasSubstr("coalesce((select 0), 0) + 1 Lowest"));
}

TEST_F(SqlServer, TheSchemaIsInstalledInBothDatabases) {
  const std::string version = std::to_string(zanhost::kSchemaVersion);
  FOdbc.Answer("from sys.tables", {"a"}, {});
  FOdbc.Answer("db_name()", {"a"}, {"zan"});
  FOdbc.Answer("db_name()", {"a"}, {"zan]sys"});
  FOdbc.Answer("from sys.tables", {"a"}, {"1"});
  FOdbc.Answer("max(Version)", {"a"}, {version});
  EXPECT_EQ(zanhost::InstallSchema(*FDatabase), zanhost::kSchemaVersion);
  EXPECT_THAT(DatabaseOfPiece("create table STUsers"), HasSubstr("use [zan];"));
  EXPECT_THAT(DatabaseOfPiece("create table ZanCounter"), HasSubstr("use [zan];"));
  EXPECT_THAT(DatabaseOfPiece("create table Tree"), HasSubstr("use [zan]]sys];"));
  EXPECT_THAT(DatabaseOfPiece("IX_Tree_ParentID"), HasSubstr("use [zan]]sys];"));
  EXPECT_THAT(DatabaseOfPiece("alter procedure P_RefreshPartyParentPath"), HasSubstr("use [zan];"));
  EXPECT_THAT(DatabaseOfPiece("select " + version + ", getdate()"), HasSubstr("use [zan];"));
  EXPECT_LT(PlaceOf("begin transaction"), PlaceOf("sp_getapplock"));
  EXPECT_LT(PlaceOf("sp_getapplock"), PlaceOf("create table STUsers"));
  EXPECT_LT(PlaceOf("select " + version + ", getdate()"), PlaceOf("commit transaction"));
}

TEST_F(SqlServer, AnInstalledSchemaHasItsRoutinesMadeAnew) {
  const std::string version = std::to_string(zanhost::kSchemaVersion);
  for (int i = 0; i < 2; ++i) {
    FOdbc.Answer("from sys.tables", {"a"}, {"1"});
    FOdbc.Answer("max(Version)", {"a"}, {version});
    FOdbc.Answer("db_name()", {"a"}, {"zan"});
  }
  zanhost::InstallSchema(*FDatabase);
  EXPECT_THAT(FOdbc.Sent, Contains(HasSubstr("alter procedure P_RefreshPartyParentPath")));
  EXPECT_THAT(FOdbc.Sent, Not(Contains(HasSubstr("create table"))));
}

TEST_F(SqlServer, AFailedInstallationIsTakenBack) {
  FOdbc.Answer("from sys.tables", {"a"}, {});
  for (int i = 0; i < 2; ++i) FOdbc.Answer("db_name()", {"a"}, {"zan"});
  FOdbc.Fail("create table Tree", {"42000", 262, "CREATE TABLE permission denied", false});
  EXPECT_THAT(FaultOf([&] { zanhost::InstallSchema(*FDatabase); }), HasSubstr("permission denied"));
  EXPECT_EQ(FOdbc.Sent.back(), "if @@trancount > 0 rollback transaction");
}

TEST(SqlServerChecks, SayWhatIsWrongAndHowToSetIt) {
  const auto faultOf = [](std::vector<std::string> columns, std::vector<std::string> cells) {
    TFakeOdbc odbc("Microsoft SQL Server");
    odbc.Answer("db_name()", {""}, {"zan"});
    odbc.Answer("sys.databases", std::move(columns), std::move(cells));
    return FaultOf([&] { odbc.Open(); });
  };
  EXPECT_THAT(faultOf({}, {}), HasSubstr("There is no database 'zan' on the server db"));
  EXPECT_THAT(faultOf({"a", "b"}, {"Latin1_General_100_BIN2", "1"}), HasSubstr("without regard to case"));
  EXPECT_THAT(faultOf({"a", "b"}, {"Latin1_General_CI_AS", "0"}), HasSubstr("read_committed_snapshot on"));
}

TEST_F(Oracle, ABatchIsABlockInATransactionOfTheDriver) {
  EXPECT_EQ(FDatabase->Dialect(), zanrole::TDialect::Oracle);
  Exec("begin\r\nupdate T set A = :A;\r\nif SQL%ROWCOUNT = 0 then insert into T values(1); end if;\r\nend;");
  ASSERT_EQ(FOdbc.Sent.size(), 3u);
  EXPECT_EQ(FOdbc.Sent[0], "[begin]");
  EXPECT_THAT(FOdbc.Sent[1], HasSubstr("end if;\nend;"));
  EXPECT_THAT(FOdbc.Sent[1], Not(HasSubstr("\r")));
  EXPECT_EQ(FOdbc.Sent[2], "[keep]");
  FOdbc.Fail("delete", {"HY000", 942, "table or view does not exist", false});
  EXPECT_THROW(Exec("begin delete from T; end;"), EDatabaseError);
  EXPECT_EQ(FOdbc.Sent.back(), "[undo]");
}

TEST_F(Oracle, QueriesOnTheSystemSchemaBringItIntoUse) {
  const auto query = FDatabase->GetSysQuery();
  query->SQL().SetText("select sys.login_user DbName from dual");
  FOdbc.Answer("from dual", {"DBNAME"}, {"ZANSYS"});
  query->Open();
  EXPECT_EQ(query->FieldByName("DbName").AsString(), "ZANSYS");
  EXPECT_THAT(FOdbc.Sent, ElementsAre("alter session set current_schema = \"ZANSYS\"",
                                      "select sys_context('USERENV', 'CURRENT_SCHEMA') DbName from dual"));
}

TEST_F(Oracle, AScriptEndsItsPiecesAtASlash) {
  FDatabase->ExecScript("begin ZanMake('create table A (X number(10))'); end;\n/\n-- nothing\n/\n");
  EXPECT_THAT(FOdbc.Sent, ElementsAre("[begin]", HasSubstr("end;"), "[keep]"));
}

TEST_F(Oracle, ANumberIsDrawnByAFunctionOfTheSchema) {
  FOdbc.Answer("ZanNextNumber", {"LASTVALUE"}, {"8"});
  EXPECT_EQ(zanhost::NewDjLsh(*FDatabase, "User"), 8);
  FOdbc.Answer("ZanNextNumber", {"LASTVALUE"}, {"1"});
  EXPECT_EQ(zanhost::NewDjLsh(*FDatabase, "Other"), 1);
  EXPECT_THAT(
      FOdbc.Sent,
      ElementsAre(
          "select ZanNextNumber(?, coalesce((select max(DjLsh) from UserH), 0) + 1) LastValue from dual",
          "select ZanNextNumber(?, coalesce((select 0 from dual), 0) + 1) LastValue from dual"));
  EXPECT_THAT(FOdbc.Bound, ElementsAre("other"));
}

TEST_F(Oracle, TheSchemaIsInstalledInBothSchemas) {
  const std::string version = std::to_string(zanhost::kSchemaVersion);
  const std::string data = "alter session set current_schema = \"ZAN\"\n";
  const std::string system = "alter session set current_schema = \"ZANSYS\"\n";
  FOdbc.Answer("from all_tables", {"a"}, {});
  FOdbc.Answer("'CURRENT_SCHEMA') from dual", {"a"}, {"ZAN"});
  FOdbc.Answer("'CURRENT_SCHEMA') from dual", {"a"}, {"ZANSYS"});
  FOdbc.Answer("from all_tables", {"a"}, {"1"});
  FOdbc.Answer("max(Version)", {"a"}, {version});
  EXPECT_EQ(zanhost::InstallSchema(*FDatabase), zanhost::kSchemaVersion);
  EXPECT_EQ(DatabaseOfPiece("create table STUsers"), data);
  EXPECT_EQ(DatabaseOfPiece("create table Tree"), system);
  EXPECT_EQ(DatabaseOfPiece("IX_Tree_ParentID"), system);
  EXPECT_EQ(DatabaseOfPiece("function ZanNextNumber"), data);
  EXPECT_EQ(DatabaseOfPiece("function left"), data);
  EXPECT_EQ(DatabaseOfPiece("select " + version + ", sysdate"), data);
  EXPECT_EQ(
      std::ranges::count_if(
          FOdbc.Sent, [](const std::string& sent) { return sent.find("procedure ZanMake") != sent.npos; }),
      2);
  EXPECT_THAT(FOdbc.Sent[PlaceOf("lock table ZanSchemaVersion")], Not(HasSubstr(";")));
  EXPECT_LT(PlaceOf("select " + version + ", sysdate"), PlaceOf("[keep]"));
}

TEST(OdbcRules, MakeTheTextsFitSqlServer) {
  EXPECT_EQ(Adapted(zanhost::AdaptForSqlServer, "select 'a', '组', N'织', [组] from T"),
            "select 'a', N'组', N'织', [组] from T;");
}

TEST(OdbcRules, MakeTheTextsFitOracle) {
  const auto adapted = [](std::string_view text) { return Adapted(zanhost::AdaptForOracle, text); };
  EXPECT_EQ(adapted("select left(f(a, 1), 2) from T left outer join B on 1=1;"),
            "select substr(f(a, 1), 1, 2) from T left outer join B on 1=1");
  EXPECT_EQ(adapted("select 'sys.login_user' from dual"), "select 'sys.login_user' from dual");
  EXPECT_EQ(adapted("begin\r\nnull;\r\nend"), "begin\nnull;\nend;");
}

}  // namespace zantest
