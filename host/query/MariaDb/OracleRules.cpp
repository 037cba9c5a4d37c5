#include <array>

#include "Frame/Host/Classes.h"
#include "host/query/MariaDb/Rules.h"
#include "host/query/SharedRules.h"

namespace zanhost {

namespace {

/// "NVarChar2" and "NClob" become "varchar2" and "clob". As a name of something they would stand alone.
bool NationalTypeToType(TTokens& tokens) {
  bool changed = false;
  for (std::size_t at = 0; at < tokens.size(); ++at) {
    const bool hasLength = at + 1 < tokens.size() && tokens[at + 1].IsOperator("(");
    const bool isText = tokens[at].IsWord("nvarchar2") && hasLength;
    const bool isLongText = tokens[at].IsWord("nclob") && at > 0 && tokens[at - 1].IsName();
    if (!isText && !isLongText) continue;
    tokens[at].Text = isText ? "varchar2" : "clob";
    changed = true;
  }
  return changed;
}

bool LoginUserToFunction(TTokens& tokens) {
  bool changed = false;
  for (std::size_t at = 0; at + 2 < tokens.size(); ++at) {
    const bool isLoginUser =
        tokens[at].IsWord("sys") && tokens[at + 1].IsOperator(".") && tokens[at + 2].IsWord("login_user");
    if (!isLoginUser) continue;
    tokens[at].Text = "ZanLoginUser()";
    const auto behind = tokens.begin() + static_cast<std::ptrdiff_t>(at) + 1;
    tokens.erase(behind, behind + 2);
    changed = true;
  }
  return changed;
}

/// Is there a second argument between the brackets of a call?
bool HasTwoArguments(const TTokens& tokens, std::size_t open) {
  const std::size_t close = ClosingBracket(tokens, open);
  int depth = 0;
  for (std::size_t at = open + 1; at < close; ++at) {
    if (tokens[at].IsOperator("(")) ++depth;
    if (tokens[at].IsOperator(")")) --depth;
    if (depth == 0 && tokens[at].IsOperator(",")) return true;
  }
  return false;
}

bool ToCharToFunction(TTokens& tokens) {
  bool changed = false;
  for (std::size_t at = 0; at + 1 < tokens.size(); ++at) {
    const bool isCall = tokens[at].IsWord("to_char") && tokens[at + 1].IsOperator("(");
    if (!isCall || !HasTwoArguments(tokens, at + 1)) continue;
    tokens[at].Text = "ZanToChar";
    changed = true;
  }
  return changed;
}

constexpr std::array kRules{
    TAdaptationRule{"national-text", "N'text' is a text of characters of at most three bytes",
                    NationalTextToText},
    TAdaptationRule{"national-type", "there are no types NVarChar2 and NClob; all texts are Unicode",
                    NationalTypeToType},
    TAdaptationRule{
        "recursive-with",
        "a common table expression that names itself is an unknown table without the word recursive",
        WithToWithRecursive},
    TAdaptationRule{"login-user", "sys.login_user is a column of an unknown table", LoginUserToFunction},
    TAdaptationRule{"to-char", "to_char takes no number", ToCharToFunction},
};

}  // namespace

std::span<const TAdaptationRule> OracleModeRules() { return kRules; }

std::string AdaptScriptForOracleMode(TTokens& tokens) {
  // begin ZanMake('…'); end;
  const bool isMake = tokens.size() > 4 && tokens[0].IsWord("begin") && tokens[1].IsWord("ZanMake") &&
                      tokens[2].IsOperator("(") && tokens[3].Kind == TTokenKind::Text;
  if (!isMake) {
    const bool isRoutine = tokens.size() > 3 && tokens[0].IsWord("create") && tokens[1].IsWord("or");
    if (!isRoutine) Adapt(tokens, OracleModeRules());
    return TokensToText(tokens);
  }
  const std::string inner = LiteralContent(tokens[3]);
  TTokens statement = Tokenize(inner);
  Adapt(statement, OracleModeRules());
  const std::string argument = zanrole::QuotedStr(TokensToText(statement));
  tokens[3].Text = argument;
  return TokensToText(tokens);
}

}  // namespace zanhost
