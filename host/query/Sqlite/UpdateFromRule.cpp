#include <algorithm>

#include "Frame/Host/Zandbs.h"
#include "host/query/Sqlite/Rules.h"

namespace zanhost {

namespace {

/// One table, or bracketed select, of a from clause, and the condition that joins it.
struct TJoinedSource {
  TTokens Source;
  TTokens Condition;
  bool Outer = false;
};

/// "update TABLE set ASSIGNMENTS from SOURCES where CONDITION", behind whatever stands in front ("with …").
struct TUpdateFrom {
  std::size_t Update, Set, From, Where;
  std::vector<TJoinedSource> Sources;
};

TTokens Slice(const TTokens& tokens, std::size_t from, std::size_t to) {
  return {tokens.begin() + static_cast<std::ptrdiff_t>(from),
          tokens.begin() + static_cast<std::ptrdiff_t>(to)};
}

/// Reads the sources of a from clause in [at, end).
std::vector<TJoinedSource> ReadSources(const TTokens& tokens, std::size_t at, std::size_t end) {
  std::vector<TJoinedSource> sources(1);
  TTokens* part = &sources.back().Source;
  bool outer = false;
  for (; at < end; ++at) {
    const TToken& token = tokens[at];
    if (token.IsWord("left") || token.IsWord("right") || token.IsWord("full")) {
      outer = true;
    } else if (token.IsWord("inner") || token.IsWord("outer") || token.IsWord("cross")) {
      continue;
    } else if (token.IsWord("join") || token.IsOperator(",")) {
      sources.push_back({{}, {}, outer});
      part = &sources.back().Source;
      outer = false;
    } else if (token.IsWord("on")) {
      part = &sources.back().Condition;
    } else if (token.IsOperator("(")) {
      const std::size_t close = ClosingBracket(tokens, at);
      for (; at < std::min(close, end - 1); ++at) part->push_back(tokens[at]);
      part->push_back(tokens[at]);
    } else {
      part->push_back(token);
    }
  }
  return sources;
}

/// The table's own name in "T", "T a", "T as a" or "main.T a"; empty for a bracketed select.
std::string_view TableName(const TTokens& source) {
  if (source.empty() || !source[0].IsName()) return {};
  std::size_t at = 0;
  while (at + 2 < source.size() && source[at + 1].IsOperator(".")) at += 2;
  return source[at].Name();
}

std::string_view AliasName(const TTokens& source) {
  return source.size() > 1 && source.back().IsName() ? source.back().Name() : std::string_view();
}

/// Index of the source that the update means: by its alias, otherwise the first of the table's name.
std::size_t FindTarget(const std::vector<TJoinedSource>& sources, std::string_view updated) {
  for (std::size_t i = 0; i < sources.size(); ++i) {
    if (zanrole::SameText(AliasName(sources[i].Source), updated)) return i;
  }
  for (std::size_t i = 0; i < sources.size(); ++i) {
    if (zanrole::SameText(TableName(sources[i].Source), updated)) return i;
  }
  return sources.size();
}

/// Puts a statement together; what is put in stands behind a blank.
class TComposer {
 public:
  void Word(std::string_view text) { FTokens.push_back({TTokenKind::Word, " ", text}); }
  void Operator(std::string_view text) { FTokens.push_back({TTokenKind::Operator, " ", text}); }
  void Tokens(const TTokens& tokens) {
    const std::size_t first = FTokens.size();
    FTokens.insert(FTokens.end(), tokens.begin(), tokens.end());
    // What stood behind a comma or a bracket may now stand behind a word.
    if (first > 0 && first < FTokens.size() && FTokens[first].Before.empty()) FTokens[first].Before = " ";
  }
  void Condition(const TTokens& condition) {
    if (condition.empty()) return;
    Word(FHasCondition ? "and" : "where");
    FHasCondition = true;
    Operator("(");
    Tokens(condition);
    Operator(")");
  }
  TTokens Take() { return std::move(FTokens); }

 private:
  TTokens FTokens;
  bool FHasCondition = false;
};

/// The updated table takes the place of its source: "T a" becomes "T as a".
void AppendTarget(TComposer& composer, const TTokens& source) {
  const bool hasAlias = !AliasName(source).empty() && AliasName(source) != TableName(source);
  TTokens table = source;
  if (hasAlias) table.pop_back();
  if (hasAlias && table.back().IsWord("as")) table.pop_back();
  composer.Tokens(table);
  if (!hasAlias) return;
  composer.Word("as");
  composer.Tokens({source.back()});
}

TTokens Compose(const TTokens& tokens, const TUpdateFrom& update, std::size_t target) {
  TComposer composer;
  composer.Tokens(Slice(tokens, 0, update.Update + 1));
  AppendTarget(composer, update.Sources[target].Source);
  composer.Tokens(Slice(tokens, update.Set, update.From));
  bool first = true;
  for (std::size_t i = 0; i < update.Sources.size(); ++i) {
    if (i == target) continue;
    first ? composer.Word("from") : composer.Operator(",");
    composer.Tokens(update.Sources[i].Source);
    first = false;
  }
  for (const TJoinedSource& source : update.Sources) composer.Condition(source.Condition);
  if (update.Where < tokens.size()) composer.Condition(Slice(tokens, update.Where + 1, tokens.size()));
  return composer.Take();
}

}  // namespace

bool RewriteUpdateFrom(TTokens& tokens) {
  TUpdateFrom update{};
  const std::size_t end = tokens.size();
  if (tokens.empty() || !(tokens[0].IsWord("update") || tokens[0].IsWord("with"))) return false;
  update.Update = FindOuterWord(tokens, "update", 0, end);
  update.Set = FindOuterWord(tokens, "set", update.Update, end);
  update.From = FindOuterWord(tokens, "from", update.Set, end);
  if (update.From == end) return false;
  update.Where = FindOuterWord(tokens, "where", update.From, end);
  update.Sources = ReadSources(tokens, update.From + 1, update.Where);
  const TTokens updated = Slice(tokens, update.Update + 1, update.Set);
  const auto isOfName = [](const TToken& token) { return token.IsName() || token.IsOperator("."); };
  if (updated.empty() || !std::all_of(updated.begin(), updated.end(), isOfName)) return false;
  const std::size_t target = FindTarget(update.Sources, TableName(updated));
  if (target == update.Sources.size()) return false;
  for (const TJoinedSource& source : update.Sources) {
    const bool isSource =
        !source.Source.empty() && (source.Source[0].IsName() || source.Source[0].IsOperator("("));
    if (!isSource) return false;
    if (source.Outer)
      throw zanrole::EDatabaseError(
          "an update that reads its own table through an outer join is not supported", TokensToText(tokens));
  }
  tokens = Compose(tokens, update, target);
  return true;
}

}  // namespace zanhost
