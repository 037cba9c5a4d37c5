#include "host/query/SharedRules.h"

#include <array>

namespace zanhost {

namespace {

/// Does one expression, sorted upwards, fill the rest of the brackets that `key` stands in?
bool IsOneAscendingKey(const TTokens& tokens, std::size_t key) {
  int depth = 0;
  for (std::size_t at = key; at < tokens.size(); ++at) {
    if (tokens[at].IsOperator("(")) ++depth;
    if (tokens[at].IsOperator(")") && --depth < 0) return at > key;
    if (depth > 0) continue;
    for (const std::string_view word : {"asc", "desc", "nulls", "rows", "range", "groups", "collate"})
      if (tokens[at].IsWord(word)) return false;
    if (tokens[at].IsOperator(",")) return false;
  }
  return false;
}

/// Position of E in "ROW_NUMBER() over(order by E)" when that begins at `at`; 0 otherwise.
std::size_t RowNumberKey(const TTokens& tokens, std::size_t at) {
  static constexpr std::array<std::string_view, 7> kShape{"row_number", "(", ")", "over", "(", "order", "by"};
  if (at + kShape.size() >= tokens.size()) return 0;
  for (std::size_t i = 0; i < kShape.size(); ++i) {
    const TToken& token = tokens[at + i];
    if (!token.IsWord(kShape[i]) && !token.IsOperator(kShape[i])) return 0;
  }
  return IsOneAscendingKey(tokens, at + kShape.size()) ? at + kShape.size() : 0;
}

bool EndsOperand(const TToken& token) { return token.Kind != TTokenKind::Operator || token.IsOperator(")"); }
bool BeginsOperand(const TToken& token) {
  return token.Kind != TTokenKind::Operator || token.IsOperator("(");
}

}  // namespace

bool RenameCalls(TTokens& tokens, std::string_view from, std::string_view to) {
  bool changed = false;
  for (std::size_t at = 0; at + 1 < tokens.size(); ++at) {
    if (!tokens[at].IsWord(from) || !tokens[at + 1].IsOperator("(")) continue;
    tokens[at].Text = to;
    changed = true;
  }
  return changed;
}

bool NationalTextToText(TTokens& tokens) {
  bool changed = false;
  for (TToken& token : tokens) {
    if (token.Kind != TTokenKind::NationalText) continue;
    token.Kind = TTokenKind::Text;
    token.Text.remove_prefix(1);
    // 'a'N'b' must not become one text.
    if (token.Before.empty()) token.Before = " ";
    changed = true;
  }
  return changed;
}

bool WithToWithRecursive(TTokens& tokens) {
  bool changed = false;
  for (std::size_t at = 0; at + 1 < tokens.size(); ++at) {
    if (!tokens[at].IsWord("with") || tokens[at + 1].IsWord("recursive")) continue;
    const bool beginsStatement = at == 0 || tokens[at - 1].IsOperator(";") ||
                                 tokens[at - 1].IsWord("begin") || tokens[at - 1].IsWord("then");
    if (!beginsStatement) continue;
    tokens[at].Text = "with recursive";
    changed = true;
  }
  return changed;
}

bool PlusOfTextsToConcatenation(TTokens& tokens) {
  bool changed = false;
  for (std::size_t at = 1; at + 1 < tokens.size(); ++at) {
    if (!tokens[at].IsOperator("+")) continue;
    const TToken& left = tokens[at - 1];
    const TToken& right = tokens[at + 1];
    if (!EndsOperand(left) || !BeginsOperand(right)) continue;
    if (left.Kind == TTokenKind::Number || right.Kind == TTokenKind::Number) continue;
    tokens[at].Text = "||";
    changed = true;
  }
  return changed;
}

bool RowNumberOfRecursionToKey(TTokens& tokens) {
  if (tokens.empty() || !tokens.front().IsWord("with")) return false;
  bool changed = false;
  int depth = 0;
  for (std::size_t at = 0; at < tokens.size(); ++at) {
    if (tokens[at].IsOperator("(")) ++depth;
    if (tokens[at].IsOperator(")")) --depth;
    const std::size_t key = depth > 0 ? RowNumberKey(tokens, at) : 0;
    if (key == 0) continue;
    // What stays is the key in the brackets of the window.
    const auto first = tokens.begin() + static_cast<std::ptrdiff_t>(at);
    const auto open = tokens.begin() + static_cast<std::ptrdiff_t>(key) - 3;
    const std::string_view before = first->Before;
    tokens.erase(open + 1, open + 3);
    tokens.erase(first, open);
    tokens[at].Before = before;
    ++depth;
    changed = true;
  }
  return changed;
}

}  // namespace zanhost
