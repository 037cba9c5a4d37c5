#include "host/query/Odbc/Servers/Rules.h"

#include <algorithm>
#include <array>

namespace zanhost {

namespace {

bool HasWideCharacter(std::string_view text) {
  return std::ranges::any_of(text, [](char unit) { return static_cast<unsigned char>(unit) > 0x7F; });
}

/// 'text' becomes N'text' where it holds more than ASCII.
bool TextsToNationalTexts(TTokens& tokens) {
  constexpr TToken kNational{TTokenKind::Word, "", "N"};
  bool changed = false;
  for (std::size_t at = 0; at < tokens.size(); ++at) {
    if (tokens[at].Kind != TTokenKind::Text || !HasWideCharacter(tokens[at].Text)) continue;
    const auto place = tokens.insert(tokens.begin() + static_cast<std::ptrdiff_t>(at), kNational);
    place->Before = tokens[at + 1].Before;
    tokens[++at].Before = {};
    changed = true;
  }
  return changed;
}

/// "left(x, n)" becomes "substr(x, 1, n)".
bool LeftToSubstr(TTokens& tokens) {
  constexpr std::array kFromFirst{TToken{TTokenKind::Operator, "", ","},
                                  TToken{TTokenKind::Number, " ", "1"}};
  bool changed = false;
  for (std::size_t at = 0; at + 1 < tokens.size(); ++at) {
    if (!tokens[at].IsWord("left") || !tokens[at + 1].IsOperator("(")) continue;
    const std::size_t close = ClosingBracket(tokens, at + 1);
    std::size_t comma = close;
    int depth = 0;
    for (std::size_t i = at + 2; i < close; ++i) {
      if (tokens[i].IsOperator("(")) ++depth;
      if (tokens[i].IsOperator(")")) --depth;
      if (depth == 0 && tokens[i].IsOperator(",")) comma = i;
    }
    if (comma == close || close == tokens.size()) continue;
    tokens[at].Text = "substr";
    tokens.insert(tokens.begin() + static_cast<std::ptrdiff_t>(comma), kFromFirst.begin(), kFromFirst.end());
    changed = true;
  }
  return changed;
}

/// "sys.login_user" becomes the schema in use.
bool LoginUserToSchemaInUse(TTokens& tokens) {
  bool changed = false;
  for (std::size_t at = 0; at + 2 < tokens.size(); ++at) {
    if (!tokens[at].IsWord("sys") || !tokens[at + 1].IsOperator(".") || !tokens[at + 2].IsWord("login_user"))
      continue;
    tokens[at].Text = "sys_context('USERENV', 'CURRENT_SCHEMA')";
    const auto behind = tokens.begin() + static_cast<std::ptrdiff_t>(at);
    tokens.erase(behind + 1, behind + 3);
    changed = true;
  }
  return changed;
}

/// A line break is one sign between tokens, where no comment stands.
bool LineBreaksWithoutReturn(TTokens& tokens) {
  bool changed = false;
  for (TToken& token : tokens) {
    const bool hasReturn = token.Before.find('\r') != std::string_view::npos;
    if (!hasReturn || token.Before.find_first_not_of(" \t\r\n") != std::string_view::npos) continue;
    token.Before = "\n";
    changed = true;
  }
  return changed;
}

constexpr std::array kSqlServerRules{
    TAdaptationRule{
        "national-text",
        "a text without N passes through the code page of the database, which lacks most characters",
        TextsToNationalTexts},
};

constexpr std::array kOracleRules{
    TAdaptationRule{
        "login-user",
        "sys.login_user is whoever logged in, also while the schema of the other database is in use",
        LoginUserToSchemaInUse},
    TAdaptationRule{"left", "there is no function left", LeftToSubstr},
    TAdaptationRule{"carriage-return", "a block of older servers takes no carriage return",
                    LineBreaksWithoutReturn},
};

/// A block begins with "begin" or "declare"; the semicolon behind its "end" belongs to it.
bool IsBlock(const TTokens& tokens) {
  return !tokens.empty() && (tokens[0].IsWord("begin") || tokens[0].IsWord("declare"));
}

}  // namespace

std::span<const TAdaptationRule> SqlServerRules() { return kSqlServerRules; }
std::span<const TAdaptationRule> OracleRules() { return kOracleRules; }

std::string AdaptForSqlServer(TTokens& tokens) {
  Adapt(tokens, SqlServerRules());
  return TokensToText(tokens) + ";";
}

std::string AdaptForOracle(TTokens& tokens) {
  Adapt(tokens, OracleRules());
  while (!tokens.empty() && tokens.back().IsOperator(";")) tokens.pop_back();
  return TokensToText(tokens) + (IsBlock(tokens) ? ";" : "");
}

}  // namespace zanhost
