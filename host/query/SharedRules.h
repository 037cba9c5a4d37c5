#pragma once

#include <string_view>

#include "host/query/Tokens.h"

namespace zanhost {

// Rules that several engines apply; each engine names them, with its own reason, in its table.

/// Replaces the name of each call `from(` by `to`. `to` is a constant.
bool RenameCalls(TTokens& tokens, std::string_view from, std::string_view to);

/// N'text' becomes 'text'.
bool NationalTextToText(TTokens& tokens);

/// "with" at the beginning of a statement, also of one in a block, becomes "with recursive".
bool WithToWithRecursive(TTokens& tokens);

/// "+" becomes "||" unless a number literal stands beside it.
bool PlusOfTextsToConcatenation(TTokens& tokens);

/// "ROW_NUMBER() over(order by E)" inside a common table expression becomes "( E)".
bool RowNumberOfRecursionToKey(TTokens& tokens);

}  // namespace zanhost
