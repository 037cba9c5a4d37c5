#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zanhost {

enum class TTokenKind {
  Word,          ///< a name or keyword without quotes
  QuotedName,    ///< [name], "name" or `name`
  Text,          ///< 'text', quotes inside doubled
  NationalText,  ///< N'text'
  Number,        ///< also one that a letter follows at once ("5and"): no engine takes it
  Parameter,     ///< :Name
  Operator,      ///< everything else: punctuation, one sign or a pair such as <= and ||
};

/// One token of a statement. The views point into the statement, or at constants that a rule put there.
struct TToken {
  TTokenKind Kind = TTokenKind::Operator;
  std::string_view Before;  ///< blanks and comments in front
  std::string_view Text;    ///< the token as written

  /// A word without quotes, compared without regard to case.
  bool IsWord(std::string_view word) const;
  bool IsOperator(std::string_view sign) const { return Kind == TTokenKind::Operator && Text == sign; }
  /// A table, column or alias, quoted or not.
  bool IsName() const { return Kind == TTokenKind::Word || Kind == TTokenKind::QuotedName; }
  /// A name without its quotes. REQUIRES: IsName().
  std::string_view Name() const;
};

using TTokens = std::vector<TToken>;

/// Reads a text token by token. Never fails: what has no end (a quote, a comment) reaches to the end of the
/// text. The tokens live no longer than the text.
class TTokenScanner {
 public:
  explicit TTokenScanner(std::string_view text) : FAt(text.data()), FEnd(text.data() + text.size()) {}
  /// False when only blanks and comments are left; the token is then not touched.
  bool Next(TToken& token);

 private:
  char Peek(std::ptrdiff_t ahead = 0) const { return FEnd - FAt > ahead ? FAt[ahead] : '\0'; }
  void SkipBehind(std::string_view end, const char* from);
  void SkipBlanksAndComments();
  void TakeQuoted(char close);
  void TakeWhile(unsigned char classes);
  void TakeNumber();
  void TakeOperator();
  TTokenKind TakeToken();

  const char* FAt;
  const char* FEnd;
  /// The token before was a name or a dot, behind which a dot begins no number.
  bool FBehindName = false;
};

/// The tokens of a statement; blanks and comments behind the last one are left out.
TTokens Tokenize(std::string_view statement);

/// The text that the tokens make.
std::string TokensToText(const TTokens& tokens);

/// Is a text or a quoted name at the end without its closing quote?
bool EndsInsideQuotes(const TTokens& tokens);

/// Does a named parameter stand in it?
bool HasParameters(const TTokens& tokens);

/// Position of the bracket that closes the one at `open`; tokens.size() when nothing closes it.
/// REQUIRES: tokens[open] is "(".
std::size_t ClosingBracket(const TTokens& tokens, std::size_t open);

/// Position of the first word `word` outside brackets in [from, to); `to` when there is none.
std::size_t FindOuterWord(const TTokens& tokens, std::string_view word, std::size_t from, std::size_t to);

/// The content of a text literal of either kind, doubled quotes single again.
/// REQUIRES: the token is a text; false `terminated` when its closing quote is missing.
std::string LiteralContent(const TToken& token, bool* terminated = nullptr);

}  // namespace zanhost
