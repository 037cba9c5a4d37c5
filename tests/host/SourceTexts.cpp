#include "tests/host/SourceTexts.h"

#include <algorithm>
#include <regex>

#include "host/platform/Files.h"

namespace zantest {

namespace {

class TScanner {
 public:
  TScanner(std::string_view source, const std::string& fileName) : FSource(source), FFileName(fileName) {}

  std::vector<TSourceText> Run() {
    while (FAt < FSource.size()) Step();
    return std::move(FTexts);
  }

 private:
  bool Sees(std::string_view text) const { return FSource.substr(FAt).starts_with(text); }

  void Step() {
    if (Sees("//")) return Skip(FSource.find('\n', FAt));
    if (Sees("/*")) return Skip(EndOf("*/", FAt + 2));
    if (Sees("R\"")) return TakeRaw();
    if (Sees("\"")) return TakeText();
    const char c = FSource[FAt];
    if (c == '\'' && !IsDigitSeparator()) return Skip(EndOfQuoted('\''));
    if (std::string_view(" \t\r\n").find(c) == std::string_view::npos) FJoins = false;
    Skip(FAt + 1);
  }

  bool IsDigitSeparator() const {
    return FAt > 0 && std::isxdigit(static_cast<unsigned char>(FSource[FAt - 1]));
  }

  void Skip(std::size_t end) { FAt = std::min(end, FSource.size()); }

  std::size_t EndOf(std::string_view mark, std::size_t from) const {
    const std::size_t found = FSource.find(mark, from);
    return found == std::string_view::npos ? FSource.size() : found + mark.size();
  }

  std::size_t EndOfQuoted(char quote) const {
    std::size_t at = FAt + 1;
    while (at < FSource.size() && FSource[at] != quote) at += FSource[at] == '\\' ? 2 : 1;
    return at + 1;
  }

  void TakeText() {
    const std::size_t end = EndOfQuoted('"');
    Take(Unescaped(FSource.substr(FAt + 1, end - FAt - 2)));
    Skip(end);
  }

  void TakeRaw() {
    const std::size_t open = FSource.find('(', FAt);
    const std::string close = ")" + std::string(FSource.substr(FAt + 2, open - FAt - 2)) + "\"";
    const std::size_t end = EndOf(close, open);
    Take(std::string(FSource.substr(open + 1, end - close.size() - open - 1)));
    Skip(end);
  }

  void Take(std::string text) {
    if (FJoins)
      FTexts.back().Text += text;
    else
      FTexts.push_back({FFileName + ":" + std::to_string(Line()), std::move(text)});
    FJoins = true;
  }

  long Line() const {
    return 1 + std::count(FSource.begin(), FSource.begin() + static_cast<std::ptrdiff_t>(FAt), '\n');
  }

  static std::string Unescaped(std::string_view written) {
    std::string text;
    for (std::size_t i = 0; i < written.size(); ++i) {
      const bool isEscape = written[i] == '\\' && i + 1 < written.size();
      text += isEscape ? Resolved(written[++i]) : written[i];
    }
    return text;
  }

  static char Resolved(char escaped) {
    switch (escaped) {
      case 'n':
        return '\n';
      case 'r':
        return '\r';
      case 't':
        return '\t';
      default:
        return escaped;
    }
  }

  std::string_view FSource;
  std::string FFileName;
  std::size_t FAt = 0;
  bool FJoins = false;
  std::vector<TSourceText> FTexts;
};

bool IsSource(const std::filesystem::path& path) {
  return path.extension() == ".cpp" || path.extension() == ".h";
}

bool IsDataFile(const std::filesystem::path& path, const std::vector<std::string>& dataFiles) {
  const std::string name = path.filename().string();
  return std::any_of(dataFiles.begin(), dataFiles.end(),
                     [&name](const std::string& start) { return name.starts_with(start); });
}

}  // namespace

std::vector<TSourceText> LiteralsOf(std::string_view source, const std::string& fileName) {
  return TScanner(source, fileName).Run();
}

// U+3000 to U+9FFF and the full-width forms; all begin with one of these bytes.
bool IsChinese(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return (byte >= 0xE3 && byte <= 0xE9) || byte == 0xEF;
  });
}

bool IsStatement(std::string_view text) {
  static const std::regex words(
      R"(\b(select|insert|update|delete|where|values|from|set|and|or|union|then)\b)", std::regex::icase);
  return std::regex_search(text.begin(), text.end(), words);
}

std::vector<TSourceText> ChineseTextsBelow(const std::filesystem::path& folder,
                                           const std::vector<std::string>& dataFiles) {
  std::vector<TSourceText> chinese;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file() || !IsSource(entry.path()) || IsDataFile(entry.path(), dataFiles)) continue;
    const std::string source = zanhost::ReadFile(entry.path());
    for (TSourceText& literal : LiteralsOf(source, entry.path().string()))
      if (IsChinese(literal.Text) && !IsStatement(literal.Text)) chinese.push_back(std::move(literal));
  }
  return chinese;
}

}  // namespace zantest
