#include "host/query/Sqlite/Rules.h"

#include <array>
#include <string_view>

#include "Frame/Host/Classes.h"

namespace zanhost {

namespace {

/// Replaces the name of each call `from(` by `to`.
bool RenameCalls(TTokens& tokens, std::string_view from, std::string_view to) {
  bool changed = false;
  for (std::size_t at = 0; at + 1 < tokens.size(); ++at) {
    if (!tokens[at].IsWord(from) || !tokens[at + 1].IsOperator("(")) continue;
    tokens[at].Text = to;
    changed = true;
  }
  return changed;
}

bool IsNullToIfNull(TTokens& tokens) { return RenameCalls(tokens, "isnull", "ifnull"); }

bool LeftToRegisteredFunction(TTokens& tokens) { return RenameCalls(tokens, "left", "left_characters"); }

bool NationalTextToText(TTokens& tokens) {
  bool changed = false;
  for (TToken& token : tokens) {
    if (token.Kind != TTokenKind::NationalText) continue;
    token.Kind = TTokenKind::Text;
    token.Text.remove_prefix(1);
    changed = true;
  }
  return changed;
}

/// Number of tokens between database and table at `at`: two for "db..t", three for "db.dbo.t", otherwise
/// none.
std::size_t OwnerPathLength(const TTokens& tokens, std::size_t at) {
  const auto isName = [&](std::size_t i) { return i < tokens.size() && tokens[i].IsName(); };
  const auto isDot = [&](std::size_t i) { return i < tokens.size() && tokens[i].IsOperator("."); };
  if (!isName(at) || !isDot(at + 1)) return 0;
  if (isDot(at + 2) && isName(at + 3)) return 2;
  if (isName(at + 2) && zanrole::SameText(tokens[at + 2].Name(), "dbo") && isDot(at + 3) && isName(at + 4))
    return 3;
  return 0;
}

bool DatabasePrefixToMain(TTokens& tokens) {
  bool changed = false;
  for (std::size_t at = 0; at < tokens.size(); ++at) {
    const std::size_t length = OwnerPathLength(tokens, at);
    if (length == 0) continue;
    tokens[at].Kind = TTokenKind::Word;
    tokens[at].Text = "main";
    const auto behindFirstDot = tokens.begin() + static_cast<std::ptrdiff_t>(at) + 2;
    tokens.erase(behindFirstDot, behindFirstDot + static_cast<std::ptrdiff_t>(length) - 1);
    changed = true;
  }
  return changed;
}

/// Position of E in "ROW_NUMBER() over(order by E)" when that begins at `at`; 0 otherwise.
std::size_t RowNumberKey(const TTokens& tokens, std::size_t at) {
  static constexpr std::array<std::string_view, 7> kShape{"row_number", "(", ")", "over", "(", "order", "by"};
  if (at + kShape.size() >= tokens.size()) return 0;
  for (std::size_t i = 0; i < kShape.size(); ++i) {
    const TToken& token = tokens[at + i];
    if (!token.IsWord(kShape[i]) && !token.IsOperator(kShape[i])) return 0;
  }
  return at + kShape.size();
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

bool EndsOperand(const TToken& token) { return token.Kind != TTokenKind::Operator || token.IsOperator(")"); }
bool BeginsOperand(const TToken& token) {
  return token.Kind != TTokenKind::Operator || token.IsOperator("(");
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

constexpr std::array kRules{
    TAdaptationRule{"routine", "SQLite has no stored procedures: exec is a syntax error",
                    RunRoutineAsStatement},
    TAdaptationRule{"national-text", "N'text' is a syntax error; all texts are Unicode", NationalTextToText},
    TAdaptationRule{"isnull", "IsNull( is a syntax error, also when a function of that name is registered",
                    IsNullToIfNull},
    TAdaptationRule{"left", "left( is a syntax error, also when a function of that name is registered",
                    LeftToRegisteredFunction},
    TAdaptationRule{"database-prefix",
                    "db..t and db.dbo.t are syntax errors; one file, known as main, is both databases",
                    DatabasePrefixToMain},
    TAdaptationRule{"recursive-row-number",
                    "a window function inside a recursion is an error; its order key sorts the same",
                    RowNumberOfRecursionToKey},
    TAdaptationRule{"update-from", "update T … from T a joins a second T and changes every row of the first",
                    RewriteUpdateFrom},
    TAdaptationRule{"text-plus",
                    "+ of texts adds numbers and gives 0; beside a number literal it is meant as arithmetic",
                    PlusOfTextsToConcatenation},
    TAdaptationRule{"long-union", "a compound select may have 500 terms", NestLongUnion},
};

}  // namespace

std::span<const TAdaptationRule> SqliteRules() { return kRules; }

}  // namespace zanhost
