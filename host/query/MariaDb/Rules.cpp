#include "host/query/MariaDb/Rules.h"

#include <array>

#include "host/query/SharedRules.h"

namespace zanhost {

namespace {

/// "nvarchar(" or "varchar(" behind the "as" of a cast becomes "char(".
bool CastTypeToChar(TTokens& tokens) {
  bool changed = false;
  for (std::size_t at = 0; at + 1 < tokens.size(); ++at) {
    if (!tokens[at].IsWord("cast") || !tokens[at + 1].IsOperator("(")) continue;
    const std::size_t close = ClosingBracket(tokens, at + 1);
    const std::size_t as = FindOuterWord(tokens, "as", at + 2, close);
    if (as + 1 >= close) continue;
    TToken& type = tokens[as + 1];
    if (!type.IsWord("varchar") && !type.IsWord("nvarchar")) continue;
    type.Text = "char";
    changed = true;
  }
  return changed;
}

/// "str(x)" and "str(x, n)": the number as a text of ten, or n, characters, blanks in front.
bool StrToPaddedText(TTokens& tokens) {
  static constexpr std::string_view kDefaultLength = "10";
  for (std::size_t at = 0; at + 1 < tokens.size(); ++at) {
    if (!tokens[at].IsWord("str") || !tokens[at + 1].IsOperator("(")) continue;
    const std::size_t close = ClosingBracket(tokens, at + 1);
    if (close == tokens.size()) continue;
    int depth = 0;
    bool hasLength = false;
    for (std::size_t i = at + 1; i < close; ++i) {
      if (tokens[i].IsOperator("(")) ++depth;
      if (tokens[i].IsOperator(")")) --depth;
      hasLength = hasLength || (depth == 1 && tokens[i].IsOperator(","));
    }
    if (hasLength) continue;
    const std::array<TToken, 2> length{TToken{TTokenKind::Operator, "", ","},
                                       TToken{TTokenKind::Number, " ", kDefaultLength}};
    tokens.insert(tokens.begin() + static_cast<std::ptrdiff_t>(close), length.begin(), length.end());
  }
  return RenameCalls(tokens, "str", "lpad");
}

bool CallsFunction(const TTokens& tokens, std::string_view name) {
  for (std::size_t at = 0; at + 1 < tokens.size(); ++at)
    if (tokens[at].IsWord(name) && tokens[at + 1].IsOperator("(")) return true;
  return false;
}

/// The literals of the role rename that are written for a server on which a backslash escapes the next one.
constexpr std::array<std::array<std::string_view, 2>, 2> kEscapedBackslashes{
    {{R"('\\')", R"('\')"}, {R"('\\\\')", R"('\\')"}}};

bool IsRoleRename(const TTokens& tokens) {
  return tokens.size() > 1 && tokens[0].IsWord("update") && tokens[1].IsWord("STUsers") &&
         CallsFunction(tokens, "concat");
}

bool HalveBackslashesOfRoleRename(TTokens& tokens) {
  if (!IsRoleRename(tokens)) return false;
  bool changed = false;
  for (TToken& token : tokens) {
    for (const auto& [escaped, meant] : kEscapedBackslashes) {
      if (token.Kind != TTokenKind::Text || token.Text != escaped) continue;
      token.Text = meant;
      changed = true;
      break;
    }
  }
  return changed;
}

constexpr std::array kRules{
    TAdaptationRule{"national-text", "N'text' is a text of characters of at most three bytes",
                    NationalTextToText},
    TAdaptationRule{
        "recursive-with",
        "a common table expression that names itself is an unknown table without the word recursive",
        WithToWithRecursive},
    TAdaptationRule{"recursive-row-number",
                    "a window function inside a recursion is an error; its order key sorts the same",
                    RowNumberOfRecursionToKey},
    TAdaptationRule{"str", "there is no function str", StrToPaddedText, TLiteralEffect::Adds},
    TAdaptationRule{"cast-type", "a cast to varchar or nvarchar is a syntax error", CastTypeToChar},
    TAdaptationRule{"text-plus",
                    "+ of texts adds numbers and gives 0; beside a number literal it is meant as arithmetic",
                    PlusOfTextsToConcatenation},
    TAdaptationRule{"escaped-backslashes",
                    "the rename of roles with concat doubles its backslashes, which then all reach the name",
                    HalveBackslashesOfRoleRename, TLiteralEffect::Changes},
};

}  // namespace

std::span<const TAdaptationRule> MariaDbRules() { return kRules; }

bool RulesReadLiterals(const TTokens& statement) { return IsRoleRename(statement); }

}  // namespace zanhost
