#include "host/query/Tokens.h"

#include <algorithm>
#include <array>

#include "Frame/Host/Classes.h"

namespace zanhost {

namespace {

// What a character may be; one can be several.
constexpr unsigned char kBlank = 1;
constexpr unsigned char kDigit = 2;
constexpr unsigned char kWordStart = 4;
constexpr unsigned char kWord = 8;
constexpr unsigned char kDot = 16;

constexpr unsigned char ClassesOf(unsigned char c) {
  if (c == ' ' || (c >= '\t' && c <= '\r')) return kBlank;
  if (c >= '0' && c <= '9') return kDigit | kWord;
  if (c == '$') return kWord;
  if (c == '.') return kDot;
  const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c >= 0x80;
  return letter || c == '_' || c == '#' || c == '@' ? kWordStart | kWord : 0;
}

constexpr std::array<unsigned char, 256> kClasses = [] {
  std::array<unsigned char, 256> classes{};
  for (std::size_t c = 0; c < classes.size(); ++c) classes[c] = ClassesOf(static_cast<unsigned char>(c));
  return classes;
}();

bool Is(char c, unsigned char classes) { return (kClasses[static_cast<unsigned char>(c)] & classes) != 0; }

}  // namespace

bool TTokenScanner::Next(TToken& token) {
  const char* const start = FAt;
  SkipBlanksAndComments();
  if (FAt == FEnd) return false;
  const char* const begin = FAt;
  token.Kind = TakeToken();
  token.Before = {start, begin};
  token.Text = {begin, FAt};
  FBehindName = token.IsName() || (token.Kind == TTokenKind::Operator && *begin == '.');
  return true;
}

void TTokenScanner::SkipBehind(std::string_view end, const char* from) {
  const char* const found = std::search(from, FEnd, end.begin(), end.end());
  FAt = found == FEnd ? FEnd : found + end.size();
}

void TTokenScanner::SkipBlanksAndComments() {
  for (;;) {
    TakeWhile(kBlank);
    if (Peek() == '-' && Peek(1) == '-') {
      SkipBehind("\n", FAt + 2);
    } else if (Peek() == '/' && Peek(1) == '*') {
      SkipBehind("*/", FAt + 2);
    } else {
      return;
    }
  }
}

/// Takes a quoted piece whose closing sign stands for itself when doubled.
void TTokenScanner::TakeQuoted(char close) {
  ++FAt;
  while (FAt != FEnd) {
    if (*FAt++ != close) continue;
    if (Peek() != close) return;
    ++FAt;
  }
}

void TTokenScanner::TakeWhile(unsigned char classes) {
  const char* at = FAt;
  while (at != FEnd && Is(*at, classes)) ++at;
  FAt = at;
}

TTokenKind TTokenScanner::TakeToken() {
  const char c = Peek();
  if (c == '\'') return TakeQuoted('\''), TTokenKind::Text;
  if ((c == 'N' || c == 'n') && Peek(1) == '\'') return ++FAt, TakeQuoted('\''), TTokenKind::NationalText;
  if (Is(c, kWordStart)) return TakeWhile(kWord), TTokenKind::Word;
  if (c == '"' || c == '`') return TakeQuoted(c), TTokenKind::QuotedName;
  if (c == '[') return TakeQuoted(']'), TTokenKind::QuotedName;
  if (c == ':' && Is(Peek(1), kWord)) return ++FAt, TakeWhile(kWord), TTokenKind::Parameter;
  if (Is(c, kDigit) || (c == '.' && Is(Peek(1), kDigit) && !FBehindName))
    return TakeNumber(), TTokenKind::Number;
  return TakeOperator(), TTokenKind::Operator;
}

void TTokenScanner::TakeNumber() {
  TakeWhile(kWord | kDot);
  const char last = FAt[-1];
  const bool exponent =
      (last == 'e' || last == 'E') && (Peek() == '+' || Peek() == '-') && Is(Peek(1), kDigit);
  if (!exponent) return;
  ++FAt;
  TakeWhile(kDigit);
}

void TTokenScanner::TakeOperator() {
  const char first = *FAt++;
  const char second = Peek();
  const bool isPair = second == '=' ? std::string_view("<>!=:").find(first) != std::string_view::npos
                                    : (first == '<' && second == '>') || (first == '|' && second == '|');
  if (isPair) ++FAt;
}

bool TToken::IsWord(std::string_view word) const {
  return Kind == TTokenKind::Word && zanrole::SameText(Text, word);
}

std::string_view TToken::Name() const {
  const bool quoted = Kind == TTokenKind::QuotedName && Text.size() >= 2;
  return quoted ? Text.substr(1, Text.size() - 2) : Text;
}

TTokens Tokenize(std::string_view statement) {
  TTokens tokens;
  tokens.reserve(statement.size() / 5 + 4);
  TTokenScanner scanner(statement);
  for (TToken token; scanner.Next(token);) tokens.push_back(token);
  return tokens;
}

std::string TokensToText(const TTokens& tokens) {
  std::size_t size = 0;
  for (const TToken& token : tokens) size += token.Before.size() + token.Text.size();
  std::string text;
  text.reserve(size);
  for (const TToken& token : tokens) text.append(token.Before).append(token.Text);
  return text;
}

bool EndsInsideQuotes(const TTokens& tokens) {
  if (tokens.empty()) return false;
  const TToken& last = tokens.back();
  if (last.Kind != TTokenKind::Text && last.Kind != TTokenKind::NationalText &&
      last.Kind != TTokenKind::QuotedName)
    return false;
  // Inside the quotes the closing sign stands doubled.
  const char opening = last.Text[last.Kind == TTokenKind::NationalText ? 1 : 0];
  const char close = opening == '[' ? ']' : opening;
  const auto signs = std::count(last.Text.begin(), last.Text.end(), close);
  return signs % 2 == (opening == '[' ? 0 : 1);
}

bool HasParameters(const TTokens& tokens) {
  return std::any_of(tokens.begin(), tokens.end(),
                     [](const TToken& token) { return token.Kind == TTokenKind::Parameter; });
}

std::size_t ClosingBracket(const TTokens& tokens, std::size_t open) {
  int depth = 0;
  for (std::size_t at = open; at < tokens.size(); ++at) {
    if (tokens[at].IsOperator("(")) ++depth;
    if (tokens[at].IsOperator(")") && --depth == 0) return at;
  }
  return tokens.size();
}

std::size_t FindOuterWord(const TTokens& tokens, std::string_view word, std::size_t from, std::size_t to) {
  int depth = 0;
  for (std::size_t at = from; at < to; ++at) {
    if (tokens[at].IsOperator("(")) ++depth;
    if (tokens[at].IsOperator(")")) --depth;
    if (depth == 0 && tokens[at].IsWord(word)) return at;
  }
  return to;
}

std::string LiteralContent(const TToken& token, bool* terminated) {
  std::string_view rest = token.Text.substr(token.Kind == TTokenKind::NationalText ? 2 : 1);
  std::string content;
  content.reserve(rest.size());
  std::size_t quote = 0;
  while ((quote = rest.find('\'')) != std::string_view::npos && rest.substr(quote + 1).starts_with('\'')) {
    content.append(rest, 0, quote + 1);
    rest.remove_prefix(quote + 2);
  }
  content.append(rest, 0, quote);
  if (terminated != nullptr) *terminated = quote != std::string_view::npos;
  return content;
}

}  // namespace zanhost
