#include <gtest/gtest.h>

#include <algorithm>

#include "Frame/Host/Zandbs.h"
#include "host/query/Sqlite/Rules.h"
#include "tests/support/RecordingHost.h"

namespace zantest {

namespace {

/// What the rule of this name makes of a statement; "(unchanged)" when it does nothing.
std::string Apply(std::string_view rule, std::string_view statement) {
  const auto rules = zanhost::SqliteRules();
  const auto found = std::find_if(rules.begin(), rules.end(), [&](const auto& r) { return r.Name == rule; });
  if (found == rules.end()) return "no such rule";
  zanhost::TTokens tokens = zanhost::Tokenize(statement);
  return found->Apply(tokens) ? Squeeze(zanhost::TokensToText(tokens)) : "(unchanged)";
}

/// What all rules together make of it.
std::string Adapted(std::string_view statement) {
  zanhost::TTokens tokens = zanhost::Tokenize(statement);
  zanhost::Adapt(tokens, zanhost::SqliteRules());
  return Squeeze(zanhost::TokensToText(tokens));
}

}  // namespace

TEST(SqliteRules, EachHasANameAndAReason) {
  for (const zanhost::TAdaptationRule& rule : zanhost::SqliteRules()) {
    EXPECT_FALSE(rule.Name.empty());
    EXPECT_FALSE(rule.Reason.empty()) << rule.Name;
  }
}

TEST(SqliteRules, NoneTouchesLiteralsNamesAndComments) {
  for (const std::string statement : {"select 'IsNull(a,b) left(c,1) N''x'' d + e db..t' from T",
                                      "select [left(a)], \"IsNull(b)\", `a..b` from T",
                                      "select a /* b + c, db..t, left(x) */ from T -- isnull(",
                                      "select 'begin delete from a; end;' from T"}) {
    EXPECT_EQ(Adapted(statement), Squeeze(zanhost::TokensToText(zanhost::Tokenize(statement))));
  }
}

TEST(SqliteRules, Isnull) {
  EXPECT_EQ(Apply("isnull", "select IsNull(a, ISNULL(b, 0)), isnull (c, 1) from T"),
            "select ifnull(a, ifnull(b, 0)), ifnull (c, 1) from T");
  EXPECT_EQ(Apply("isnull", "select isnull from T where a is null"), "(unchanged)");
}

TEST(SqliteRules, Left) {
  EXPECT_EQ(Apply("left", "case left(UserID, 2) when '\\\\' then 1 end"),
            "case left_characters(UserID, 2) when '\\\\' then 1 end");
  EXPECT_EQ(Apply("left", "select 1 from a left outer join b on a.c = b.c left join d on 1=1"),
            "(unchanged)");
}

TEST(SqliteRules, NationalText) {
  EXPECT_EQ(Apply("national-text", "select N'域', n'b' from N"), "select '域', 'b' from N");
  EXPECT_EQ(Apply("national-text", "select 'a'N'b'"), "select 'a' 'b'");
}

TEST(SqliteRules, DatabasePrefix) {
  EXPECT_EQ(Apply("database-prefix",
                  "select * from VeshSysDBase.dbo.Tree t, [Data Base]..STUsers u where t.a = u.b"),
            "select * from main.Tree t, main.STUsers u where t.a = u.b");
  EXPECT_EQ(Apply("database-prefix", "select a.b, main.c.d from main.c a"), "(unchanged)");
}

TEST(SqliteRules, RecursiveRowNumber) {
  EXPECT_EQ(
      Apply("recursive-row-number",
            "with T as ( select str(ROW_NUMBER() over(order by a.PrecedID), 10) n from a ) select n from T"),
      "with T as ( select str(( a.PrecedID), 10) n from a ) select n from T");
  EXPECT_EQ(Apply("recursive-row-number", "select ROW_NUMBER() over(order by a) from T"), "(unchanged)");
  for (const std::string key : {"a desc", "a, b", "a collate binary"})
    EXPECT_EQ(Apply("recursive-row-number",
                    "with T as (select ROW_NUMBER() over(order by " + key + ") n from a) select n from T"),
              "(unchanged)");
  EXPECT_EQ(
      Apply("recursive-row-number", "with T as (select 1 n) select ROW_NUMBER() over(order by n) from T"),
      "(unchanged)");
}

TEST(SqliteRules, TextPlus) {
  EXPECT_EQ(Apply("text-plus", "select c.FullName + '\\' + case a when 1 then b else d end + e from T"),
            "select c.FullName || '\\' || case a when 1 then b else d end || e from T");
  EXPECT_EQ(Apply("text-plus", "select :Name + Title, (a) + (b) from T"),
            "select :Name || Title, (a) || (b) from T");
}

TEST(SqliteRules, TextPlusLeavesArithmetic) {
  EXPECT_EQ(Apply("text-plus", "select IsNull(max(ID),0)+1, 1 + a.NodeLevel, max(b) + 1 from T"),
            "(unchanged)");
  EXPECT_EQ(Apply("text-plus", "select a * +b, +c, (+d) from T"), "(unchanged)");
}

TEST(SqliteRules, UpdateFrom) {
  EXPECT_EQ(
      Apply("update-from",
            "update STUsers set UserName = c.FullName from STUsers a inner join STDomainMembers b on a.OID = "
            "b.UserOID inner join STDomains c on b.DomainID = c.ID where a.uGroup =1 or c.ID = 2"),
      "update STUsers as a set UserName = c.FullName from STDomainMembers b , STDomains c where ( a.OID = "
      "b.UserOID ) and ( b.DomainID = c.ID ) and ( a.uGroup =1 or c.ID = 2 )");
}

TEST(SqliteRules, UpdateFromASelectInBrackets) {
  EXPECT_EQ(Apply("update-from",
                  "update partyH\r\n set Sequence = b.Sequence\r\n from partyH a\r\n inner join (\r\n select "
                  "1 DjLsh, 2 "
                  "Sequence union all select 3, 4\r\n ) b on a.DjLsh = b.DjLsh"),
            "update partyH as a set Sequence = b.Sequence from ( select 1 DjLsh, 2 Sequence union all select "
            "3, 4 ) b "
            "where ( a.DjLsh = b.DjLsh )");
}

TEST(SqliteRules, UpdateFromBehindACommonTable) {
  EXPECT_EQ(
      Apply("update-from",
            "with cte(ID) as (select 1 from X where 1=1) update PartyH set F = cte.F from PartyH a inner "
            "join cte on "
            "a.ID = cte.ID where a.F <> cte.F"),
      "with cte(ID) as (select 1 from X where 1=1) update PartyH as a set F = cte.F from cte where ( a.ID = "
      "cte.ID ) and ( a.F <> cte.F )");
}

TEST(SqliteRules, UpdateFromByAliasByOwnNameAndAlone) {
  EXPECT_EQ(Apply("update-from", "update a set F = 1 from T as a, U b where a.x = b.x"),
            "update T as a set F = 1 from U b where ( a.x = b.x )");
  EXPECT_EQ(Apply("update-from", "update T set F = 1 from T inner join U on T.x = U.x"),
            "update T set F = 1 from U where ( T.x = U.x )");
  EXPECT_EQ(Apply("update-from", "update T set F = 1 from T a where a.x = 2"),
            "update T as a set F = 1 where ( a.x = 2 )");
}

TEST(SqliteRules, UpdateFromJoinsNoWords) {
  EXPECT_EQ(Apply("update-from", "update T set F = 1 from T a,U b where(a.x = b.x)"),
            "update T as a set F = 1 from U b where ( (a.x = b.x) )");
}

TEST(SqliteRules, UpdateFromLeavesOtherUpdates) {
  EXPECT_EQ(Apply("update-from",
                  "update T set a = (select b from T c where c.d = T.d) where e in (select f from T)"),
            "(unchanged)");
  EXPECT_EQ(Apply("update-from", "update T set a = b.a from B b where b.c = T.c"), "(unchanged)");
}

TEST(SqliteRules, UpdateFromRefusesAnOuterJoin) {
  EXPECT_THROW(Apply("update-from", "update T set a = b.a from T x left outer join B b on x.c = b.c"),
               zanrole::EDatabaseError);
}

TEST(SqliteRules, LongUnion) {
  const auto rows = [](int count) {
    std::string text = "insert into T(a, b)";
    for (int i = 0; i < count; ++i) text += (i > 0 ? " union all" : "") + std::string(" select 1, (2)");
    return text;
  };
  EXPECT_EQ(Apply("long-union", rows(500)), "(unchanged)");
  const std::string nested = Apply("long-union", rows(501));
  const auto occurrences = [&](const std::string& part) {
    int count = 0;
    for (std::size_t at = nested.find(part); at != std::string::npos; at = nested.find(part, at + 1)) ++count;
    return count;
  };
  EXPECT_EQ(occurrences("select * from ("), 3);
  EXPECT_EQ(occurrences("select 1, (2)"), 501);
  EXPECT_EQ(occurrences("union all select * from ("), 2);
}

TEST(SqliteRules, Routine) {
  const std::string statement = Apply("routine", "exec P_RefreshPartyParentPath");
  EXPECT_TRUE(statement.starts_with("with recursive Tree")) << statement;
  EXPECT_EQ(Apply("routine", "exec P_Other"), "(unchanged)");
}

TEST(SqliteRules, ThePrefixOfADatabaseIsJoinedAndMapped) {
  EXPECT_EQ(Adapted("select DB_NAME() + '.' DbName"), "select DB_NAME() || '.' DbName");
  EXPECT_EQ(Adapted("select * from main..STDomainPermission"), "select * from main.STDomainPermission");
}

}  // namespace zantest
