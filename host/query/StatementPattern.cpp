#include "host/query/StatementPattern.h"

#include <algorithm>

namespace zanhost {

namespace {

constexpr std::size_t kNoLiteral = 0;

std::size_t LengthOfNumber(std::string_view text) {
  const auto end = std::find_if(text.begin(), text.end(), [](char c) { return c < '0' || c > '9'; });
  const auto length = static_cast<std::size_t>(end - text.begin());
  return length <= kMostDigits ? length : kNoLiteral;
}

/// Of a text from its first quote to its closing one.
std::size_t LengthOfQuoted(std::string_view text) {
  if (!text.starts_with('\'')) return kNoLiteral;
  std::size_t close = text.find('\'', 1);
  while (close != std::string_view::npos && text.substr(close + 1).starts_with('\''))
    close = text.find('\'', close + 2);
  if (close == std::string_view::npos) return kNoLiteral;
  // Engines end a statement at a zero byte.
  return text.substr(0, close).find('\0') == std::string_view::npos ? close + 1 : kNoLiteral;
}

std::size_t LengthOfLiteral(std::string_view text, TTokenKind kind) {
  if (kind == TTokenKind::Number) return LengthOfNumber(text);
  if (kind == TTokenKind::Text) return LengthOfQuoted(text);
  if (!text.starts_with('N') && !text.starts_with('n')) return kNoLiteral;
  const std::size_t quoted = LengthOfQuoted(text.substr(1));
  return quoted != kNoLiteral ? quoted + 1 : kNoLiteral;
}

constexpr std::string_view kBlanks = " \t\r\n";

bool BeginsWithSemicolon(std::string_view text) {
  const std::size_t sign = text.find_first_not_of(kBlanks);
  return sign != std::string_view::npos && text[sign] == ';';
}

}  // namespace

TStatementPattern::TStatementPattern(const TStatementShape& shape, const std::vector<std::size_t>& fixed)
    : FLiterals(shape.Literals.size()) {
  const char* from = shape.Text.data();
  for (std::size_t place = 0; place < shape.Literals.size(); ++place) {
    if (std::binary_search(fixed.begin(), fixed.end(), place)) continue;
    const TToken& literal = shape.Literals[place];
    FPieces.push_back({std::string(from, literal.Text.data()), literal.Kind, place});
    from = literal.Text.data() + literal.Text.size();
  }
  FEnd.assign(from, shape.Text.data() + shape.Text.size());
}

std::size_t TStatementPattern::Match(std::string_view text, TTokens& literals) const {
  const std::size_t length = MatchBeginning(text, literals);
  return BeginsWithSemicolon(text.substr(length)) ? length : 0;
}

bool TStatementPattern::MatchWhole(std::string_view text, TTokens& literals) const {
  const std::size_t length = MatchBeginning(text, literals);
  return length > 0 && text.find_first_not_of(kBlanks, length) == std::string_view::npos;
}

std::size_t TStatementPattern::MatchBeginning(std::string_view text, TTokens& literals) const {
  literals.assign(FLiterals, {});
  std::size_t at = 0;
  for (const TPiece& piece : FPieces) {
    if (!text.substr(at).starts_with(piece.Text)) return 0;
    at += piece.Text.size();
    const std::size_t length = LengthOfLiteral(text.substr(at), piece.Literal);
    if (length == kNoLiteral) return 0;
    literals[piece.Place] = {piece.Literal, {}, text.substr(at, length)};
    at += length;
  }
  if (!text.substr(at).starts_with(FEnd)) return 0;
  return at + FEnd.size();
}

}  // namespace zanhost
