#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <regex>

#include "host/platform/Files.h"
#include "tests/corpus/Corpus.h"
#include "tests/host/SourceTexts.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/SourceTree.h"

// No statement of the module escapes its tests: every literal of the sources that is a piece of SQL stands in
// a statement that was sent.

namespace zantest {

namespace {

namespace fs = std::filesystem;

const fs::path kSources = SourceTree() / "src";

/// Statements compare by their words; the null function is written in the dialect's word when it is sent.
std::string Normalised(std::string_view text) {
  static const std::regex nullFunction(R"(\b(ifnull|nvl|isnull)\()", std::regex::icase);
  return std::regex_replace(Squeeze(text), nullFunction, "isnull(");
}

/// A text that people read may hold such a word, too: it has Chinese outside of quotes, or is a sentence
/// about a place in the sources.
bool IsForPeople(std::string_view text) {
  static const std::regex quoted("'[^']*'");
  static const std::regex startsStatement(R"(^\s*(select|insert|update|delete|with|call)\b)",
                                          std::regex::icase);
  if (text.find("(src/") != std::string_view::npos) return true;
  if (std::regex_search(text.begin(), text.end(), startsStatement)) return false;
  return IsChinese(std::regex_replace(std::string(text), quoted, ""));
}

/// A word of SQL, a comparison that waits for its value, a column with its alias, or a call.
bool IsPieceOfStatement(std::string_view text) {
  static const std::regex words(
      R"(\b(select|insert|update|delete|alter|create|call|exec|with|from|where|values|set|and|or|union|join|then|else|order by|group by|begin|end|like|cast|null|dual)\b)",
      std::regex::icase);
  static const std::regex shapes(R"(\w\s*(=|<>|<|>)\s*$|(^|[\s,(])[a-z]\w?\.\w|\w\()");
  if (IsForPeople(text)) return false;
  return std::regex_search(text.begin(), text.end(), words) ||
         std::regex_search(text.begin(), text.end(), shapes);
}

/// The fixed parts of a literal, between the places that take values.
std::vector<std::string> PartsOf(std::string_view literal) {
  static const std::regex place("%[sd]");
  std::vector<std::string> parts;
  for (std::cregex_token_iterator part(literal.data(), literal.data() + literal.size(), place, -1), end;
       part != end; ++part)
    if (std::string text = Normalised(part->str()); !text.empty()) parts.push_back(std::move(text));
  return parts;
}

bool HasParts(std::string_view statement, const std::vector<std::string>& parts) {
  std::size_t at = 0;
  for (const std::string& part : parts) {
    at = statement.find(part, at);
    if (at == std::string_view::npos) return false;
    at += part.size();
  }
  return true;
}

class TSentTexts {
 public:
  TSentTexts() {
    for (const TCorpusStatement& statement : Corpus())
      FTexts.insert(Normalised(WithoutMultiSqlCall(statement.Text)));
    for (const TCorpusStatement& statement : Corpus()) FTexts.insert(Normalised(statement.Text));
  }
  bool Hold(std::string_view literal) const {
    const std::vector<std::string> parts = PartsOf(literal);
    return std::any_of(FTexts.begin(), FTexts.end(),
                       [&parts](const std::string& text) { return HasParts(text, parts); });
  }

 private:
  std::set<std::string> FTexts;
};

/// The contract with the host (src/Frame/Host) builds no statements.
bool IsSourceWithStatements(const fs::path& file) {
  const bool isSource = file.extension() == ".cpp" || file.extension() == ".h";
  return isSource && file.parent_path() != kSources / "Frame/Host";
}

std::vector<TSourceText> PiecesOfStatements() {
  std::vector<TSourceText> pieces;
  for (const auto& entry : fs::recursive_directory_iterator(kSources)) {
    if (!entry.is_regular_file() || !IsSourceWithStatements(entry.path())) continue;
    const std::string name = fs::relative(entry.path(), SourceTree()).string();
    for (TSourceText& literal : LiteralsOf(zanhost::ReadFile(entry.path()), name))
      if (IsPieceOfStatement(literal.Text)) pieces.push_back(std::move(literal));
  }
  return pieces;
}

}  // namespace

TEST(Sources, EveryPieceOfAStatementHasBeenSent) {
  const TSentTexts sent;
  const std::vector<TSourceText> pieces = PiecesOfStatements();
  EXPECT_GE(pieces.size(), 150U);
  std::string missing;
  for (const TSourceText& piece : pieces)
    if (!sent.Hold(piece.Text)) missing += piece.Place + ": no test sends: " + Squeeze(piece.Text) + "\n";
  EXPECT_EQ(missing, "");
}

TEST(Sources, PiecesAreToldFromOtherTexts) {
  for (const char* piece :
       {"select OID from STUsers where uGroup = %d", " , FullName = ", ") and b.Code = '%s'", "end;", "Now()",
        " from dual ", " a.Code, a.Name ", "select OID 编号 from STUsers", " or oprate = '执行'"})
    EXPECT_TRUE(IsPieceOfStatement(piece)) << piece;
  for (const char* other : {"用于搜索具体记录的where表达式", "Field '", "' not found", "名称", "UserID", ", ",
                            "%s:%s", "Alt+Up", "No set of rights is loaded (src/Role/TolPermission)"})
    EXPECT_FALSE(IsPieceOfStatement(other)) << other;
}

TEST(Sources, APieceThatWasNeverSentIsFound) {
  const TSentTexts sent;
  EXPECT_TRUE(sent.Hold("Select Max(ObjectID) as MOID From ObjectRegister"));
  EXPECT_FALSE(sent.Hold("Select Min(ObjectID) as MOID From ObjectRegister"));
  EXPECT_FALSE(sent.Hold("select %s from STUsers where NoColumn = %d"));
}

}  // namespace zantest
