#include "host/query/MariaDb/Fault.h"
#include "host/query/MariaDb/Rules.h"

namespace zanhost {

namespace {

constexpr std::string_view kMultiSql = "MySql_execute_MultiSql";

bool IsText(const TToken& token) {
  return token.Kind == TTokenKind::Text || token.Kind == TTokenKind::NationalText;
}

bool BeginsWithCall(std::string_view statement) {
  TToken token;
  return TTokenScanner(statement).Next(token) && token.IsWord("call");
}

/// "call MySql_execute_MultiSql( … )" and nothing behind it.
bool IsMultiSqlCall(const TTokens& tokens) {
  return tokens.size() >= 4 && tokens[0].IsWord("call") && tokens[1].IsWord(kMultiSql) &&
         tokens[2].IsOperator("(") && ClosingBracket(tokens, 2) == tokens.size() - 1;
}

/// What stands between the brackets, a quoted text without its quotes.
std::string ArgumentOf(const TTokens& tokens) {
  if (tokens.size() == 5 && IsText(tokens[3])) return LiteralContent(tokens[3]);
  if (HasParameters(tokens))
    throw TMariaDbFault{"A call of MySql_execute_MultiSql takes no parameters.", "parameters in a call"};
  return TokensToText({tokens.begin() + 3, tokens.end() - 1});
}

}  // namespace

std::optional<std::string> StatementsOfCall(std::string_view statement) {
  if (!BeginsWithCall(statement)) return std::nullopt;
  const TTokens tokens = Tokenize(statement);
  if (!IsMultiSqlCall(tokens)) return std::nullopt;
  return ArgumentOf(tokens);
}

}  // namespace zanhost
