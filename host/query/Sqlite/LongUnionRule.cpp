#include <algorithm>

#include "host/query/Sqlite/Rules.h"

namespace zanhost {

namespace {

// SQLite takes 500 terms; half of that leaves room for the terms that stand around the groups.
constexpr std::size_t kTermsOfGroup = 250;
constexpr std::size_t kTermsTaken = 500;

/// A compound select without brackets around it: where each term begins, and the position behind the last.
struct TCompound {
  std::vector<std::size_t> Terms;
  std::size_t End = 0;
};

bool EndsCompound(const TToken& token) {
  return token.IsOperator(")") || token.IsOperator(";") || token.IsWord("order");
}

/// Reads the compound whose first select is at `at`. Only chains of "union all" are gathered; another set
/// operator ends the compound, since regrouping would change its meaning.
TCompound ReadCompound(const TTokens& tokens, std::size_t at) {
  TCompound compound;
  compound.Terms.push_back(at);
  while (at < tokens.size() && !EndsCompound(tokens[at])) {
    const bool unionAll = tokens[at].IsWord("union") && at + 2 < tokens.size() &&
                          tokens[at + 1].IsWord("all") && tokens[at + 2].IsWord("select");
    if (unionAll) {
      compound.Terms.push_back(at + 2);
      at += 3;
    } else if (tokens[at].IsWord("union") || tokens[at].IsWord("except") || tokens[at].IsWord("intersect")) {
      compound.Terms.resize(1);
      break;
    } else {
      at = tokens[at].IsOperator("(") ? ClosingBracket(tokens, at) + 1 : at + 1;
    }
  }
  compound.End = std::min(at, tokens.size());
  return compound;
}

void AppendConstant(TTokens& tokens, TTokenKind kind, std::string_view text) {
  tokens.push_back({kind, " ", text});
}

void AppendWords(TTokens& tokens, std::initializer_list<std::string_view> words) {
  for (const std::string_view word : words) AppendConstant(tokens, TTokenKind::Word, word);
}

/// "select * from ( GROUP ) union all select * from ( GROUP ) …"
TTokens Regroup(const TTokens& tokens, const TCompound& compound) {
  TTokens nested;
  nested.reserve(tokens.size() + compound.Terms.size());
  for (std::size_t term = 0; term < compound.Terms.size(); term += kTermsOfGroup) {
    const std::size_t behind = term + kTermsOfGroup;
    const std::size_t end = behind < compound.Terms.size() ? compound.Terms[behind] - 2 : compound.End;
    if (term > 0) AppendWords(nested, {"union", "all"});
    AppendWords(nested, {"select", "*", "from"});
    AppendConstant(nested, TTokenKind::Operator, "(");
    nested.insert(nested.end(), tokens.begin() + static_cast<std::ptrdiff_t>(compound.Terms[term]),
                  tokens.begin() + static_cast<std::ptrdiff_t>(end));
    AppendConstant(nested, TTokenKind::Operator, ")");
  }
  return nested;
}

}  // namespace

bool NestLongUnion(TTokens& tokens) {
  const auto isUnion = [](const TToken& token) { return token.IsWord("union"); };
  if (std::count_if(tokens.begin(), tokens.end(), isUnion) < std::ptrdiff_t{kTermsTaken}) return false;
  bool changed = false;
  for (std::size_t at = 0; at < tokens.size(); ++at) {
    if (!tokens[at].IsWord("select")) continue;
    const TCompound compound = ReadCompound(tokens, at);
    if (compound.Terms.size() <= kTermsTaken) continue;
    const TTokens nested = Regroup(tokens, compound);
    const auto first = tokens.begin() + static_cast<std::ptrdiff_t>(at);
    tokens.erase(first, tokens.begin() + static_cast<std::ptrdiff_t>(compound.End));
    tokens.insert(tokens.begin() + static_cast<std::ptrdiff_t>(at), nested.begin(), nested.end());
    changed = true;
    at += nested.size() - 1;
  }
  return changed;
}

}  // namespace zanhost
