#pragma once

#include <string>
#include <string_view>

#include "host/query/Tokens.h"

namespace zanhost {

class TStatementPattern;

/// An integer of more digits may not fit into 64 bits, and then means a floating point number.
inline constexpr std::size_t kMostDigits = 18;

/// One statement of a text, and what it has in common with the statements that differ from it in literals
/// only. Texts with the same shape have the same tokens but for the content of their literals, so a rule that
/// looks at tokens does the same to all of them.
struct TStatementShape {
  std::string_view Text;  ///< as written, without the semicolon behind it
  std::string Shape;      ///< the text with 0 for each number and '' for each text
  TTokens Literals;       ///< numbers and texts in the order of the statement
  /// Each literal is a plain integer or a text with both its quotes, and stands apart from its neighbours: it
  /// could be told to an engine by its value.
  bool HasPlainLiterals = true;
};

/// Reads a text of the module statement by statement: one statement, or a batch. Statements end at the
/// semicolons outside brackets; begin … end around all of them is taken away; empty statements are left out.
/// What it gives lives no longer than the text.
class TStatementReader {
 public:
  explicit TStatementReader(std::string_view text);

  /// False when no statement is left. The storage of `shape` is used again.
  bool Read(TStatementShape& shape);

  /// Reads the next statement when the pattern matches it, at much less cost than Read; false otherwise, and
  /// nothing is read. shape.Shape stays empty.
  bool ReadLike(const TStatementPattern& pattern, TStatementShape& shape);

  /// Enclosed in begin … end, or several statements: one unit, all of it or nothing. Known as soon as Read
  /// has been called.
  bool IsBatch() const { return FInBlock || FStatements > 1 || (FStatements == 1 && FHasToken); }
  /// The text began with a "begin" and ended without its "end". Known when Read has given false.
  bool LacksEnd() const { return FInBlock && !FBlockClosed; }

 private:
  void Advance() { FHasToken = FScanner.Next(FToken); }
  void SkipSemicolons();
  bool EndsStatement(int& depth);
  bool ClosesBlock() const;

  std::string_view FText;
  TTokenScanner FScanner;
  TToken FToken;  ///< the one that is looked at
  bool FHasToken = false;
  bool FInBlock = false;
  bool FBlockClosed = false;
  int FStatements = 0;
};

}  // namespace zanhost
