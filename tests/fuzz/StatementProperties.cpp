#include "tests/fuzz/StatementProperties.h"

#include <sqlite3.h>

#include <algorithm>
#include <memory>
#include <vector>

#include "Frame/Host/Zandbs.h"
#include "host/query/Adaptation.h"
#include "host/query/LiteralBinding.h"
#include "host/query/Sqlite/Functions.h"
#include "host/query/Sqlite/Handles.h"
#include "host/query/Sqlite/Rules.h"

namespace zantest {

using zanhost::TStatementShape;
using zanhost::TToken;
using zanhost::TTokenKind;
using zanhost::TTokens;

namespace {

/// A database in memory with tables that the texts of the corpus name.
class TScratchDatabase {
 public:
  TScratchDatabase() {
    sqlite3* handle = nullptr;
    sqlite3_open(":memory:", &handle);
    FConnection.reset(handle);
    zanhost::RegisterFunctions(handle);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    sqlite3_exec(
        handle,
        "create table T (ID int, Name nvarchar(200), Parent int, Sequence int, primary key (ID)) without "
        "rowid;"
        "create table U (ID int, T int, Note text);",
        nullptr, nullptr, nullptr);
  }

  bool Prepares(const std::string& text) {
    sqlite3_stmt* statement = nullptr;
    const char* rest = nullptr;
    const int code =
        sqlite3_prepare_v2(FConnection.get(), text.data(), static_cast<int>(text.size()), &statement, &rest);
    const zanhost::TStatementHandle prepared(statement);
    return code == SQLITE_OK && statement != nullptr;
  }

 private:
  zanhost::TConnectionHandle FConnection;
};

TScratchDatabase& Scratch() {
  static TScratchDatabase database;
  return database;
}

bool IsText(const TToken& token) {
  return token.Kind == TTokenKind::Text || token.Kind == TTokenKind::NationalText;
}

/// The contents of the literals in an order of their own: a rule may move them.
std::vector<std::string> Literals(const TTokens& tokens) {
  std::vector<std::string> literals;
  for (const TToken& token : tokens) {
    if (IsText(token)) literals.push_back("'" + zanhost::LiteralContent(token));
    if (token.Kind == TTokenKind::Number) literals.emplace_back(token.Text);
  }
  std::sort(literals.begin(), literals.end());
  return literals;
}

/// Two rules give a statement another meaning than it has for the engine, the one that the module means.
struct TMeaningChange {
  bool Routine = false;
  bool UpdateFrom = false;
};

/// As zanhost::Adapt does, but tells which rules applied.
TMeaningChange ApplyRules(TTokens& tokens) {
  TMeaningChange change;
  if (zanhost::EndsInsideQuotes(tokens)) return change;
  for (const zanhost::TAdaptationRule& rule : zanhost::SqliteRules()) {
    const bool changed = rule.Apply(tokens);
    if (rule.Name == "routine") change.Routine = changed;
    if (rule.Name == "update-from") change.UpdateFrom = changed;
  }
  return change;
}

std::string BrokenShape(const TStatementShape& shape, const TTokens& adapted) {
  // Alone, a statement that starts with "begin" is a block.
  if (!shape.HasPlainLiterals || (!adapted.empty() && adapted.front().IsWord("begin"))) return {};
  TStatementShape again;
  zanhost::TStatementReader(shape.Shape).Read(again);
  if (again.Shape != shape.Shape) return "the shape of a shape is another one";
  TTokens tokens = adapted;
  const zanhost::TLiteralBinding binding = zanhost::BindLiterals(shape, tokens);
  const auto known = [&](std::size_t literal) { return literal < shape.Literals.size(); };
  if (!std::all_of(binding.Bound.begin(), binding.Bound.end(), known))
    return "a bound literal is not of the text";
  return {};
}

std::string BrokenStatement(const TStatementShape& shape) {
  const TTokens tokens = zanhost::Tokenize(shape.Text);
  TTokens adapted = tokens;
  const TMeaningChange change = ApplyRules(adapted);
  const std::string sent = zanhost::TokensToText(adapted);
  if (!change.Routine && Literals(tokens) != Literals(adapted)) return "a rule changed a literal";
  if (Literals(adapted) != Literals(zanhost::Tokenize(sent)))
    return "the text that is sent holds other literals";
  const bool hasZero = shape.Text.find('\0') != std::string_view::npos;
  if (!change.UpdateFrom && !hasZero && Scratch().Prepares(std::string(shape.Text)) &&
      !Scratch().Prepares(sent))
    return "the statement cannot be prepared after adaptation: " + sent;
  return BrokenShape(shape, adapted);
}

}  // namespace

std::string BrokenProperty(std::string_view text) {
  if (!text.starts_with(zanhost::TokensToText(zanhost::Tokenize(text))))
    return "the tokens do not make the text";
  zanhost::TStatementReader reader(text);
  for (TStatementShape shape; reader.Read(shape);) {
    try {
      const std::string broken = BrokenStatement(shape);
      if (!broken.empty()) return broken;
    } catch (const zanrole::EDatabaseError&) {
      // A rule may refuse a statement.
    }
  }
  return {};
}

}  // namespace zantest
