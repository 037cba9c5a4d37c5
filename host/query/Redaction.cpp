#include "host/query/Redaction.h"

#include <algorithm>

#include "Frame/Host/Classes.h"
#include "host/query/Tokens.h"

namespace zanhost {

namespace {

constexpr std::string_view kHiddenStatement = "*** (a statement about passwords whose quotes do not match)";

bool NamesPassword(std::string_view text) {
  return zanrole::LowerCase(text).find("password") != std::string::npos;
}

bool IsText(const TToken& token) {
  return token.Kind == TTokenKind::Text || token.Kind == TTokenKind::NationalText;
}

/// Some servers take "…" as a text, too.
bool MayBeText(const TToken& token) { return IsText(token) || token.Text.starts_with('"'); }

/// A literal that ends where another token begins at once ('a'b): its quotes are not where its writer meant
/// them.
bool QuotesMatch(const TTokens& tokens) {
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (!IsText(tokens[i])) continue;
    bool terminated = false;
    LiteralContent(tokens[i], &terminated);
    if (!terminated) return false;
    if (i + 1 < tokens.size() && tokens[i + 1].Before.empty() && tokens[i + 1].Kind != TTokenKind::Operator)
      return false;
  }
  return true;
}

/// "call ROUTINE('…')": the position of the quoted text that may hold statements; tokens.size() otherwise.
std::size_t QuotedStatements(const TTokens& tokens) {
  const bool call = tokens.size() > 3 && (tokens[0].IsWord("call") || tokens[0].IsWord("exec")) &&
                    tokens[2].IsOperator("(") && IsText(tokens[3]);
  const bool holdsStatements = call && LiteralContent(tokens[3]).find(' ') != std::string::npos;
  return holdsStatements ? 3 : tokens.size();
}

/// "… Password = 123": a number that is the value of a password column.
bool IsPasswordNumber(const TTokens& tokens, std::size_t at) {
  return tokens[at].Kind == TTokenKind::Number && at >= 2 && tokens[at - 1].IsOperator("=") &&
         NamesPassword(tokens[at - 2].Text);
}

}  // namespace

bool TouchesPasswords(std::string_view statement) { return NamesPassword(statement); }

std::string RedactStatement(std::string_view statement) {
  if (!TouchesPasswords(statement)) return std::string(statement);
  const TTokens tokens = Tokenize(statement);
  if (!QuotesMatch(tokens)) return std::string(kHiddenStatement);
  const std::size_t quotedStatements = QuotedStatements(tokens);
  std::string redacted;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    redacted += tokens[i].Before;
    if (i == quotedStatements) {
      redacted += zanrole::QuotedStr(RedactStatement(LiteralContent(tokens[i])));
    } else if (MayBeText(tokens[i])) {
      redacted.append("'").append(kHidden).append("'");
    } else if (IsPasswordNumber(tokens, i)) {
      redacted += kHidden;
    } else {
      redacted += tokens[i].Text;
    }
  }
  return redacted;
}

}  // namespace zanhost
