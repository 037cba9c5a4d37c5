#include <algorithm>

#include "host/query/Adaptation.h"
#include "host/query/CallerText.h"
#include "host/query/RecurringStatements.h"
#include "host/query/Redaction.h"
#include "host/query/Sqlite/Rules.h"
#include "host/query/Sqlite/SqliteDatabase.h"
#include "host/query/Trace.h"

namespace zanhost {

using zanrole::TZanValue;

void TSqliteDatabase::Run(zanrole::TZANQuery& query, std::string_view database, zanrole::TDataSet* result) {
  TRun run{query, database, query.SQL().Text(), result};
  const bool traced = FTrace != nullptr;
  const auto start = traced ? std::chrono::steady_clock::now() : std::chrono::steady_clock::time_point();
  const sqlite3_int64 changesBefore = sqlite3_total_changes64(FConnection.Handle());
  try {
    Execute(run);
  } catch (const TSqliteFault& fault) {
    if (traced) TraceRun(run, start, changesBefore, &fault);
    run.Query.Close();
    throw zanrole::EDatabaseError(fault.Message, RedactStatement(run.Text));
  }
  if (traced) TraceRun(run, start, changesBefore, nullptr);
}

void TSqliteDatabase::Execute(TRun& run) {
  FConnection.BeginStatement();
  if (FAccess == TAccess::Restricted) CheckCallerText(run.Text);
  if (TSqlitePrepared* const known = FKnown.Find(run.Text, FShape.Literals))
    return ExecuteSingle(run, *known, FShape.Literals);
  TStatementReader reader(run.Text);
  const bool hasStatement = reader.Read(FShape);
  if (reader.IsBatch()) return ExecuteBatch(run, reader, hasStatement);
  if (!hasStatement) throw TSqliteFault{"There is no statement.", "no statement"};
  auto statement = FCache.Find(FShape);
  if (statement == nullptr)
    statement = Prepare();
  else
    FKnown.Note(FShape, statement);
  ExecuteSingle(run, *statement, FShape.Literals);
}

void TSqliteDatabase::CheckCallerText(const std::string& text) {
  if (std::string why = WhyNotSent(text); !why.empty()) throw TSqliteFault{std::move(why), "refused"};
}

void TSqliteDatabase::ExecuteSingle(TRun& run, TSqlitePrepared& statement, const TTokens& literals) {
  if (run.Result != nullptr && sqlite3_column_count(statement.Handle.get()) == 0)
    throw TSqliteFault{"The statement gives no result.", "no result"};
  ExecuteStatement(run, statement, literals);
}

void TSqliteDatabase::ExecuteBatch(TRun& run, TStatementReader& reader, bool hasStatement) {
  TSqliteTransaction transaction(FConnection);
  TRecurringStatements<std::shared_ptr<TSqlitePrepared>> recurring;
  while (hasStatement) {
    const auto statement = FindStatement();
    if (statement->MayBeKept && statement->Fixed.empty()) {
      recurring.Note(FShape, statement);
    } else {
      recurring.Forget();
    }
    ExecuteStatement(run, *statement, FShape.Literals);
    while (const auto* known = recurring.Read(reader, FShape))
      ExecuteStatement(run, **known, FShape.Literals);
    hasStatement = reader.Read(FShape);
  }
  if (reader.LacksEnd()) throw TSqliteFault{"The batch has a begin without an end.", "no end"};
  if (run.Result != nullptr && !run.HasResult)
    throw TSqliteFault{"None of the statements gives a result.", "no result"};
  transaction.Commit();
}

void TSqliteDatabase::ExecuteStatement(TRun& run, TSqlitePrepared& statement, const TTokens& literals) {
  ++run.Started;
  if (!statement.Sources.empty()) Bind(statement, run.Query, literals);
  const TStatementReset reset(statement.Handle.get());
  const bool givesRows = sqlite3_column_count(statement.Handle.get()) > 0;
  if (givesRows && run.Result != nullptr && !run.HasResult) return ReadResult(run, statement);
  while (FConnection.Step(statement.Handle.get())) {
  }
}

namespace {

struct TBinder {
  sqlite3_stmt* Statement;
  int Index;

  // The values outlive the run of the statement, so that texts need no copy.
  int operator()(std::monostate) const { return sqlite3_bind_null(Statement, Index); }
  int operator()(std::int64_t number) const { return sqlite3_bind_int64(Statement, Index, number); }
  int operator()(double number) const { return sqlite3_bind_double(Statement, Index, number); }
  int operator()(bool truth) const { return sqlite3_bind_int(Statement, Index, truth ? 1 : 0); }
  int operator()(std::string_view text) const { return BindText(text, SQLITE_STATIC); }
  int operator()(zanrole::TDateTime time) const {
    return BindText(zanrole::DateTimeToText(time), SQLITE_TRANSIENT);
  }

