#include "tests/conformance/scenario/Outline.h"

namespace zantest {

const std::string& TOutlineLine::Word(std::size_t index, const char* what) const {
  if (index >= Words.size()) throw Error(std::string("here ") + what + " is missing");
  return Words[index];
}

namespace {

/// The line without its comment: a "#" counts at the beginning and behind a blank, outside quotations.
std::string_view WithoutComment(std::string_view text) {
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '"') quoted = !quoted;
    if (text[i] == '#' && !quoted && (i == 0 || text[i - 1] == ' ')) return text.substr(0, i);
  }
  return text;
}

std::string_view WithoutBlanksAtEnd(std::string_view text) {
  const std::size_t last = text.find_last_not_of(" \r");
  return last == std::string_view::npos ? std::string_view{} : text.substr(0, last + 1);
}

std::vector<std::string> WordsOf(const TOutlineLine& line) {
  std::vector<std::string> words;
  bool quoted = false;
  bool inWord = false;
  for (const char c : line.Text) {
    if (c == ' ' && !quoted) {
      inWord = false;
      continue;
    }
    if (!inWord) words.emplace_back();
    inWord = true;
    if (c == '"')
      quoted = !quoted;
    else
      words.back() += c;
  }
  if (quoted) throw line.Error("a quotation (\") is not closed");
  return words;
}

struct TOpenLine {
  std::size_t Indentation;
  TOutlineLine* Line;
};

class TReader {
 public:
  TReader(const std::string& file, std::string_view text) : FText(text) {
    FOutline.File = file;
    FOpen.push_back({0, &FOutline});
  }

  TOutlineLine Run() {
    for (int number = 1; !FText.empty(); ++number) {
      const std::size_t end = std::min(FText.find('\n'), FText.size());
      Take(number, WithoutBlanksAtEnd(WithoutComment(FText.substr(0, end))));
      FText.remove_prefix(std::min(end + 1, FText.size()));
    }
    return std::move(FOutline);
  }

 private:
  void Take(int number, std::string_view text) {
    if (text.empty()) return;
    TOutlineLine line{FOutline.File, number, {}, {}, {}};
    if (text.find('\t') != std::string_view::npos) throw line.Error("indent with blanks, not with tabs");
    const std::size_t indentation = text.find_first_not_of(' ');
    line.Text = text.substr(indentation);
    line.Words = WordsOf(line);
    Place(std::move(line), indentation);
  }

  /// Puts the line below the nearest one above that is indented less.
  void Place(TOutlineLine line, std::size_t indentation) {
    while (FOpen.size() > 1 && FOpen.back().Indentation >= indentation) {
      FClosedIndentation = FOpen.back().Indentation;
      FOpen.pop_back();
    }
    TOutlineLine& parent = *FOpen.back().Line;
    const bool first = parent.Below.empty();
    if (first ? FOpen.size() == 1 && indentation > 0 : indentation != FClosedIndentation)
      throw line.Error("this line is not indented like one above it");
    parent.Below.push_back(std::move(line));
    FOpen.push_back({indentation, &parent.Below.back()});
  }

  std::string_view FText;
  TOutlineLine FOutline;
  /// The lines that a next one may stand below, from the outline downward. Only the last line of each list is
  /// among them, so growing the lists above moves none of them.
  std::vector<TOpenLine> FOpen;
  std::size_t FClosedIndentation = 0;
};

}  // namespace

TOutlineLine ReadOutline(const std::string& file, std::string_view text) { return TReader(file, text).Run(); }

}  // namespace zantest
