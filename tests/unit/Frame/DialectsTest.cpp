#include "Frame/Dialects.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/RecordingHost.h"

namespace zantest {
namespace {

using testing::ElementsAre;
using namespace zanrole;

TEST(NullFuncRewrite, TheUpperCaseFormOnMySqlGivesIfNull) {
  const TRecordingHost host(TDialect::MySql);
  EXPECT_EQ(NullFuncRewrite("select ISNULL(a,0), isnull(b, 1) from t"),
            "select IfNull(a,0), IfNull(b, 1) from t");
}

TEST(NullFuncRewrite, AStatementWithoutANullFunctionStaysAsItWas) {
  for (const TDialect dialect : {TDialect::SqlServer, TDialect::Oracle, TDialect::MySql}) {
    const TRecordingHost host(dialect);
    EXPECT_EQ(NullFuncRewrite("select a from t where a is null"), "select a from t where a is null");
  }
}

TEST(NullFuncRewrite, IsNvlOnOracleAndNothingOnSqlServer) {
  {
    const TRecordingHost host(TDialect::Oracle);
    EXPECT_EQ(NullFuncRewrite("select IsNull(a,0) from t"), "select nvl(a,0) from t");
  }
  const TRecordingHost host(TDialect::SqlServer);
  EXPECT_EQ(NullFuncRewrite("select IsNull(a,0) from t"), "select IsNull(a,0) from t");
}

TStringList Statements(std::initializer_list<const char*> lines) {
  TStringList list;
  for (const char* line : lines) list.Add(line);
  return list;
}

TEST(WrapBatch, EnclosesTheStatementsOnSqlServerAndOracle) {
  for (const TDialect dialect : {TDialect::SqlServer, TDialect::Oracle}) {
    const TRecordingHost host(dialect);
    EXPECT_EQ(WrapBatch(Statements({"delete from A;", "delete from B;"})),
              "begin\r\ndelete from A;\r\ndelete from B;\r\nend;");
  }
}

TEST(WrapBatch, AQuoteInAValueIsDoubledTwiceOnMySql) {
  const TRecordingHost host(TDialect::MySql);
  const std::string statement = "update T set A = " + QuotedStr("O'Neil") + ";";
  EXPECT_EQ(statement, "update T set A = 'O''Neil';");
  EXPECT_EQ(WrapBatch(Statements({statement.c_str()})),
            "call MySql_execute_MultiSql('update T set A = ''O''''Neil'';')");
}

TEST(RunBatch, AnEmptyListIsNotSent) {
  TRecordingHost host;
  RunBatch(*TDbProviderFactory::GetQuery(), TStringList());
  EXPECT_TRUE(host.Statements.empty());
}

TEST(RunBatch, KeepsALoneLineBreakInsideAValueAsItIs) {
  TRecordingHost host;
  RunBatch(*TDbProviderFactory::GetQuery(),
           Statements({"update STUsers set UserName = 'one\ntwo\r\nthree';"}));
  EXPECT_EQ(host.Statements.at(0).Text,
            "begin\r\nupdate STUsers set UserName = 'one\ntwo\r\nthree';\r\nend;");
}

TEST(NextIdentity, OnAnEmptyTableIsOne) {
  TRecordingHost host;
  host.Answer("Select Max(OID)", {"MID"}, {{std::monostate{}}});
  EXPECT_EQ(NextIdentity(*TDbProviderFactory::GetQuery(), "Select Max(OID) as MID From STUsers"), 1);
}

TEST(NextIdentity, IsTheLargestPlusOne) {
  TRecordingHost host;
  host.Answer("Select Max(ObjectID)", {"MOID"}, {{std::int64_t{41}}});
  EXPECT_EQ(
      NextIdentity(*TDbProviderFactory::GetSysQuery(), "Select Max(ObjectID) as MOID From ObjectRegister"),
      42);
  EXPECT_EQ(host.Statements.at(0).Database, "system");
}

struct TDialectWords {
  TDialect Dialect;
  std::string Now, Dual, TextType, Server, DbNameStatement;
};

class EachDialect : public testing::TestWithParam<TDialectWords> {};

TEST_P(EachDialect, HasItsOwnWords) {
  const TRecordingHost host(GetParam().Dialect);
  EXPECT_EQ(DBCurDateStr(), GetParam().Now);
  EXPECT_EQ(DualSuffix(), GetParam().Dual);
  EXPECT_EQ(TextTypeName(), GetParam().TextType);
  EXPECT_EQ(DbHelper_DBServerType(), GetParam().Server);
}

TEST_P(EachDialect, NamesItsDatabasesByOneStatementOnEach) {
  TRecordingHost host(GetParam().Dialect);
  host.Answer("DbName", {"DbName"}, {{std::string("business")}});
  host.Answer("DbName", {"DbName"}, {{std::string("platform")}});
  EXPECT_EQ(GetDataDbName(), "business");
  EXPECT_EQ(GetSysDbName(), "platform");
  EXPECT_THAT(host.Texts(), ElementsAre(GetParam().DbNameStatement, GetParam().DbNameStatement));
  EXPECT_EQ(host.Statements[0].Database, "data");
  EXPECT_EQ(host.Statements[1].Database, "system");
}

INSTANTIATE_TEST_SUITE_P(Dialects, EachDialect,
                         testing::Values(TDialectWords{TDialect::SqlServer, "getdate()", "", "nvarchar",
                                                       "mssql", "select DB_NAME() + '.' DbName"},
                                         TDialectWords{TDialect::Oracle, "sysdate", " from dual ",
                                                       "nvarchar2", "oracle",
                                                       "select sys.login_user DbName from dual"},
                                         TDialectWords{TDialect::MySql, "now()", "", "varchar", "mysql",
                                                       "SELECT DB_NAME() DbName"}));

}  // namespace
}  // namespace zantest
