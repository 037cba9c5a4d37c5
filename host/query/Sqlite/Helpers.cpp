#include "host/query/Sqlite/Helpers.h"

#include "host/query/Tokens.h"

namespace zanhost {

std::string TSqliteObjectHelper::QuoteName(std::string_view name) { return "[" + std::string(name) + "]"; }

std::string TSqliteFunctionsHelper::ConditionalStatement(std::string_view condition,
                                                         std::string_view statement) {
  const TTokens tokens = Tokenize(statement);
  const std::size_t values = FindOuterWord(tokens, "values", 0, tokens.size());
  const std::size_t open = values + 1;
  const bool isInsert = !tokens.empty() && tokens[0].IsWord("insert") && open < tokens.size() &&
                        tokens[open].IsOperator("(") && ClosingBracket(tokens, open) < tokens.size();
  if (!isInsert)
    throw zanrole::EDatabaseError("Only an insert of values can be made conditional.",
                                  std::string(statement));
  const auto at = [&](std::size_t index) { return tokens.begin() + static_cast<std::ptrdiff_t>(index); };
  const TTokens head(tokens.begin(), at(values));
  const TTokens list(at(open + 1), at(ClosingBracket(tokens, open)));
  return TokensToText(head) + " select " + TokensToText(list) + " where " + std::string(condition) + ";";
}

std::string TSqliteSelectHelper::Build(const zanrole::TZANSelectSQLEntity& entity) {
  std::string text = "select " + entity.Fields + " from " + entity.Table;
  if (!entity.Where.empty()) text += " where " + entity.Where;
  if (!entity.OrderBy.empty()) text += " order by " + entity.OrderBy;
  return text + " limit 1";
}

}  // namespace zanhost
