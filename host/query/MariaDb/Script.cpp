#include "host/query/MariaDb/Script.h"

#include "Frame/Host/Classes.h"
#include "host/query/Tokens.h"

namespace zanhost {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kDelimiterWord = "delimiter ";

class TScriptSplitter {
 public:
  explicit TScriptSplitter(std::string_view script) : FScript(script) {}

  std::vector<std::string_view> Run() {
    std::vector<std::string_view> statements;
    while (FAt < FScript.size()) {
      if (TakeDelimiterLine()) continue;
      const std::string_view statement = TakeStatement();
      if (!Tokenize(statement).empty()) statements.push_back(statement);
    }
    return statements;
  }

 private:
  /// Passes "delimiter X" when that is what follows.
  bool TakeDelimiterLine() {
    const std::size_t from = FScript.find_first_not_of(kBlanks, FAt);
    if (from == std::string_view::npos) return FAt = FScript.size(), true;
    if (!zanrole::SameText(FScript.substr(from, kDelimiterWord.size()), kDelimiterWord)) return false;
    const std::size_t name = FScript.find_first_not_of(kBlanks, from + kDelimiterWord.size());
    const std::size_t end = std::min(FScript.find_first_of(kBlanks, name), FScript.size());
    FDelimiter = FScript.substr(name, end - name);
    FAt = end;
    return true;
  }

  /// The text up to the next delimiter, which is passed.
  std::string_view TakeStatement() {
    const std::size_t from = FAt;
    while (FAt < FScript.size()) {
      if (FScript.substr(FAt).starts_with(FDelimiter)) {
        const std::string_view statement = FScript.substr(from, FAt - from);
        FAt += FDelimiter.size();
        return statement;
      }
      TakeCharacterOrHiddenPiece();
    }
    return FScript.substr(from);
  }

  void TakeCharacterOrHiddenPiece() {
    const std::string_view rest = FScript.substr(FAt);
    if (rest.starts_with("-- ")) return SkipBehind("\n", 2);
    if (rest.starts_with("/*")) return SkipBehind("*/", 2);
    // A doubled quote closes and opens again.
    if (rest[0] == '\'' || rest[0] == '"' || rest[0] == '`') return SkipBehind(rest.substr(0, 1), 1);
    ++FAt;
  }

  void SkipBehind(std::string_view end, std::size_t ahead) {
    const std::size_t found = FScript.find(end, FAt + ahead);
    FAt = found == std::string_view::npos ? FScript.size() : found + end.size();
  }

  std::string_view FScript;
  std::string_view FDelimiter = ";";
  std::size_t FAt = 0;
};

}  // namespace

std::vector<std::string_view> SplitMariaDbScript(std::string_view script) {
  return TScriptSplitter(script).Run();
}

}  // namespace zanhost
