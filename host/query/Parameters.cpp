#include "host/query/Parameters.h"

namespace zanhost {

std::vector<std::string> TakeParameters(TTokens& tokens) {
  std::vector<std::string> names;
  for (TToken& token : tokens) {
    if (token.Kind != TTokenKind::Parameter) continue;
    names.emplace_back(token.Text.substr(1));
    token.Text = "?";
  }
  return names;
}

bool ListsAllColumns(const TTokens& tokens) {
  for (std::size_t at = 1; at < tokens.size(); ++at) {
    const TToken& previous = tokens[at - 1];
    const bool beginsColumn = previous.IsWord("select") || previous.IsWord("distinct") ||
                              previous.IsOperator(",") || previous.IsOperator(".");
    if (tokens[at].IsOperator("*") && beginsColumn) return true;
  }
  return false;
}

}  // namespace zanhost
