#include <gtest/gtest.h>

#include "host/query/MariaDb/Rules.h"
#include "host/query/Sqlite/Rules.h"
#include "tests/corpus/Corpus.h"
#include "tests/fuzz/StatementProperties.h"

// Values stand in the module's statements as literals: no rule may change one unless it is there for that.

namespace zantest {

using namespace zanhost;

namespace {

bool ChangeWord(TTokens& tokens) {
  for (TToken& token : tokens) {
    if (token.Kind != TTokenKind::Text) continue;
    token.Text = "'other'";
    return true;
  }
  return false;
}

std::vector<std::string> NamesOf(std::span<const TAdaptationRule> rules, TLiteralEffect effect) {
  std::vector<std::string> names;
  for (const TAdaptationRule& rule : rules)
    if (rule.Literals == effect) names.emplace_back(rule.Name);
  return names;
}

}  // namespace

TEST(LiteralRules, NoneOfTheCorpusIsChangedByAnotherRule) {
  for (const TCorpusStatement& statement : Corpus()) {
    const std::string text = WithoutMultiSqlCall(statement.Text);
    EXPECT_EQ(BrokenLiterals(text, SqliteRules()), "") << statement.Test << "\n" << text;
    EXPECT_EQ(BrokenLiterals(text, MariaDbRules()), "") << statement.Test << "\n" << text;
    EXPECT_EQ(BrokenLiterals(text, OracleModeRules()), "") << statement.Test << "\n" << text;
    EXPECT_EQ(BrokenProperty(statement.Text), "") << statement.Test << "\n" << statement.Text;
  }
}

TEST(LiteralRules, AreTheseAndNoOthers) {
  EXPECT_EQ(NamesOf(MariaDbRules(), TLiteralEffect::Changes),
            (std::vector<std::string>{"escaped-backslashes"}));
  EXPECT_EQ(NamesOf(SqliteRules(), TLiteralEffect::Changes), (std::vector<std::string>()));
  EXPECT_EQ(NamesOf(OracleModeRules(), TLiteralEffect::Changes), (std::vector<std::string>()));
  EXPECT_EQ(NamesOf(MariaDbRules(), TLiteralEffect::Adds), (std::vector<std::string>{"str"}));
  EXPECT_EQ(NamesOf(SqliteRules(), TLiteralEffect::Adds), (std::vector<std::string>{"routine"}));
}

TEST(LiteralRules, ARuleThatDoesMoreThanItSaysIsFound) {
  const std::string text = "select 'a', 1";
  const TAdaptationRule silent{"silent", "", ChangeWord};
  const TAdaptationRule adding{"adding", "", ChangeWord, TLiteralEffect::Adds};
  const TAdaptationRule changing{"changing", "", ChangeWord, TLiteralEffect::Changes};
  EXPECT_EQ(BrokenLiterals(text, {&silent, 1}), "the rule silent changed a literal");
  EXPECT_EQ(BrokenLiterals(text, {&adding, 1}), "the rule adding changed a literal");
  EXPECT_EQ(BrokenLiterals(text, {&changing, 1}), "");
}

}  // namespace zantest
