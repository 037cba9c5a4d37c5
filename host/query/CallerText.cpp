#include "host/query/CallerText.h"

#include <fmt/format.h>

#include <cctype>

#include "Frame/Host/Classes.h"
#include "host/query/StatementReader.h"

namespace zanhost {

namespace {

constexpr std::string_view kRefusedWords[]{"natural", "using", "with", "lock"};

bool IsLetter(char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0 || c == '_'; }
bool IsLetterOrDigit(char c) { return IsLetter(c) || (c >= '0' && c <= '9'); }

/// May a word of an engine begin at `at`? "1.using" and "\Nusing" hold one, and so does a byte order mark
/// before it, which SQLite takes for a blank; "Housing" does not.
bool MayBeginWord(std::string_view text, std::size_t at) {
  if (at == 0 || !IsLetter(text[at - 1])) return true;
  return at >= 2 && text[at - 2] == '\\';
}

bool MayEndWord(std::string_view text, std::size_t end) {
  return end == text.size() || !IsLetterOrDigit(text[end]);
}

bool HoldsWord(std::string_view lowerCase, std::string_view word) {
  for (std::size_t at = lowerCase.find(word); at != std::string_view::npos; at = lowerCase.find(word, at + 1))
    if (MayBeginWord(lowerCase, at) && MayEndWord(lowerCase, at + word.size())) return true;
  return false;
}

bool IsOnePlainSelect(std::string_view statement) {
  TStatementReader reader(statement);
  TStatementShape shape;
  if (!reader.Read(shape) || reader.IsBatch()) return false;
  const TTokens tokens = Tokenize(shape.Text);
  return tokens.front().IsWord("select") && !HasParameters(tokens);
}

}  // namespace

std::string WhyNotSent(std::string_view statement) {
  if (!IsOnePlainSelect(statement)) return "Only a single select without parameters is run here.";
  const std::string lowerCase = zanrole::LowerCase(statement);
  for (const std::string_view word : kRefusedWords)
    if (HoldsWord(lowerCase, word))
      return fmt::format("The word '{}' cannot be used here, not even inside quotes.", word);
  return {};
}

}  // namespace zanhost
