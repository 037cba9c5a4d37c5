#include <gtest/gtest.h>

#include "host/query/MySqlHelpers.h"
#include "host/query/OracleHelpers.h"
#include "host/query/SqlServerHelpers.h"

namespace {

using namespace zanhost;

struct TExpected {
  const TDialectFamily& Family;
  std::string ServerType, QuotedType, WideText, Conditional, FirstRow;
};

const TExpected kExpected[] = {
    {SqlServerFamily(), "mssql", "[Type]", "nvarchar", "if @@ROWCOUNT = 0 insert into T values(1); ",
     "select top 1 a, b from T where c = 1 order by a"},
    {OracleFamily(), "oracle", "\"TYPE\"", "nvarchar2",
     "if SQL%ROWCOUNT = 0 then insert into T values(1); end if;",
     "select * from (select a, b from T where c = 1 order by a) where rownum = 1"},
    {MySqlFamily(), "mysql", "`Type`", "char", "if row_count() = 0 then insert into T values(1); end if;",
     "select a, b from T where c = 1 order by a limit 1"},
};

}  // namespace

TEST(DialectFamily, WritesThePiecesOfItsDialect) {
  for (const TExpected& expected : kExpected) {
    const TDialectFamily& family = expected.Family;
    SCOPED_TRACE(expected.ServerType);
    EXPECT_EQ(family.ServerType, expected.ServerType);
    EXPECT_EQ(family.ObjectHelper()->QuoteName("Type"), expected.QuotedType);
    EXPECT_EQ(family.TypesHelper()->WideTextType(), expected.WideText);
    const auto functions = family.FunctionsHelper();
    EXPECT_EQ(functions->ConditionalStatement(functions->RowCountExpression() + " = 0",
                                              "insert into T values(1);") +
                  functions->ConditionalEnd(),
              expected.Conditional);
    EXPECT_EQ(family.SelectHelper()->Build({"a, b", "T", "c = 1", "a"}), expected.FirstRow);
    EXPECT_EQ(family.SelectHelper()->Build({"*", "T", "", ""}).find("where c"), std::string::npos);
  }
}

TEST(DialectFamily, ABooleanParameterIsANumberOnOracleOnly) {
  for (const TExpected& expected : kExpected) {
    zanrole::TParam param("Flag");
    expected.Family.ParamHelper()->SetBoolean(param, true);
    EXPECT_EQ(std::holds_alternative<std::int64_t>(param.Value()), expected.ServerType == "oracle");
  }
}
