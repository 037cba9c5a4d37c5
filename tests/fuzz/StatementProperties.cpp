#include "tests/fuzz/StatementProperties.h"

#include <sqlite3.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <vector>

#include "Frame/Host/Zandbs.h"
#include "host/query/Adaptation.h"
#include "host/query/LiteralBinding.h"
#include "host/query/MariaDb/Fault.h"
#include "host/query/MariaDb/Rules.h"
#include "host/query/Sqlite/Functions.h"
#include "host/query/Sqlite/Handles.h"
#include "host/query/Sqlite/Rules.h"

namespace zantest {

using zanhost::TAdaptationRule;
using zanhost::TLiteralEffect;
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

/// The rule has done to the literals what it says, and no more.
bool KeptItsWord(const TAdaptationRule& rule, bool changed, const std::vector<std::string>& before,
                 const std::vector<std::string>& after) {
  if (!changed || rule.Literals == TLiteralEffect::Keeps) return before == after;
  const bool keepsAll = std::includes(after.begin(), after.end(), before.begin(), before.end());
  return rule.Literals == TLiteralEffect::Changes || keepsAll;
}

/// What has become of a statement, as zanhost::Adapt would make it.
struct TAdapted {
  TTokens Tokens;
  std::vector<std::string_view> Rules;  ///< those that applied
  std::string Broken;

  bool Had(std::string_view rule) const { return std::find(Rules.begin(), Rules.end(), rule) != Rules.end(); }
};

TAdapted ApplyRules(const TTokens& statement, std::span<const TAdaptationRule> rules) {
  TAdapted adapted{statement, {}, {}};
  if (zanhost::EndsInsideQuotes(statement)) return adapted;
  for (const TAdaptationRule& rule : rules) {
    const std::vector<std::string> before = Literals(adapted.Tokens);
    const bool changed = rule.Apply(adapted.Tokens);
    if (!KeptItsWord(rule, changed, before, Literals(adapted.Tokens)))
      adapted.Broken = "the rule " + std::string(rule.Name) + " changed a literal";
    if (changed) adapted.Rules.push_back(rule.Name);
  }
  if (Literals(adapted.Tokens) != Literals(zanhost::Tokenize(zanhost::TokensToText(adapted.Tokens))))
    adapted.Broken = "the text that is sent holds other literals";
  return adapted;
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
  const TAdapted adapted = ApplyRules(zanhost::Tokenize(shape.Text), zanhost::SqliteRules());
  if (!adapted.Broken.empty()) return adapted.Broken;
  const std::string sent = zanhost::TokensToText(adapted.Tokens);
  const bool hasZero = shape.Text.find('\0') != std::string_view::npos;
  // The engine would give the update another meaning than the module.
  if (!adapted.Had("update-from") && !hasZero && Scratch().Prepares(std::string(shape.Text)) &&
      !Scratch().Prepares(sent))
    return "the statement cannot be prepared after adaptation: " + sent;
  return BrokenShape(shape, adapted.Tokens);
}

/// The statements of a call are a literal to the tokenizer: taken out and quoted again, they are the same.
std::string BrokenCall(std::string_view text) {
  const std::optional<std::string> statements = zanhost::StatementsOfCall(text);
  const TTokens tokens = zanhost::Tokenize(text);
  if (!statements || tokens.size() != 5 || !IsText(tokens[3])) return {};
  const std::string quoted = zanrole::QuotedStr(*statements);
  return zanhost::LiteralContent(zanhost::Tokenize(quoted).at(0)) == *statements
             ? ""
             : "the statements of a call are others when they are quoted again";
}

}  // namespace

std::string BrokenLiterals(std::string_view text, std::span<const TAdaptationRule> rules) {
  zanhost::TStatementReader reader(text);
  for (TStatementShape shape; reader.Read(shape);) {
    try {
      const std::string broken = ApplyRules(zanhost::Tokenize(shape.Text), rules).Broken;
      if (!broken.empty()) return broken;
    } catch (const zanrole::EDatabaseError&) {
      // A rule may refuse a statement.
    }
  }
  return {};
}

std::string BrokenOnMariaDb(std::string_view text) {
  try {
    const std::string broken = BrokenCall(text);
    if (!broken.empty()) return broken;
    return BrokenLiterals(zanhost::StatementsOfCall(text).value_or(std::string(text)),
                          zanhost::MariaDbRules());
  } catch (const zanhost::TMariaDbFault&) {
    return {};  // A call with parameters is refused.
  }
}

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
