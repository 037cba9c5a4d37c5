#include "host/query/Adaptation.h"

#include "host/query/StatementReader.h"

namespace zanhost {

bool Adapt(TTokens& tokens, std::span<const TAdaptationRule> rules) {
  if (EndsInsideQuotes(tokens)) return false;
  bool changed = false;
  for (const TAdaptationRule& rule : rules) changed = rule.Apply(tokens) || changed;
  return changed;
}

TStatementTexts SplitStatements(std::string_view text) {
  TStatementTexts texts;
  TStatementReader reader(text);
  for (TStatementShape shape; reader.Read(shape);) texts.Statements.push_back(Tokenize(shape.Text));
  texts.IsBatch = reader.IsBatch();
  return texts;
}

}  // namespace zanhost