  int BindText(std::string_view text, sqlite3_destructor_type keep) const {
    return sqlite3_bind_text64(Statement, Index, text.data(), text.size(), keep, SQLITE_UTF8);
  }
};

int BindLiteral(const TBinder& binder, const TToken& literal) {
  if (literal.Kind == TTokenKind::Number) return binder(IntegerOf(literal));
  if (const auto text = WrittenContent(literal)) return binder(*text);
  return binder.BindText(LiteralContent(literal), SQLITE_TRANSIENT);
}

void AddCell(zanrole::TZanCells& cells, sqlite3_stmt* statement, int column) {
  // Reading it in parts would take a lock each time, though one thread alone uses the connection.
  sqlite3_value* const value = sqlite3_column_value(statement, column);
  switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
      return cells.AddInteger(sqlite3_value_int64(value));
    case SQLITE_FLOAT:
      return cells.AddReal(sqlite3_value_double(value));
    case SQLITE_NULL:
      return cells.AddNull();
    default:
      break;
  }
  const auto* data = static_cast<const char*>(sqlite3_value_blob(value));
  const auto size = static_cast<std::size_t>(sqlite3_value_bytes(value));
  cells.AddText({data != nullptr ? data : "", size});
}

/// Room for the values of most results.
constexpr std::size_t kUsualValues = 16;

/// Reads the names of the columns when the engine has prepared the statement anew since they were read.
void RefreshColumns(TSqlitePrepared& statement) {
  sqlite3_stmt* const handle = statement.Handle.get();
  const int prepared = sqlite3_stmt_status(handle, SQLITE_STMTSTATUS_REPREPARE, 0);
  if (statement.ColumnsReadAt == prepared) return;
  statement.Columns.clear();
  for (int i = 0; i < sqlite3_column_count(handle); ++i)
    statement.Columns.emplace_back(sqlite3_column_name(handle, i));
  statement.ColumnsReadAt = prepared;
}

}  // namespace

void TSqliteDatabase::Bind(TSqlitePrepared& statement, zanrole::TZANQuery& query, const TTokens& literals) {
  static const TZanValue kNull;
  TBinder binder{statement.Handle.get(), 0};
  for (const TParameterSource& source : statement.Sources) {
    ++binder.Index;
    if (source.Literal != TParameterSource::NoLiteral) {
      FConnection.Check(BindLiteral(binder, literals[source.Literal]));
    } else {
      const zanrole::TParam* param = query.Params().Find(source.Name);
      FConnection.Check(std::visit(binder, param != nullptr ? param->Value() : kNull));
    }
  }
}

void TSqliteDatabase::ReadResult(TRun& run, TSqlitePrepared& statement) {
  sqlite3_stmt* const handle = statement.Handle.get();
  zanrole::TZanCells cells;
  cells.Reserve(kUsualValues);
  bool row = FConnection.Step(handle);
  RefreshColumns(statement);
  const int columns = static_cast<int>(statement.Columns.size());
  for (; row; row = FConnection.Step(handle)) {
    for (int column = 0; column < columns; ++column) AddCell(cells, handle, column);
    if (cells.Size() > FConnection.Limits().ResultValues ||
        cells.TextBytes() > FConnection.Limits().ResultBytes)
      throw TSqliteFault{
          "The statement was stopped: its result is too large, or it follows a loop in the data.",
          "result too large"};
  }
  run.Result->Load(statement.Columns, std::move(cells));
  run.HasResult = true;
}

namespace {

/// What the first `count` statements of a text were adapted to, with the literals in their places; empty for
/// a single statement that no rule changed.
std::string SentTexts(std::string_view text, std::size_t count) {
  TStatementTexts texts = SplitStatements(text);
  texts.Statements.resize(std::min(texts.Statements.size(), count));
  bool differs = texts.IsBatch;
  std::string sent;
  for (TTokens& tokens : texts.Statements) {
    differs = Adapt(tokens, SqliteRules()) || differs;
    sent += (sent.empty() ? "" : ";\n") + TokensToText(tokens);
  }
  return differs ? sent : std::string();
}

}  // namespace

void TSqliteDatabase::TraceRun(const TRun& run, std::chrono::steady_clock::time_point start,
                               sqlite3_int64 changesBefore, const TSqliteFault* fault) {
  const auto time = std::chrono::steady_clock::now() - start;
  TTraceEntry entry;
  entry.Database = run.Database;
  entry.Text = run.Text;
  const std::string sent = SentTexts(run.Text, run.Started);
  entry.Sent = sent;
  entry.Params = &run.Query.Params();
  entry.Rows =
      run.HasResult ? run.Result->RowCount() : sqlite3_total_changes64(FConnection.Handle()) - changesBefore;
  entry.Time = std::chrono::duration_cast<std::chrono::microseconds>(time);
  if (fault != nullptr) {
    entry.Error = fault->Message;
    entry.ErrorKind = fault->Kind;
    entry.Rows = 0;
  }
  FTrace->Write(entry);
}

}  // namespace zanhost
