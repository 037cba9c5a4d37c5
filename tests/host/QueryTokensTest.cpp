#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/query/Adaptation.h"
#include "host/query/Tokens.h"

namespace zantest {

using testing::ElementsAre;
using zanhost::Tokenize;
using zanhost::TTokenKind;

namespace {

std::vector<std::string> Texts(std::string_view statement) {
  std::vector<std::string> texts;
  for (const zanhost::TToken& token : Tokenize(statement)) texts.emplace_back(token.Text);
  return texts;
}

TTokenKind KindOf(std::string_view statement) { return Tokenize(statement).at(0).Kind; }

std::vector<std::string> Split(std::string_view text) {
  std::vector<std::string> texts;
  for (const zanhost::TTokens& tokens : zanhost::SplitStatements(text).Statements)
    texts.push_back(zanhost::TokensToText(tokens));
  return texts;
}

}  // namespace

TEST(QueryTokens, KnowEachKind) {
  EXPECT_EQ(KindOf("select"), TTokenKind::Word);
  EXPECT_EQ(KindOf("域_1"), TTokenKind::Word);
  EXPECT_EQ(KindOf("'text'"), TTokenKind::Text);
  EXPECT_EQ(KindOf("N'text'"), TTokenKind::NationalText);
  EXPECT_EQ(KindOf("[Type]"), TTokenKind::QuotedName);
  EXPECT_EQ(KindOf("\"Type\""), TTokenKind::QuotedName);
  EXPECT_EQ(KindOf("`Type`"), TTokenKind::QuotedName);
  EXPECT_EQ(KindOf(":Name"), TTokenKind::Parameter);
  EXPECT_EQ(KindOf("1.5e-3"), TTokenKind::Number);
  EXPECT_EQ(KindOf(".5"), TTokenKind::Number);
  EXPECT_EQ(KindOf("<>"), TTokenKind::Operator);
}

TEST(QueryTokens, ADoubledQuoteStaysInTheLiteral) {
  EXPECT_THAT(Texts("select 'it''s', ''''"), ElementsAre("select", "'it''s'", ",", "''''"));
  EXPECT_EQ(zanhost::LiteralContent(Tokenize("'it''s'")[0]), "it's");
  EXPECT_EQ(zanhost::LiteralContent(Tokenize("N'a'")[0]), "a");
}

TEST(QueryTokens, ABackslashIsAnOrdinaryCharacter) {
  EXPECT_THAT(Texts("'\\' + '\\\\'"), ElementsAre("'\\'", "+", "'\\\\'"));
}

TEST(QueryTokens, CommentsAndQuotesHideEachOther) {
  EXPECT_THAT(Texts("a -- it's\n b /* 'c */ '--d' '/*' e"), ElementsAre("a", "b", "'--d'", "'/*'", "e"));
}

TEST(QueryTokens, DotsBetweenNamesAreNoNumbers) {
  EXPECT_THAT(Texts("db..t a.1b"), ElementsAre("db", ".", ".", "t", "a", ".", "1b"));
  EXPECT_THAT(Texts("1.5 .5"), ElementsAre("1.5", ".5"));
}

TEST(QueryTokens, PairsOfSignsStayTogether) {
  EXPECT_THAT(Texts("a<>b||c<=d"), ElementsAre("a", "<>", "b", "||", "c", "<=", "d"));
}

TEST(QueryTokens, TheTextIsWhatItWas) {
  const std::string_view statement = "  select a,\r\n\tN'b' /* c */ from [d] where e=:f -- g\r\n and h<=.5";
  EXPECT_EQ(zanhost::TokensToText(Tokenize(statement)), statement);
}

TEST(QueryTokens, WhatHasNoEndReachesToTheEnd) {
  for (const std::string_view statement :
       {"select 'a", "select [a", "select \"a", "select 'a''", "select N'"})
    EXPECT_EQ(zanhost::TokensToText(Tokenize(statement)), statement);
  EXPECT_THAT(Texts("select /* a"), ElementsAre("select"));
  bool terminated = true;
  zanhost::LiteralContent(Tokenize("'a''")[0], &terminated);
  EXPECT_FALSE(terminated);
}

TEST(QueryTokens, ASingleStatementIsNoBatch) {
  EXPECT_FALSE(zanhost::SplitStatements("select 'a;b' from c;").IsBatch);
  EXPECT_THAT(Split("select 'a;b' from c;"), ElementsAre("select 'a;b' from c"));
  EXPECT_TRUE(Split(" ;; ").empty());
}

TEST(QueryTokens, ABatchIsSplitAtItsSemicolons) {
  EXPECT_THAT(Split("begin\r\nupdate a set b='x;y';\r\ndelete from c;\r\nend;"),
              ElementsAre("\r\nupdate a set b='x;y'", "\r\ndelete from c"));
  EXPECT_TRUE(zanhost::SplitStatements("BEGIN delete from a; END;").IsBatch);
  EXPECT_TRUE(zanhost::SplitStatements("delete from a;\r\ndelete from b").IsBatch);
}

TEST(QueryTokens, TheEndOfACaseEndsNoBatch) {
  EXPECT_THAT(Split("begin update a set b = case c when 1 then 2 else 3 end; update a set d = case e when 1 "
                    "then 2 end; "
                    "end;"),
              ElementsAre(" update a set b = case c when 1 then 2 else 3 end",
                          " update a set d = case e when 1 then 2 end"));
}

}  // namespace zantest
