#include <algorithm>
#include <array>
#include <functional>

#include "host/query/MariaDb/MariaDbDatabase.h"
#include "host/query/MariaDb/Rules.h"
#include "host/query/Parameters.h"

namespace zanhost {

namespace {

/// Only these gain by being prepared: a recursion costs much more than the reading of its text.
bool IsShortStatement(const TTokens& tokens) {
  static constexpr std::array<std::string_view, 4> kBeginnings{"select", "insert", "update", "delete"};
  return std::any_of(kBeginnings.begin(), kBeginnings.end(),
                     [&](std::string_view word) { return tokens.front().IsWord(word); });
}

/// Puts a marker in the place of each parameter and tells where each marker takes its value from.
std::vector<TParameterSource> TakeSources(TTokens& tokens, const TLiteralBinding& binding) {
  std::vector<TParameterSource> sources;
  auto literal = binding.Bound.begin();
  for (TToken& token : tokens) {
    if (token.Kind != TTokenKind::Parameter) continue;
    TParameterSource& source = sources.emplace_back();
    if (token.Text == "?") {
      source.Literal = *literal++;
    } else {
      source.Name = token.Text.substr(1);
      token.Text = "?";
    }
  }
  return sources;
}

}  // namespace

std::shared_ptr<TMariaDbPrepared> TMariaDbDatabase::Prepare(const TRun& run, const TTokens& adapted) {
  // A statement that is sent as a text gives its rows one by one.
  if (FConnection->IsRestricted()) return nullptr;
  const bool hasParameters = HasParameters(adapted);
  TTokens bound = adapted;
  TLiteralBinding binding;
  if ((hasParameters || IsShortStatement(adapted)) && !ListsAllColumns(adapted) &&
      !RulesReadLiterals(adapted))
    binding = BindLiterals(FShape, bound);
  if (!hasParameters && !(binding.MayBeKept && ComesAgain(run, bound))) return nullptr;
  auto statement = std::make_shared<TMariaDbPrepared>();
  UseDatabase(run);
  try {
    FillIn(*statement, bound, binding);
  } catch (const TMariaDbFault& fault) {
    if (fault.ConnectionLost || fault.Stopped) throw;
    // Faults are told in terms of the module's text; and a place that takes no parameter may take a literal.
    if (hasParameters) {
      if (binding.Bound.empty()) throw;
      binding = {};
      FillIn(*statement, bound = adapted, binding);
    }
  }
  CacheOf(run).Add(FShape, binding, statement);
  return statement;
}

void TMariaDbDatabase::FillIn(TMariaDbPrepared& statement, TTokens& tokens, const TLiteralBinding& binding) {
  statement.Sources = TakeSources(tokens, binding);
  TMySqlStatementHandle handle = FConnection->Prepare(TokensToText(tokens));
  if (mysql_stmt_param_count(handle.get()) != statement.Sources.size())
    throw TMariaDbFault{"The statement holds a parameter without a name.", "nameless parameter"};
  statement.Handle = std::move(handle);
}

/// A statement is prepared when it comes for the second time: for one that never comes again the preparation
/// would be one more round trip.
bool TMariaDbDatabase::ComesAgain(const TRun& run, const TTokens& bound) {
  const std::size_t hash = std::hash<std::string>()(DatabaseOf(run) + "\n" + TokensToText(bound));
  std::size_t& sent = FSentOnce[hash % FSentOnce.size()];
  const bool again = sent == hash;
  sent = hash;
  return again;
}

}  // namespace zanhost
