#include "host/query/Adaptation.h"
#include "host/query/LiteralBinding.h"
#include "host/query/Sqlite/Rules.h"
#include "host/query/Sqlite/SqliteDatabase.h"

namespace zanhost {

namespace {

/// Fills in where the parameters take their values from; those without a name are the places of literals.
void ReadSources(TSqlitePrepared& statement, const TLiteralBinding& binding) {
  sqlite3_stmt* const handle = statement.Handle.get();
  auto literal = binding.Bound.begin();
  for (int i = 1; i <= sqlite3_bind_parameter_count(handle); ++i) {
    TParameterSource source;
    const char* const name = sqlite3_bind_parameter_name(handle, i);
    if (name != nullptr) {
      source.Name = name + 1;
    } else if (literal != binding.Bound.end()) {
      source.Literal = *literal++;
    }
    statement.Sources.push_back(std::move(source));
  }
}

}  // namespace

std::shared_ptr<TSqlitePrepared> TSqliteDatabase::FindStatement() {
  auto statement = FCache.Find(FShape);
  return statement != nullptr ? statement : Prepare();
}

std::shared_ptr<TSqlitePrepared> TSqliteDatabase::Prepare() {
  TTokens tokens = Tokenize(FShape.Text);
  Adapt(tokens, SqliteRules());
  const std::string text = TokensToText(tokens);
  auto statement = std::make_shared<TSqlitePrepared>();
  TLiteralBinding binding = BindLiterals(FShape, tokens);
  try {
    statement->Handle = FConnection.Prepare(TokensToText(tokens), binding.MayBeKept);
  } catch (const TSqliteFault&) {
    if (binding.Bound.empty()) throw;
    // Faults are told in terms of the module's text; and a place that takes no parameter may take a literal.
    statement->Handle = FConnection.Prepare(text, false);
    binding = {};
  }
  ReadSources(*statement, binding);
  statement->MayBeKept = binding.MayBeKept;
  statement->Fixed = binding.Fixed;
  FCache.Add(FShape, binding, statement);
  return statement;
}

}  // namespace zanhost
