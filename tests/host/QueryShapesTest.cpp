#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/query/Adaptation.h"
#include "host/query/LiteralBinding.h"
#include "host/query/LiteralPlaces.h"
#include "host/query/RecurringStatements.h"
#include "host/query/Sqlite/Rules.h"
#include "tests/support/RecordingHost.h"

namespace zantest {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

zanhost::TStatementShape ShapeOf(std::string_view statement) {
  zanhost::TStatementShape shape;
  zanhost::TStatementReader(statement).Read(shape);
  return shape;
}

/// The statement that is prepared: adapted, with "?" for each literal that is bound.
std::string Bound(std::string_view statement) {
  const zanhost::TStatementShape shape = ShapeOf(statement);
  zanhost::TTokens tokens = zanhost::Tokenize(shape.Text);
  zanhost::Adapt(tokens, zanhost::SqliteRules());
  zanhost::BindLiterals(shape, tokens);
  return Squeeze(zanhost::TokensToText(tokens));
}

zanhost::TLiteralBinding BindingOf(std::string_view statement) {
  const zanhost::TStatementShape shape = ShapeOf(statement);
  zanhost::TTokens tokens = zanhost::Tokenize(shape.Text);
  zanhost::Adapt(tokens, zanhost::SqliteRules());
  return zanhost::BindLiterals(shape, tokens);
}

bool MayBeKept(std::string_view statement) { return BindingOf(statement).MayBeKept; }

std::vector<std::string> Statements(std::string_view text) {
  std::vector<std::string> statements;
  zanhost::TStatementReader reader(text);
  for (zanhost::TStatementShape shape; reader.Read(shape);) statements.emplace_back(shape.Text);
  return statements;
}

}  // namespace

TEST(StatementShape, IsSharedByTextsThatDifferInLiterals) {
  EXPECT_EQ(ShapeOf("select a from T where b = 12 and c='it''s' and d = N'x'").Shape,
            "select a from T where b = 0 and c='' and d = N''");
  EXPECT_EQ(ShapeOf("update T set a=1;").Shape, ShapeOf("update T set a=23").Shape);
}

TEST(StatementShape, KeepsKindsOfLiteralsApart) {
  EXPECT_NE(ShapeOf("select a from T where b = '1'").Shape, ShapeOf("select a from T where b = 1").Shape);
  EXPECT_NE(ShapeOf("select a from T where b = N'1'").Shape, ShapeOf("select a from T where b = '1'").Shape);
}

TEST(StatementShape, ALiteralThatIsMoreThanAValueIsTold) {
  for (const char* const statement : {"select 1.5 from T", "select 1e5 from T", "select 0x1F from T",
                                      "where a = 5and b = 2", "select 9223372036854775808", "select X'41'",
                                      "select 'a'b", "select 'a'5", "select 'open", "select 'open''"})
    EXPECT_FALSE(ShapeOf(statement).HasPlainLiterals) << statement;
  EXPECT_FALSE(ShapeOf(std::string_view("select 'a\0b'", 12)).HasPlainLiterals);
  EXPECT_TRUE(ShapeOf("select -5, 'it''s', N'', 999999999999999999").HasPlainLiterals);
}

TEST(StatementReader, ABeginThatOpensATransactionIsAStatement) {
  EXPECT_THAT(Statements("begin immediate"), ElementsAre("begin immediate"));
  EXPECT_THAT(Statements("begin"), ElementsAre("begin"));
}

TEST(StatementReader, ABlockWithoutItsEndIsTold) {
  zanhost::TStatementReader reader("begin delete from a; delete from b;");
  for (zanhost::TStatementShape shape; reader.Read(shape);) EXPECT_TRUE(reader.IsBatch());
  EXPECT_TRUE(reader.LacksEnd());
}

TEST(StatementReader, SemicolonsInBracketsAndLiteralsEndNothing) {
  EXPECT_THAT(Statements("insert into a values(';', (1;2)); delete from b -- x;\n;"),
              ElementsAre("insert into a values(';', (1;2))", " delete from b"));
}

TEST(StatementPattern, TakesStatementsOfItsShapeAlone) {
  const zanhost::TStatementPattern pattern(ShapeOf("insert into T(a, b) values(1, 'x')"));
  zanhost::TTokens literals;
  const auto length = [&](std::string_view text) { return pattern.Match(text, literals); };
  EXPECT_EQ(length("insert into T(a, b) values(23, 'it''s;') ;rest"), 40U);
  ASSERT_EQ(literals.size(), 2U);
  EXPECT_EQ(literals[0].Text, "23");
  EXPECT_EQ(literals[1].Text, "'it''s;'");
  for (const char* const other :
       {"insert into T(a, b) values(1, 'x')", "insert into T(a, b) values(1, 'x') select 1;",
        "insert into T(a, b) values(1.5, 'x');", "insert into T(a, b) values(1, N'x');",
        "insert into T(a, b) values('1', 'x');", "insert into T(a, b) values(1, 'x);",
        "insert into T(a, c) values(1, 'x');", "insert into T(a, b) values(1234567890123456789, 'x');"})
    EXPECT_EQ(length(other), 0U) << other;
  EXPECT_EQ(length(std::string_view("insert into T(a, b) values(1, 'a\0b');", 38)), 0U);
}

