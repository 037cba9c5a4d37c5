#include <gtest/gtest.h>

#include <algorithm>

#include "host/query/MariaDb/Fault.h"
#include "host/query/MariaDb/Rules.h"
#include "host/query/MariaDb/Script.h"
#include "tests/support/RecordingHost.h"

namespace zantest {

namespace {

/// What the rule of this name makes of a statement; "(unchanged)" when it does nothing.
std::string Apply(std::string_view rule, std::string_view statement) {
  const auto rules = zanhost::MariaDbRules();
  const auto found = std::find_if(rules.begin(), rules.end(), [&](const auto& r) { return r.Name == rule; });
  if (found == rules.end()) return "no such rule";
  zanhost::TTokens tokens = zanhost::Tokenize(statement);
  return found->Apply(tokens) ? Squeeze(zanhost::TokensToText(tokens)) : "(unchanged)";
}

/// What is sent in its place.
std::string Adapted(std::string_view statement) {
  zanhost::TTokens tokens = zanhost::Tokenize(statement);
  zanhost::Adapt(tokens, zanhost::MariaDbRules());
  return Squeeze(zanhost::TokensToText(tokens));
}

/// The text whose statements a call runs.
std::string OfCall(std::string_view statement) {
  return zanhost::StatementsOfCall(statement).value_or("(no call)");
}

constexpr std::string_view kRoleRename =
    R"(update STUsers a inner join STDomains c on 1=1 set UserName = concat(c.FullName, '\\', case left(a.UserID, 2) when '\\\\' then SUBSTRing(a.UserID, 3, 100) else a.UserID end))";

}  // namespace

TEST(MariaDbRules, EachHasANameAndAReason) {
  for (const zanhost::TAdaptationRule& rule : zanhost::MariaDbRules()) {
    EXPECT_FALSE(rule.Name.empty());
    EXPECT_FALSE(rule.Reason.empty()) << rule.Name;
  }
}

TEST(MariaDbRules, NoneTouchesLiteralsNamesAndComments) {
  for (const std::string statement : {R"(select 'with a + b cast(c as varchar(3)) str(d) \\ \' from T)",
                                      "select `a + b`, \"str(c)\" /* with d + e */ from T",
                                      "select 'call MySql_execute_MultiSql(a + b)' from T"})
    EXPECT_EQ(Adapted(statement), Squeeze(statement));
}

TEST(MariaDbRules, RecursiveWith) {
  EXPECT_EQ(Apply("recursive-with", "with T(a) as (select 1) select a from T"),
            "with recursive T(a) as (select 1) select a from T");
  EXPECT_EQ(Apply("recursive-with", "with recursive T(a) as (select 1) select a from T"), "(unchanged)");
  EXPECT_EQ(Apply("recursive-with", "select a as with_b from T"), "(unchanged)");
}

TEST(MariaDbRules, RecursiveRowNumber) {
  EXPECT_EQ(Apply("recursive-row-number",
                  "with T as ( select ROW_NUMBER() over(order by a.PrecedID) n from a ) select n from T"),
            "with T as ( select ( a.PrecedID) n from a ) select n from T");
}

TEST(MariaDbRules, Str) {
  EXPECT_EQ(Apply("str", "select str(a), STR(str(b, 3)), str(max(c, d)) from T"),
            "select lpad(a, 10), lpad(lpad(b, 3), 10), lpad(max(c, d), 10) from T");
  EXPECT_EQ(Apply("str", "select str from T"), "(unchanged)");
}

TEST(MariaDbRules, CastType) {
  EXPECT_EQ(Apply("cast-type", "select cast(a as NVarChar(2000)), cast(b + (c) as varchar(16)) from T"),
            "select cast(a as char(2000)), cast(b + (c) as char(16)) from T");
  EXPECT_EQ(Apply("cast-type", "alter table T add a varchar(200)"), "(unchanged)");
  EXPECT_EQ(Apply("cast-type", "select cast(a as char(3)) varchar from T"), "(unchanged)");
}

TEST(MariaDbRules, TextPlus) {
  EXPECT_EQ(Apply("text-plus", "select c.FullName + '\\' + e from T"),
            "select c.FullName || '\\' || e from T");
  EXPECT_EQ(Apply("text-plus", "select IfNull(Max(ID),0) + 1 from T"), "(unchanged)");
}

TEST(MariaDbRules, EscapedBackslashes) {
  EXPECT_EQ(
      Apply("escaped-backslashes", kRoleRename),
      R"(update STUsers a inner join STDomains c on 1=1 set UserName = concat(c.FullName, '\', case left(a.UserID, 2) when '\\' then SUBSTRing(a.UserID, 3, 100) else a.UserID end))");
}

TEST(MariaDbRules, EscapedBackslashesAreHalvedInNoOtherStatement) {
  for (const std::string statement :
       {R"(update STUsers set UserName = '\\' where OID = 1)", R"(insert into T(a) values('\\'))",
        R"(update STDomains set FullName = concat(Name, '\\'))",
        R"(select concat('\\', '\\\\') from STUsers)"})
    EXPECT_EQ(Apply("escaped-backslashes", statement), "(unchanged)") << statement;
}

TEST(MariaDbRules, WhatDecidesByALiteralIsTold) {
  EXPECT_TRUE(zanhost::RulesReadLiterals(zanhost::Tokenize(kRoleRename)));
  EXPECT_FALSE(
      zanhost::RulesReadLiterals(zanhost::Tokenize(R"(update STUsers set UserName = '\\' where OID = 1)")));
}

TEST(MariaDbRules, CallArgumentIsUnquoted) {
  EXPECT_EQ(OfCall("call MySql_execute_MultiSql('update T set a = ''it''''s; '';\r\ndelete from T;')"),
            "update T set a = 'it''s; ';\r\ndelete from T;");
  EXPECT_EQ(OfCall("CALL mysql_execute_multisql(N'delete from T')"), "delete from T");
  EXPECT_EQ(OfCall("call MySql_execute_MultiSql('')"), "");
}

TEST(MariaDbRules, CallArgumentMayHaveNoQuotes) {
  EXPECT_EQ(
      Squeeze(OfCall("call MySql_execute_MultiSql(\r\nDelete From STUserGroup Where UserID=1;\r\nInsert Into "
                     "STUserGroup (UserID, GroupID)\r\nselect 1, 'a;b' union all\r\nselect 2, 3 ;\r\n)")),
      "Delete From STUserGroup Where UserID=1; Insert Into STUserGroup (UserID, GroupID) select 1, 'a;b' "
      "union all select 2, 3 ;");
}

TEST(MariaDbRules, CallArgumentTakesNoParameters) {
  EXPECT_THROW(OfCall("call MySql_execute_MultiSql(delete from T where a = :A;)"), zanhost::TMariaDbFault);
}

TEST(MariaDbRules, OtherCallsStay) {
  const std::string call = "call Mysql_Update_STUserPasswordStrategy('a + b', 1, 0, 1)";
  EXPECT_EQ(Adapted(call), call);
  EXPECT_EQ(OfCall(call), "(no call)");
  EXPECT_EQ(OfCall("call MySql_execute_MultiSql('select 1') + 1"), "(no call)");
}

TEST(MariaDbScript, IsSplitAtItsDelimiters) {
  const auto statements = zanhost::SplitMariaDbScript(
      "use `a;b`;\n-- a comment; it's one\ninsert into T values(';', 'it''s');\ndelimiter $$\n"
      "create procedure P() begin select 1; /* $$ */ end $$\ndelimiter ;\nselect 2;\n-- the end;\n");
  ASSERT_EQ(statements.size(), 4U);
  EXPECT_EQ(statements[0], "use `a;b`");
  EXPECT_NE(statements[1].find("'it''s')"), std::string::npos);
  EXPECT_NE(statements[2].find("end"), std::string::npos);
  EXPECT_EQ(statements[3].find("$$"), std::string::npos);
}

}  // namespace zantest
