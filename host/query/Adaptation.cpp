#include "host/query/Adaptation.h"

#include <iterator>

namespace zanhost {

bool Adapt(TTokens& tokens, std::span<const TAdaptationRule> rules) {
  bool changed = false;
  for (const TAdaptationRule& rule : rules) changed = rule.Apply(tokens) || changed;
  return changed;
}

namespace {

/// Takes "begin" and "end" away when they enclose everything; semicolons may follow the "end".
bool TakeEnclosingBlock(TTokens& tokens) {
  if (tokens.empty() || !tokens.front().IsWord("begin")) return false;
  std::size_t last = tokens.size();
  while (last > 0 && tokens[last - 1].IsOperator(";")) --last;
  if (last < 2 || !tokens[last - 1].IsWord("end")) return false;
  tokens.resize(last - 1);
  tokens.erase(tokens.begin());
  return true;
}

}  // namespace

TStatementTexts SplitStatements(std::string_view text) {
  TTokens tokens = Tokenize(text);
  TStatementTexts texts;
  texts.IsBatch = TakeEnclosingBlock(tokens);
  int depth = 0;
  auto first = tokens.begin();
  const auto take = [&](TTokens::iterator end) {
    if (first != end) texts.Statements.emplace_back(first, end);
  };
  for (auto at = tokens.begin(); at != tokens.end(); ++at) {
    if (at->IsOperator("(")) ++depth;
    if (at->IsOperator(")")) --depth;
    if (depth > 0 || !at->IsOperator(";")) continue;
    take(at);
    first = std::next(at);
  }
  take(tokens.end());
  texts.IsBatch = texts.IsBatch || texts.Statements.size() > 1;
  return texts;
}

}  // namespace zanhost
