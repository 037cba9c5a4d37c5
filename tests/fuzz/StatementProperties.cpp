#include "tests/fuzz/StatementProperties.h"

#include <sqlite3.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "Frame/Host/Zandbs.h"
#include "host/query/Adaptation.h"
#include "host/query/LiteralBinding.h"
#include "host/query/MariaDb/Fault.h"
#include "host/query/MariaDb/Rules.h"
#include "host/query/Sqlite/Functions.h"
#include "host/query/Sqlite/Handles.h"
#include "host/query/Sqlite/Rules.h"
#include "host/query/StatementPattern.h"

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

/// The rules of one engine.
struct TRuleSet {
  std::string_view Engine;
  std::span<const TAdaptationRule> (*Rules)();
  /// A rule decides by what a literal of this statement holds.
  bool (*ReadsLiterals)(const TTokens& statement);
  /// A rule that gives a statement the meaning that the module means, which the engine does not give it.
  std::string_view MeaningRule;
  /// Null for an engine that only a server could ask.
  bool (*Prepares)(const std::string& text);
};

bool PreparesOnSqlite(const std::string& text) { return Scratch().Prepares(text); }
bool ReadsNoLiterals(const TTokens&) { return false; }

constexpr TRuleSet kRuleSets[]{
    {"SQLite", zanhost::SqliteRules, ReadsNoLiterals, "update-from", PreparesOnSqlite},
    {"MariaDB", zanhost::MariaDbRules, zanhost::RulesReadLiterals, "", nullptr},
    {"MariaDB in Oracle mode", zanhost::OracleModeRules, ReadsNoLiterals, "", nullptr},
};

/// The statement with the same content in all literals of a kind.
std::string WithoutContents(TTokens tokens) {
  for (TToken& token : tokens) {
    if (token.Kind == TTokenKind::Number) token.Text = "0";
    if (token.Kind == TTokenKind::Text) token.Text = "''";
    if (token.Kind == TTokenKind::NationalText) token.Text = "N''";
  }
  return zanhost::TokensToText(tokens);
}

/// Alone, a statement that starts with "begin" is a block.
bool MayStandAlone(const TTokens& tokens) { return tokens.empty() || !tokens.front().IsWord("begin"); }

std::string BrokenShape(const TRuleSet& set, const TStatementShape& shape, const TTokens& tokens,
                        const TTokens& adapted) {
  if (!shape.HasPlainLiterals || !MayStandAlone(tokens) || !MayStandAlone(adapted)) return {};
  TStatementShape again;
  zanhost::TStatementReader(shape.Shape).Read(again);
  if (again.Shape != shape.Shape) return "the shape of a shape is another one";
  if (!set.ReadsLiterals(tokens) &&
      WithoutContents(adapted) !=
          WithoutContents(ApplyRules(zanhost::Tokenize(shape.Shape), set.Rules()).Tokens))
    return "the rules do something else to another statement of the shape";
  TTokens bound = adapted;
  const zanhost::TLiteralBinding binding = zanhost::BindLiterals(shape, bound);
  const auto known = [&](std::size_t literal) { return literal < shape.Literals.size(); };
  if (!std::all_of(binding.Bound.begin(), binding.Bound.end(), known))
    return "a bound literal is not of the text";
  return {};
}

std::string BrokenRules(const TRuleSet& set, const TStatementShape& shape) {
  const TTokens tokens = zanhost::Tokenize(shape.Text);
  const TAdapted adapted = ApplyRules(tokens, set.Rules());
  if (!adapted.Broken.empty()) return adapted.Broken;
  const std::string sent = zanhost::TokensToText(adapted.Tokens);
  const bool hasZero = shape.Text.find('\0') != std::string_view::npos;
  if (set.Prepares != nullptr && !adapted.Had(set.MeaningRule) && !hasZero &&
      set.Prepares(std::string(shape.Text)) && !set.Prepares(sent))
    return "the statement cannot be prepared after adaptation: " + sent;
  return BrokenShape(set, shape, tokens, adapted.Tokens);
}

/// Each rule set is tried on its own: one may refuse a statement that another takes.
std::string BrokenStatement(const TStatementShape& shape) {
  for (const TRuleSet& set : kRuleSets) {
    try {
      const std::string broken = BrokenRules(set, shape);
      if (!broken.empty()) return std::string(set.Engine) + ": " + broken;
    } catch (const zanrole::EDatabaseError&) {
      // A rule may refuse a statement.
    }
  }
  return {};
}

std::string BrokenCall(std::string_view text) {
  const std::string call = "call MySql_execute_MultiSql(" + zanrole::QuotedStr(text) + ")";
  if (zanhost::StatementsOfCall(call) != std::string(text))
    return "a call holds another text than was quoted";
  try {
    zanhost::StatementsOfCall(text);
    zanhost::StatementsOfCall("call MySql_execute_MultiSql(" + std::string(text) + ")");
  } catch (const zanhost::TMariaDbFault&) {
    // A call may be refused.
  }
  return {};
}

bool HasClosedBrackets(const TTokens& tokens) {
  int depth = 0;
  for (const TToken& token : tokens) {
    if (token.IsOperator("(")) ++depth;
    if (token.IsOperator(")") && --depth < 0) return false;
  }
  return depth == 0;
}

/// What a pattern takes must be what the reader reads.
std::string BrokenPattern(const zanhost::TStatementPattern& pattern, zanhost::TStatementReader reader) {
  TStatementShape read;
  TStatementShape like;
  zanhost::TStatementReader plain = reader;
  if (!reader.ReadLike(pattern, like)) return {};
  if (!plain.Read(read) || read.Text != like.Text || !read.HasPlainLiterals)
    return "a pattern takes another statement";
  const auto same = [](const TToken& a, const TToken& b) { return a.Kind == b.Kind && a.Text == b.Text; };
  if (!std::equal(read.Literals.begin(), read.Literals.end(), like.Literals.begin(), like.Literals.end(),
                  same))
    return "a pattern takes other literals";
  return {};
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

std::string BrokenProperty(std::string_view text) {
  if (!text.starts_with(zanhost::TokensToText(zanhost::Tokenize(text))))
    return "the tokens do not make the text";
  std::string broken = BrokenCall(text);
  zanhost::TStatementReader reader(text);
  std::optional<zanhost::TStatementPattern> last;
  TStatementShape shape;
  while (broken.empty()) {
    if (last) broken = BrokenPattern(*last, reader);
    if (!reader.Read(shape)) break;
    if (broken.empty()) broken = BrokenStatement(shape);
    last.reset();
    if (shape.HasPlainLiterals && HasClosedBrackets(zanhost::Tokenize(shape.Text))) last.emplace(shape);
  }
  return broken;
}

}  // namespace zantest
