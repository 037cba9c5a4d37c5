#include "host/query/OracleScript.h"

#include <algorithm>

#include "host/query/Tokens.h"

namespace zanhost {

namespace {

/// "/" alone in its line.
bool IsSlashLine(std::string_view script, const TToken& token) {
  if (!token.IsOperator("/")) return false;
  const std::size_t at = static_cast<std::size_t>(token.Text.data() - script.data());
  const std::size_t lineBefore = script.find_last_not_of(" \t\r", at - 1);
  const bool beginsLine = at == 0 || lineBefore == std::string_view::npos || script[lineBefore] == '\n';
  const std::size_t behind = script.find_first_not_of(" \t\r", at + 1);
  return beginsLine && (behind == std::string_view::npos || script[behind] == '\n');
}

bool IsRoutineKind(const TToken& token) {
  static constexpr std::string_view kKinds[]{"function", "procedure", "package", "trigger", "type"};
  return std::ranges::any_of(kKinds, [&](std::string_view kind) { return token.IsWord(kind); });
}

/// The first tokens of a statement that ends at a line "/".
bool HoldsStatements(const TTokens& begin) {
  if (begin[0].IsWord("begin") || begin[0].IsWord("declare")) return true;
  if (!begin[0].IsWord("create")) return false;
  const std::size_t kind = begin.size() > 2 && begin[1].IsWord("or") ? 3 : 1;
  return kind < begin.size() && IsRoutineKind(begin[kind]);
}

class TScriptSplitter {
 public:
  explicit TScriptSplitter(std::string_view script) : FScript(script), FScanner(script) {}

  std::vector<std::string_view> Run() {
    while (FScanner.Next(FToken)) {
      if (IsSlashLine(FScript, FToken))
        Finish();
      else if (FToken.IsOperator(";") && !(FHead.empty() || HoldsStatements(FHead)))
        Finish();
      else
        Take();
    }
    Finish();
    return std::move(FStatements);
  }

 private:
  void Take() {
    constexpr std::size_t kHeadLength = 4;
    if (FHead.empty() && FToken.IsOperator(";")) return;
    if (FHead.size() < kHeadLength) FHead.push_back(FToken);
    FLast = FToken;
  }

  void Finish() {
    if (FHead.empty()) return;
    const char* const from = FHead[0].Text.data();
    FStatements.emplace_back(from, FLast.Text.data() + FLast.Text.size() - from);
    FHead.clear();
  }

  std::string_view FScript;
  TTokenScanner FScanner;
  TToken FToken;
  TTokens FHead;  ///< the first tokens of the statement that is read
  TToken FLast;   ///< its last one
  std::vector<std::string_view> FStatements;
};

}  // namespace

std::vector<std::string_view> SplitOracleScript(std::string_view script) {
  return TScriptSplitter(script).Run();
}

}  // namespace zanhost