TEST(StatementPattern, AFixedLiteralIsPartOfIt) {
  const zanhost::TStatementPattern pattern(ShapeOf("select 888, 'x' from T where a = 5 order by 1"),
                                           {0, 1, 3});
  EXPECT_EQ(pattern.Beginning(), "select 888, 'x' from T where a = ");
  zanhost::TTokens literals;
  EXPECT_TRUE(pattern.MatchWhole("select 888, 'x' from T where a = 67 order by 1", literals));
  ASSERT_EQ(literals.size(), 4U);
  EXPECT_EQ(literals[2].Text, "67");
  for (const char* const other :
       {"select 8, 'x' from T where a = 5 order by 1", "select 888, 'y' from T where a = 5 order by 1",
        "select 888, 'x' from T where a = 5 order by 2", "select 888, 'x' from T where a = 5 order by 12"})
    EXPECT_FALSE(pattern.MatchWhole(other, literals)) << other;
}

TEST(StatementPattern, AWholeTextHasNothingBehindTheStatement) {
  const zanhost::TStatementPattern pattern(ShapeOf("delete from T where a = 1"));
  zanhost::TTokens literals;
  EXPECT_TRUE(pattern.MatchWhole("delete from T where a = 2", literals));
  EXPECT_TRUE(pattern.MatchWhole("delete from T where a = 2 \r\n", literals));
  for (const char* const other :
       {"delete from T where a = 2;", "delete from T where a = 2; delete from T",
        "delete from T where a = 2 --", "delete from T where a = 2 + 1", "delete from T where a = ", ""})
    EXPECT_FALSE(pattern.MatchWhole(other, literals)) << other;
}

TEST(RecurringStatements, AreRecognisedInTheirOrder) {
  std::string text;
  for (int i = 0; i < 20; ++i)
    text += "delete from T where a = " + std::to_string(i) + ";update T set b = '" + std::to_string(i) + "';";
  zanhost::TStatementReader reader(text);
  zanhost::TRecurringStatements<std::string> recurring;
  zanhost::TStatementShape shape;
  std::vector<std::string> found;
  int recognised = 0;
  while (reader.Read(shape)) {
    found.emplace_back(shape.Literals.at(0).Text);
    recurring.Note(shape, shape.Shape);
    while (const std::string* known = recurring.Read(reader, shape)) {
      found.emplace_back(shape.Literals.at(0).Text);
      EXPECT_EQ(known->substr(0, 6), found.size() % 2 == 1 ? "delete" : "update");
      ++recognised;
    }
  }
  ASSERT_EQ(found.size(), 40U);
  EXPECT_EQ(found[38], "19");
  EXPECT_EQ(found[39], "'19'");
  EXPECT_GE(recognised, 34);
}

TEST(LiteralBinding, ValuesAreBound) {
  EXPECT_EQ(Bound("select a from T where b = 5 and c in (1, 2) and d = N'x'"),
            "select a from T where b = ? and c in (?, ?) and d = ?");
  EXPECT_EQ(Bound("insert into T(a, b) values(1, 'x')"), "insert into T(a, b) values(?, ?)");
  EXPECT_EQ(Bound("update T set a = 1, b = IsNull(c, 'x') where d = -5"),
            "update T set a = ?, b = ifnull(c, ?) where d = -?");
  EXPECT_EQ(Bound("select a from T where b in (select c from U where d = 7)"),
            "select a from T where b in (select c from U where d = ?)");
}

TEST(LiteralBinding, FollowsALiteralThatARuleMoved) {
  const char* const statement =
      "update T set f = 'first' from T a inner join U b on a.c = b.c and b.x = 1 where a.d = 'last'";
  EXPECT_EQ(Bound(statement),
            "update T as a set f = ? from U b where ( a.c = b.c and b.x = ? ) and ( a.d = ? )");
  EXPECT_THAT(BindingOf(statement).Bound, ElementsAre(0, 1, 2));
}

TEST(LiteralBinding, TheRulesStillSeeWhichOperandsAreNumbers) {
  EXPECT_EQ(Bound("update T set a = b + 1, c = d + 'x' where e = 2"),
            "update T set a = b + ?, c = d || ? where e = ?");
}

