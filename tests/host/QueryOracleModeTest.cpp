#include <algorithm>

#include "host/platform/Accounts.h"
#include "host/platform/Cipher.h"
#include "host/platform/Numbering.h"
#include "host/platform/Sample.h"
#include "host/platform/Schema.h"
#include "host/query/MariaDb/Rules.h"
#include "host/query/OracleScript.h"
#include "tests/host/MariaDbFixture.h"
#include "tests/support/RecordingHost.h"

namespace zantest {

namespace {

/// What the rule of this name makes of a statement; "(unchanged)" when it does nothing.
std::string Apply(std::string_view rule, std::string_view statement) {
  const auto rules = zanhost::OracleModeRules();
  const auto found = std::ranges::find(rules, rule, &zanhost::TAdaptationRule::Name);
  if (found == rules.end()) return "no such rule";
  zanhost::TTokens tokens = zanhost::Tokenize(statement);
  return found->Apply(tokens) ? zanhost::TokensToText(tokens) : "(unchanged)";
}

class OracleMode : public MariaDb {
 protected:
  OracleMode() : MariaDb("&dialect=oracle") {}
};

}  // namespace

TEST(OracleModeRules, NationalText) {
  EXPECT_EQ(Apply("national-text", "select N'a', n'', 'N' from dual"), "select 'a', '', 'N' from dual");
}

TEST(OracleModeRules, NationalType) {
  EXPECT_EQ(Apply("national-type", "select cast(a as NVarChar2(2000)) from T"),
            "select cast(a as varchar2(2000)) from T");
  EXPECT_EQ(Apply("national-type", "create table T (a nclob, b nvarchar2(3))"),
            "create table T (a clob, b varchar2(3))");
  EXPECT_EQ(Apply("national-type", "select nvarchar2, 'nclob' from T"), "(unchanged)");
}

TEST(OracleModeRules, RecursiveWith) {
  EXPECT_EQ(Apply("recursive-with", "with T(a) as (select 1 from dual) select a from T"),
            "with recursive T(a) as (select 1 from dual) select a from T");
  EXPECT_EQ(Apply("recursive-with", "begin delete from A; with T(a) as (b) c; end"),
            "begin delete from A; with recursive T(a) as (b) c; end");
}

TEST(OracleModeRules, LoginUser) {
  EXPECT_EQ(Apply("login-user", "select sys.login_user DbName from dual"),
            "select ZanLoginUser() DbName from dual");
  EXPECT_EQ(Apply("login-user", "select login_user, sys.other from dual"), "(unchanged)");
}

TEST(OracleModeRules, ToChar) {
  EXPECT_EQ(Apply("to-char", "select to_char(nvl(a, b), '999') || to_char(c) from T"),
            "select ZanToChar(nvl(a, b), '999') || to_char(c) from T");
}

TEST(OracleModeRules, LookIntoAStatementThatIsHandedToZanMake) {
  zanhost::TTokens tokens =
      zanhost::Tokenize("begin ZanMake('create table T (a nvarchar2(3) default ''nclob'')'); end;");
  EXPECT_EQ(zanhost::AdaptScriptForOracleMode(tokens),
            "begin ZanMake('create table T (a varchar2(3) default ''nclob'')'); end;");
}

TEST(OracleScript, EndsBlocksAtASlashAndStatementsAtASemicolon) {
  const auto statements = zanhost::SplitOracleScript(
      "-- one; two\ninsert into T values(';/', 6 / 2);\nupdate T set a = 1\n/\n/\n"
      "create or replace function F return date as\nbegin\n  return 1 / 2;\nend;\n/\n"
      "begin P('a;\n/\nb'); end;\n  /  \ncreate table T (a int);;\ndelete from T");
  const std::vector<std::string_view> expected{
      "insert into T values(';/', 6 / 2)",
      "update T set a = 1",
      "create or replace function F return date as\nbegin\n  return 1 / 2;\nend;",
      "begin P('a;\n/\nb'); end;",
      "create table T (a int)",
      "delete from T"};
  EXPECT_EQ(statements, expected);
  EXPECT_TRUE(zanhost::SplitOracleScript(" -- nothing\n/\n").empty());
}

TEST_F(OracleMode, IsNamedByTheUrl) {
  EXPECT_EQ(Database().Dialect(), zanrole::TDialect::Oracle);
  EXPECT_EQ(Database().ServerType(), "oracle");
  EXPECT_EQ(Database().Server(), zanhost::TServerKind::MariaDb);
  EXPECT_TRUE(Holds(FaultOf([] { zanhost::OpenDatabase("mysql://me@h/d?dialect=x", TOpenMode::MustExist); }),
                    "dialect 'x'"));
}

TEST_F(OracleMode, RoutinesOfTheDialectAreLookedFor) {
  const auto open = [&] { Open(TOpenMode::MustExist); };
  EXPECT_TRUE(Holds(FaultOf(open), "ZanLoginUser"));
  zanhost::InstallSchema(Database());
  EXPECT_EQ(FaultOf(open), "(no fault)");
  Execute(Database(), "drop function getdate");
  EXPECT_TRUE(Holds(FaultOf(open), "(getdate)"));
}

TEST_F(OracleMode, ScriptsOfOracleMakeBothDatabases) {
  EXPECT_EQ(zanhost::InstallSchema(Database()), zanhost::kSchemaVersion);
  EXPECT_EQ(zanhost::InstallSchema(Database()), zanhost::kSchemaVersion);
  EXPECT_EQ(Cell(Database(), "select count(*) from ZanSchemaVersion"), "1");
  EXPECT_THROW(Cell(Database(), "select count(*) from Tree"), EDatabaseError);
  const auto system = Database().GetSysQuery();
  system->SQL().SetText("select count(*) from Tree");
  EXPECT_NO_THROW(system->Open());
}

TEST_F(OracleMode, ALoginBelongsToOneUser) {
  zanhost::InstallSchema(Database());
  Execute(Database(), "insert into STUsers (OID, UserID, uGroup) values (1, 'ann', 0)");
  Execute(Database(), "insert into STUsers (OID, UserID, uGroup) values (2, 'ann', 1)");
  Execute(Database(), "insert into STUsers (OID, UserID, uGroup) values (3, '', 0)");
  Execute(Database(), "insert into STUsers (OID, UserID, uGroup) values (4, '', 0)");
  EXPECT_THROW(Execute(Database(), "insert into STUsers (OID, UserID, uGroup) values (5, 'ann', 0)"),
               EDatabaseError);
}

TEST_F(OracleMode, NumbersGetTheWidthOfTheirFormat) {
  zanhost::InstallSchema(Database());
  EXPECT_EQ(Cell(Database(), "select to_char(5, '9999999999') from dual"), "          5");
  EXPECT_EQ(Cell(Database(), "select to_char(-123, '999') from dual"), "-123");
  EXPECT_EQ(Cell(Database(), "select to_char(1234, '999') from dual"), "####");
  EXPECT_EQ(Cell(Database(), "select nvl(to_char(null, '999'), 'none') from dual"), "none");
  EXPECT_EQ(Cell(Database(), "select to_char(cast('2024-02-29' as date), 'YYYY-MM') from dual"), "2024-02");
}

TEST_F(OracleMode, ABlockIsOneCallAndWholeOrNothing) {
  Execute(Database(), "create table T (ID number(10) not null, Name nvarchar2(20), primary key (ID))");
  const std::string block =
      "begin insert into T values(1, 'a'); insert into T values(2, N'😀'); if SQL%ROWCOUNT = 1 then "
      "insert into T values(3, 'c'); end if; ";
  EXPECT_THROW(Execute(Database(), block + "insert into T values(1, 'd'); end;"), EDatabaseError);
  EXPECT_EQ(Cell(Database(), "select count(*) from T"), "0");
  Execute(Database(), block + "end;");
  EXPECT_EQ(Cell(Database(), "select count(*) from T"), "3");
  EXPECT_EQ(Cell(Database(), "select Name from T where ID = 2"), "😀");
}

TEST_F(OracleMode, SampleAndNumbersAndLogins) {
  zanhost::InstallSchema(Database());
  const TTemporaryFolder folder;
  zanhost::TSivCipher cipher(zanhost::KeyFileOf(folder.Path()));
  const zanhost::TSampleOptions options{.People = 50, .AdminPassword = "x", .Cipher = cipher};
  const zanhost::TSampleResult made = zanhost::MakeSample(Database(), options);
  EXPECT_EQ(Cell(Database(), "select count(*) from UserH"), std::to_string(made.People));
  EXPECT_THROW(zanhost::MakeSample(Database(), options), zanrole::EZanError);
  const int party = std::stoi(Cell(Database(), "select max(DjLsh) from PartyH"));
  EXPECT_EQ(zanhost::NewDjLsh(Database(), "Party"), party + 1);
  EXPECT_EQ(zanhost::NewDjLsh(Database(), "party"), party + 2);
  const auto verdict = [&](std::string_view password) {
    return zanhost::CheckLogin(Database(), cipher, made.AdminLogin, password).Verdict;
  };
  EXPECT_NE(verdict("x"), zanhost::TLoginVerdict::Wrong);
  EXPECT_EQ(verdict(""), zanhost::TLoginVerdict::Wrong);
  Execute(Database(), "call P_RefreshPartyParentPath()");
}

}  // namespace zantest
