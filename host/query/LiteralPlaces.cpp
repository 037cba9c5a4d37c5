#include "host/query/LiteralPlaces.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace zanhost {

namespace {

template <std::size_t Count>
using TWords = std::array<std::string_view, Count>;

constexpr TWords<5> kStatements{"select", "insert", "update", "delete", "with"};
/// From here on literals are values, unless what stands around the brackets forbids it.
constexpr TWords<4> kValues{"from", "where", "on", "set"};
/// From here on they are not.
constexpr TWords<8> kNoValues{"select", "with", "group", "having", "order", "limit", "window", "returning"};
/// Behind these literals stay what they are.
constexpr TWords<6> kPatterns{"like", "glob", "match", "regexp", "escape", "between"};
/// What ends the pattern of a like, or the second bound of a between.
constexpr TWords<5> kBehindPattern{"and", "or", "then", "when", "else"};

template <std::size_t Count>
bool IsOneOf(const TToken& token, const TWords<Count>& words) {
  return token.Kind == TTokenKind::Word &&
         std::any_of(words.begin(), words.end(), [&](std::string_view word) { return token.IsWord(word); });
}

bool IsLiteral(const TToken& token) {
  return token.Kind == TTokenKind::Number || token.Kind == TTokenKind::Text;
}

/// What is known inside one pair of brackets.
struct TBrackets {
  bool Forbidden = false;  ///< by what stands around them
  bool Values = false;     ///< literals are values, by the clause that is read
  bool Pattern = false;
  bool Between = false;  ///< whose "and" is still to come
};

class TPlaceFinder {
 public:
  explicit TPlaceFinder(const TTokens& tokens) : FTokens(tokens), FBrackets(1) {
    FPlaces.Bindable.resize(tokens.size());
  }

  TLiteralPlaces Run() {
    if (FTokens.empty() || !IsOneOf(FTokens[0], kStatements)) return std::move(FPlaces);
    std::size_t literals = 0;
    for (FAt = 0; FAt < FTokens.size(); ++FAt) {
      const TToken& token = FTokens[FAt];
      if (token.IsOperator("(")) {
        Open();
      } else if (token.IsOperator(")")) {
        if (FBrackets.size() > 1) FBrackets.pop_back();
      } else if (IsLiteral(token)) {
        FPlaces.Bindable[FAt] = MayBind();
        ++literals;
      } else {
        ReadWord(token);
      }
    }
    if (literals > kMostLiterals) FPlaces.IsList = true;
    return std::move(FPlaces);
  }

 private:
  bool MayBind() const {
    const TBrackets& here = FBrackets.back();
    return here.Values && !here.Forbidden && !here.Pattern;
  }

  void ReadWord(const TToken& token) {
    TBrackets& here = FBrackets.back();
    if (IsOneOf(token, kNoValues)) {
      here.Values = false;
      here.Pattern = false;
    } else if (IsOneOf(token, kValues)) {
      // "is distinct from" compares.
      here.Values = here.Values || !IsWordAt(FAt - 1, "distinct");
      here.Pattern = false;
    } else if (token.IsWord("values")) {
      // Inside brackets they are a select list.
      here.Values = FBrackets.size() == 1;
    } else if (IsOneOf(token, kPatterns)) {
      here.Pattern = true;
      here.Between = token.IsWord("between");
    } else if (here.Between && token.IsWord("and")) {
      here.Between = false;
    } else if (IsOneOf(token, kBehindPattern)) {
      here.Pattern = false;
    }
  }

  void Open() {
    TBrackets inner;
    const bool inList = IsWordAt(FAt - 1, "in") && !IsWordAt(FAt + 1, "select");
    const bool ofType = IsWordAt(FAt - 2, "as") && FTokens[FAt - 1].IsName();
    inner.Forbidden = !MayBind() || ofType || IsWordAt(FAt - 1, "over") || (inList && IsLong(FAt));
    inner.Values = true;
    FBrackets.push_back(inner);
  }

  /// Out of range, no word is at `at`.
  bool IsWordAt(std::size_t at, std::string_view word) const {
    return at < FTokens.size() && FTokens[at].IsWord(word);
  }

  bool IsLong(std::size_t open) {
    const auto literals = std::count_if(
        FTokens.begin() + static_cast<std::ptrdiff_t>(open),
        FTokens.begin() + static_cast<std::ptrdiff_t>(ClosingBracket(FTokens, open)), IsLiteral);
    const bool isLong = static_cast<std::size_t>(literals) > kLongestInList;
    FPlaces.IsList = FPlaces.IsList || isLong;
    return isLong;
  }

  const TTokens& FTokens;
  std::size_t FAt = 0;
  std::vector<TBrackets> FBrackets;
  TLiteralPlaces FPlaces;
};

}  // namespace

TLiteralPlaces FindLiteralPlaces(const TTokens& tokens) { return TPlaceFinder(tokens).Run(); }

}  // namespace zanhost
