#include "host/query/Tokens.h"

#include <algorithm>
#include <array>

#include "Frame/Host/Classes.h"

namespace zanhost {

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsWordStart(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '#' || c == '@' ||
         static_cast<unsigned char>(c) >= 0x80;
}
bool IsWordChar(char c) { return IsWordStart(c) || IsDigit(c) || c == '$'; }

class TScanner {
 public:
  explicit TScanner(std::string_view text) : FText(text) {}

  TTokens Run() {
    TTokens tokens;
    tokens.reserve(FText.size() / 5 + 4);
    for (;;) {
      const std::size_t start = FAt;
      SkipBlanksAndComments();
      if (FAt >= FText.size()) return tokens;
      const std::size_t begin = FAt;
      TToken token;
      token.Kind = TakeToken(tokens.empty() ? nullptr : &tokens.back());
      token.Before = FText.substr(start, begin - start);
      token.Text = FText.substr(begin, FAt - begin);
      tokens.push_back(token);
    }
  }

 private:
  char Peek(std::size_t ahead = 0) const { return FAt + ahead < FText.size() ? FText[FAt + ahead] : '\0'; }

  void SkipBehind(std::string_view end, std::size_t from) {
    const std::size_t found = FText.find(end, from);
    FAt = found == std::string_view::npos ? FText.size() : found + end.size();
  }

  void SkipBlanksAndComments() {
    while (FAt < FText.size()) {
      if (IsBlank(Peek())) {
        ++FAt;
      } else if (Peek() == '-' && Peek(1) == '-') {
        SkipBehind("\n", FAt + 2);
      } else if (Peek() == '/' && Peek(1) == '*') {
        SkipBehind("*/", FAt + 2);
      } else {
        return;
      }
    }
  }

  /// Takes a quoted piece whose closing sign stands for itself when doubled.
  void TakeQuoted(char close) {
    ++FAt;
    while (FAt < FText.size()) {
      if (FText[FAt++] != close) continue;
      if (Peek() != close) return;
      ++FAt;
    }
  }

  template <typename TPredicate>
  void TakeWhile(TPredicate holds) {
    while (FAt < FText.size() && holds(FText[FAt])) ++FAt;
  }

  TTokenKind TakeToken(const TToken* previous) {
    const char c = Peek();
    if (c == '\'') return TakeQuoted('\''), TTokenKind::Text;
    if ((c == 'N' || c == 'n') && Peek(1) == '\'') return ++FAt, TakeQuoted('\''), TTokenKind::NationalText;
    if (c == '"' || c == '`') return TakeQuoted(c), TTokenKind::QuotedName;
    if (c == '[') return TakeQuoted(']'), TTokenKind::QuotedName;
    if (IsWordStart(c)) return TakeWhile(IsWordChar), TTokenKind::Word;
    if (c == ':' && IsWordChar(Peek(1))) return ++FAt, TakeWhile(IsWordChar), TTokenKind::Parameter;
    const bool behindName = previous != nullptr && (previous->IsName() || previous->IsOperator("."));
    if (IsDigit(c) || (c == '.' && IsDigit(Peek(1)) && !behindName)) return TakeNumber(), TTokenKind::Number;
    return TakeOperator(), TTokenKind::Operator;
  }

  void TakeNumber() {
    TakeWhile([](char c) { return IsWordChar(c) || c == '.'; });
    const char last = FText[FAt - 1];
    const bool exponent =
        (last == 'e' || last == 'E') && (Peek() == '+' || Peek() == '-') && IsDigit(Peek(1));
    if (!exponent) return;
    ++FAt;
    TakeWhile(IsDigit);
  }

  void TakeOperator() {
    static constexpr std::array<std::string_view, 7> kPairs{"<>", "<=", ">=", "!=", "==", "||", ":="};
    const std::string_view pair = FText.substr(FAt, 2);
    FAt += std::find(kPairs.begin(), kPairs.end(), pair) != kPairs.end() ? 2 : 1;
  }

  std::string_view FText;
  std::size_t FAt = 0;
};

}  // namespace

bool TToken::IsWord(std::string_view word) const {
  return Kind == TTokenKind::Word && zanrole::SameText(Text, word);
}

std::string_view TToken::Name() const {
  const bool quoted = Kind == TTokenKind::QuotedName && Text.size() >= 2;
  return quoted ? Text.substr(1, Text.size() - 2) : Text;
}

TTokens Tokenize(std::string_view statement) { return TScanner(statement).Run(); }

std::string TokensToText(const TTokens& tokens) {
  std::size_t size = 0;
  for (const TToken& token : tokens) size += token.Before.size() + token.Text.size();
  std::string text;
  text.reserve(size);
  for (const TToken& token : tokens) text.append(token.Before).append(token.Text);
  return text;
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
  std::string_view text = token.Text.substr(token.Kind == TTokenKind::NationalText ? 2 : 1);
  std::string content;
  std::size_t at = 0;
  bool closed = false;
  while (at < text.size() && !closed) {
    if (text[at] != '\'') {
      content += text[at++];
    } else if (text.substr(at, 2) == "''") {
      content += '\'';
      at += 2;
    } else {
      closed = true;
    }
  }
  if (terminated != nullptr) *terminated = closed;
  return content;
}

}  // namespace zanhost