TEST(LiteralBinding, NothingInASelectList) {
  EXPECT_EQ(Bound("select 1, 'x' a, (select max(b) from U where c = 2) from T where d = 3"),
            "select 1, 'x' a, (select max(b) from U where c = 2) from T where d = ?");
  EXPECT_EQ(Bound("insert into T select 1, 'x' where changes() = 0"),
            "insert into T select 1, 'x' where changes() = ?");
}

TEST(LiteralBinding, NothingInTheListsOfAUnion) {
  EXPECT_EQ(Bound("insert into T select 1, 2 union all select 3, 4"),
            "insert into T select 1, 2 union all select 3, 4");
  EXPECT_EQ(Bound("select a from T where b = 1 union all select 2"),
            "select a from T where b = ? union all select 2");
}

TEST(LiteralBinding, NothingInValuesThatAreATable) {
  EXPECT_EQ(Bound("select * from (values(1, 'x')) a where b = 2"),
            "select * from (values(1, 'x')) a where b = ?");
}

TEST(LiteralBinding, NothingInACommonTable) {
  EXPECT_EQ(Bound("with c(n) as (select a from T where b = 1 union all select n + 1 from c where n < 5) "
                  "select n from c where n > 3"),
            "with c(n) as (select a from T where b = 1 union all select n + 1 from c where n < 5) "
            "select n from c where n > ?");
}

TEST(LiteralBinding, NothingBehindOrderBy) {
  EXPECT_EQ(Bound("select a, b from T where c = 3 order by 1, case b when 2 then 'x' end"),
            "select a, b from T where c = ? order by 1, case b when 2 then 'x' end");
}

TEST(LiteralBinding, NothingBehindGroupBy) {
  EXPECT_EQ(Bound("select substr(a, 1, 2) from T where b = 3 group by substr(a, 1, 2) having count(*) > 1"),
            "select substr(a, 1, 2) from T where b = ? group by substr(a, 1, 2) having count(*) > 1");
}

TEST(LiteralBinding, NoLimitOfRows) {
  EXPECT_EQ(Bound("select a from T where b = 1 limit 1"), "select a from T where b = ? limit 1");
}

TEST(LiteralBinding, NoLengthOfAType) {
  EXPECT_EQ(Bound("delete from T where a = cast(5 as varchar(16)) or b = cast(c as decimal(10, 2))"),
            "delete from T where a = cast(? as varchar(16)) or b = cast(c as decimal(10, 2))");
  EXPECT_EQ(Bound("create table T (a varchar(16) default 5)"), "create table T (a varchar(16) default 5)");
}

TEST(LiteralBinding, NoPatternAndNoEscape) {
  EXPECT_EQ(Bound("select a from T where b like 'x%' escape '\\' and c = 'y'"),
            "select a from T where b like 'x%' escape '\\' and c = ?");
  EXPECT_EQ(Bound("select a from T where b like ('%' + c + '%') or d = 'y'"),
            "select a from T where b like ('%' || c || '%') or d = ?");
}

TEST(LiteralBinding, NoBoundOfABetween) {
  EXPECT_EQ(Bound("delete from T where a between 1 and 2 and b = 3 and c between 'x' and d or e = 4"),
            "delete from T where a between 1 and 2 and b = ? and c between 'x' and d or e = ?");
}

TEST(LiteralBinding, NothingInAWindow) {
  EXPECT_EQ(Bound("update T set a = row_number() over(order by 1) where b = 2"),
            "update T set a = row_number() over(order by 1) where b = ?");
}

TEST(LiteralBinding, NothingBesideANamelessParameter) {
  EXPECT_EQ(Bound("select a from T where b = ? and c = 1"), "select a from T where b = ? and c = 1");
}

TEST(LiteralBinding, ALongInListIsNeitherBoundNorKept) {
  const auto listOf = [](std::size_t count) {
    std::string list = "select a from T where b in (1";
    for (std::size_t i = 1; i < count; ++i) list += ", " + std::to_string(i);
    return list + ")";
  };
  EXPECT_TRUE(MayBeKept(listOf(zanhost::kLongestInList)));
  EXPECT_FALSE(MayBeKept(listOf(zanhost::kLongestInList + 1)));
  EXPECT_EQ(Bound(listOf(zanhost::kLongestInList + 1)), listOf(zanhost::kLongestInList + 1));
}

TEST(LiteralBinding, AStatementOfManyLiteralsIsNotKept) {
  std::string rows = "insert into T values(0)";
  for (std::size_t i = 0; i < zanhost::kMostLiterals; ++i) rows += ", (1)";
  EXPECT_FALSE(MayBeKept(rows));
}

TEST(LiteralBinding, WhatIsFixedKeepsStatementsApart) {
  EXPECT_THAT(BindingOf("select a from T where b = 5 order by 1").Fixed, ElementsAre(1));
  EXPECT_THAT(BindingOf("select a from T where b = 5").Fixed, IsEmpty());
}

}  // namespace zantest
