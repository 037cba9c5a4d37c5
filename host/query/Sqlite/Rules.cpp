#include "host/query/Sqlite/Rules.h"

#include <array>

#include "Frame/Host/Classes.h"
#include "host/query/SharedRules.h"

namespace zanhost {

namespace {

bool IsNullToIfNull(TTokens& tokens) { return RenameCalls(tokens, "isnull", "ifnull"); }

bool LeftToRegisteredFunction(TTokens& tokens) { return RenameCalls(tokens, "left", "left_characters"); }

/// Number of tokens between database and table at `at`: two for "db..t", three for "db.dbo.t", otherwise
/// none.
std::size_t OwnerPathLength(const TTokens& tokens, std::size_t at) {
  const auto isName = [&](std::size_t i) { return i < tokens.size() && tokens[i].IsName(); };
  const auto isDot = [&](std::size_t i) { return i < tokens.size() && tokens[i].IsOperator("."); };
  if (!isName(at) || !isDot(at + 1)) return 0;
  if (isDot(at + 2) && isName(at + 3)) return 2;
  if (isName(at + 2) && zanrole::SameText(tokens[at + 2].Name(), "dbo") && isDot(at + 3) && isName(at + 4))
    return 3;
  return 0;
}

bool DatabasePrefixToMain(TTokens& tokens) {
  bool changed = false;
  for (std::size_t at = 0; at < tokens.size(); ++at) {
    const std::size_t length = OwnerPathLength(tokens, at);
    if (length == 0) continue;
    tokens[at].Kind = TTokenKind::Word;
    tokens[at].Text = "main";
    // 5[db]..t must not become one word.
    if (tokens[at].Before.empty() && at > 0) tokens[at].Before = " ";
    const auto behindFirstDot = tokens.begin() + static_cast<std::ptrdiff_t>(at) + 2;
    tokens.erase(behindFirstDot, behindFirstDot + static_cast<std::ptrdiff_t>(length) - 1);
    changed = true;
  }
  return changed;
}

constexpr std::array kRules{
    TAdaptationRule{"routine", "SQLite has no stored procedures: exec is a syntax error",
                    RunRoutineAsStatement, TLiteralEffect::Adds},
    TAdaptationRule{"national-text", "N'text' is a syntax error; all texts are Unicode", NationalTextToText},
    TAdaptationRule{"isnull", "IsNull( is a syntax error, also when a function of that name is registered",
                    IsNullToIfNull},
    TAdaptationRule{"left", "left( is a syntax error, also when a function of that name is registered",
                    LeftToRegisteredFunction},
    TAdaptationRule{"database-prefix",
                    "db..t and db.dbo.t are syntax errors; one file, known as main, is both databases",
                    DatabasePrefixToMain},
    TAdaptationRule{"recursive-row-number",
                    "a window function inside a recursion is an error; its order key sorts the same",
                    RowNumberOfRecursionToKey},
    TAdaptationRule{"update-from", "update T … from T a joins a second T and changes every row of the first",
                    RewriteUpdateFrom},
    TAdaptationRule{"text-plus",
                    "+ of texts adds numbers and gives 0; beside a number literal it is meant as arithmetic",
                    PlusOfTextsToConcatenation},
    TAdaptationRule{"long-union", "a compound select may have 500 terms", NestLongUnion},
};

}  // namespace

std::span<const TAdaptationRule> SqliteRules() { return kRules; }

}  // namespace zanhost
