#include "host/query/StatementReader.h"

#include <algorithm>
#include <array>

#include "host/query/StatementPattern.h"

namespace zanhost {

namespace {

bool IsLiteral(TTokenKind kind) {
  return kind == TTokenKind::Number || kind == TTokenKind::Text || kind == TTokenKind::NationalText;
}

const char* EndOf(std::string_view text) { return text.data() + text.size(); }

bool IsPlainInteger(std::string_view number) {
  return number.size() <= kMostDigits &&
         std::all_of(number.begin(), number.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::string_view StandIn(TTokenKind kind) {
  if (kind == TTokenKind::Number) return "0";
  return kind == TTokenKind::Text ? "''" : "N''";
}

/// 'a'b and X'41': where a literal touches its neighbour the two may mean something else together.
bool AreJoined(TTokenKind before, const TToken& token) {
  return token.Before.empty() && before != TTokenKind::Operator && token.Kind != TTokenKind::Operator;
}

/// The quotes of a text come in pairs unless the closing one is missing.
bool IsTerminated(const TToken& literal) {
  return std::count(literal.Text.begin(), literal.Text.end(), '\'') % 2 == 0;
}

/// A literal that can be told to an engine by its value.
bool IsPlain(const TToken& literal) {
  return literal.Kind == TTokenKind::Number ? IsPlainInteger(literal.Text) : IsTerminated(literal);
}

/// "begin immediate" and its like are statements; `scanner` stands behind the "begin".
bool OpensTransaction(TTokenScanner scanner) {
  static constexpr std::array<std::string_view, 5> kKinds{"transaction", "tran", "immediate", "deferred",
                                                          "exclusive"};
  TToken token;
  if (!scanner.Next(token)) return true;
  return std::any_of(kKinds.begin(), kKinds.end(), [&](std::string_view kind) { return token.IsWord(kind); });
}

}  // namespace

TStatementReader::TStatementReader(std::string_view text) : FText(text), FScanner(text) {
  Advance();
  FInBlock = FHasToken && FToken.IsWord("begin") && !OpensTransaction(FScanner);
  if (FInBlock) Advance();
}

void TStatementReader::SkipSemicolons() {
  while (FHasToken && FToken.IsOperator(";")) Advance();
}

/// The "end" that is looked at has nothing but semicolons behind it.
bool TStatementReader::ClosesBlock() const {
  TTokenScanner ahead = FScanner;
  TToken token;
  while (ahead.Next(token)) {
    if (!token.IsOperator(";")) return false;
  }
  return true;
}

bool TStatementReader::EndsStatement(int& depth) {
  if (FToken.Kind == TTokenKind::Operator) {
    const char sign = FToken.Text.front();
    if (sign == '(') ++depth;
    if (sign == ')') --depth;
    return sign == ';' && depth <= 0;
  }
  FBlockClosed = FInBlock && FToken.IsWord("end") && ClosesBlock();
  return FBlockClosed;
}

bool TStatementReader::Read(TStatementShape& shape) {
  shape.Shape.clear();
  shape.Literals.clear();
  shape.HasPlainLiterals = true;
  SkipSemicolons();
  const char* const begin = FToken.Before.data();
  const char* copied = begin;
  const char* end = begin;
  TTokenKind before = TTokenKind::Operator;
  for (int depth = 0; FHasToken && !EndsStatement(depth); Advance()) {
    const bool literal = IsLiteral(FToken.Kind);
    if (AreJoined(before, FToken) && (literal || IsLiteral(before))) shape.HasPlainLiterals = false;
    end = EndOf(FToken.Text);
    before = FToken.Kind;
    if (!literal) continue;
    shape.Shape.append(copied, FToken.Text.data()).append(StandIn(FToken.Kind));
    copied = end;
    shape.Literals.push_back(FToken);
    if (!IsPlain(FToken)) shape.HasPlainLiterals = false;
  }
  SkipSemicolons();
  if (end == begin) return false;
  shape.Text = std::string_view(begin, static_cast<std::size_t>(end - begin));
  shape.Shape.append(copied, end);
  // Engines end a statement at a zero byte.
  if (shape.Text.find('\0') != std::string_view::npos) shape.HasPlainLiterals = false;
  ++FStatements;
  return true;
}

bool TStatementReader::ReadLike(const TStatementPattern& pattern, TStatementShape& shape) {
  SkipSemicolons();
  if (!FHasToken) return false;
  const auto begin = static_cast<std::size_t>(FToken.Before.data() - FText.data());
  const std::size_t length = pattern.Match(FText.substr(begin), shape.Literals);
  if (length == 0) return false;
  shape.Text = FText.substr(begin, length);
  shape.Shape.clear();
  shape.HasPlainLiterals = true;
  // The pattern has seen that nothing but blanks stands before the semicolon.
  FScanner = TTokenScanner(FText.substr(FText.find(';', begin + length) + 1));
  Advance();
  SkipSemicolons();
  ++FStatements;
  return true;
}

}  // namespace zanhost
