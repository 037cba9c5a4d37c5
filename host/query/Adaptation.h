#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/query/Tokens.h"

namespace zanhost {

/// What a rule does to the literals of a statement. It may move those that it keeps.
enum class TLiteralEffect {
  Keeps,    ///< they stay as they are, and none is added
  Adds,     ///< they stay, and others of the rule's own join them
  Changes,  ///< it is there to change what some of them hold
};

/// One change that makes a statement of the module fit an engine. A rule looks at tokens, never at raw text,
/// so that what stands in a literal, a quoted name or a comment cannot be mistaken for syntax.
struct TAdaptationRule {
  std::string_view Name;
  /// What the engine does with the statement as it stands.
  std::string_view Reason;
  /// Changes the tokens of one statement; true when it changed anything. What it puts in must be views into
  /// the statement or constants. Raises EDatabaseError for a statement that it knows but cannot express.
  bool (*Apply)(TTokens& tokens);
  TLiteralEffect Literals = TLiteralEffect::Keeps;
};

/// Applies the rules in their order; true when one of them changed the statement. A statement that ends
/// inside quotes is left as it is: no engine takes it, and what a rule put behind the quote would end up
/// inside.
bool Adapt(TTokens& tokens, std::span<const TAdaptationRule> rules);

/// What one text of the module holds: one statement, or a batch.
struct TStatementTexts {
  std::vector<TTokens> Statements;
  /// Enclosed in begin … end, or several statements: one unit, all of it or nothing.
  bool IsBatch = false;
};

/// Splits a text at the semicolons outside brackets and takes the enclosing begin … end away. Empty
/// statements are left out. A single statement keeps its place in `text`; a semicolon behind it is dropped.
TStatementTexts SplitStatements(std::string_view text);

}  // namespace zanhost
