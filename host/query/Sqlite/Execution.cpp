#include "host/query/Redaction.h"
#include "host/query/Sqlite/Rules.h"
#include "host/query/Sqlite/SqliteDatabase.h"
#include "host/query/Trace.h"

namespace zanhost {

using zanrole::TZanValue;

void TSqliteDatabase::Run(zanrole::TZANQuery& query, std::string_view database, zanrole::TDataSet* result) {
  TRun run{query, database, query.SQL().Text(), result, false, {}};
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
  if (const auto cached = FCache.Find(run.Text)) return ExecuteStatement(run, *cached);
  TStatementTexts texts = SplitStatements(run.Text);
  if (texts.IsBatch) return ExecuteBatch(run, texts);
  if (texts.Statements.empty()) throw TSqliteFault{"There is no statement.", "no statement"};
  const auto statement = Prepare(texts.Statements.front(), true);
  if (run.Result != nullptr && sqlite3_column_count(statement->Handle.get()) == 0)
    throw TSqliteFault{"The statement gives no result.", "no result"};
  FCache.Add(run.Text, statement);
  ExecuteStatement(run, *statement);
}

void TSqliteDatabase::ExecuteBatch(TRun& run, TStatementTexts& texts) {
  TSqliteTransaction transaction(FConnection);
  for (TTokens& tokens : texts.Statements) ExecuteStatement(run, *Prepare(tokens, false));
  if (run.Result != nullptr && !run.HasResult)
    throw TSqliteFault{"None of the statements gives a result.", "no result"};
  transaction.Commit();
}

std::shared_ptr<TPreparedStatement> TSqliteDatabase::Prepare(TTokens& tokens, bool persistent) {
  auto statement = std::make_shared<TPreparedStatement>();
  const bool adapted = Adapt(tokens, SqliteRules());
  std::string text = TokensToText(tokens);
  statement->Handle = FConnection.Prepare(text, persistent);
  if (adapted || !persistent) statement->Sent = std::move(text);
  for (int i = 1; i <= sqlite3_bind_parameter_count(statement->Handle.get()); ++i) {
    const char* name = sqlite3_bind_parameter_name(statement->Handle.get(), i);
    statement->ParamNames.emplace_back(name != nullptr ? name + 1 : "");
  }
  return statement;
}

void TSqliteDatabase::ExecuteStatement(TRun& run, TPreparedStatement& statement) {
  if (FTrace != nullptr && !statement.Sent.empty())
    run.Sent += (run.Sent.empty() ? "" : ";\n") + statement.Sent;
  if (!statement.ParamNames.empty()) Bind(statement, run.Query.Params());
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
  int operator()(const std::string& text) const { return BindText(text, SQLITE_STATIC); }
  int operator()(zanrole::TDateTime time) const {
    return BindText(zanrole::DateTimeToText(time), SQLITE_TRANSIENT);
  }

  int BindText(const std::string& text, sqlite3_destructor_type keep) const {
    return sqlite3_bind_text64(Statement, Index, text.data(), text.size(), keep, SQLITE_UTF8);
  }
};

TZanValue ReadCell(sqlite3_stmt* statement, int column) {
  switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
      return std::int64_t{sqlite3_column_int64(statement, column)};
    case SQLITE_FLOAT:
      return sqlite3_column_double(statement, column);
    case SQLITE_NULL:
      return std::monostate{};
    default:
      break;
  }
  const auto* data = static_cast<const char*>(sqlite3_column_blob(statement, column));
  return std::string(data != nullptr ? data : "",
                     static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
}

/// Reads the names of the columns when the engine has prepared the statement anew since they were read.
void RefreshColumns(TPreparedStatement& statement) {
  sqlite3_stmt* const handle = statement.Handle.get();
  const int prepared = sqlite3_stmt_status(handle, SQLITE_STMTSTATUS_REPREPARE, 0);
  if (statement.ColumnsReadAt == prepared) return;
  statement.Columns.clear();
  for (int i = 0; i < sqlite3_column_count(handle); ++i)
    statement.Columns.emplace_back(sqlite3_column_name(handle, i));
  statement.ColumnsReadAt = prepared;
}

}  // namespace

void TSqliteDatabase::Bind(TPreparedStatement& statement, zanrole::TParams& params) {
  static const TZanValue kNull;
  for (std::size_t i = 0; i < statement.ParamNames.size(); ++i) {
    const zanrole::TParam* param = params.Find(statement.ParamNames[i]);
    const TBinder binder{statement.Handle.get(), static_cast<int>(i) + 1};
    FConnection.Check(std::visit(binder, param != nullptr ? param->Value() : kNull));
  }
}

void TSqliteDatabase::ReadResult(TRun& run, TPreparedStatement& statement) {
  sqlite3_stmt* const handle = statement.Handle.get();
  std::vector<TZanValue> cells;
  bool row = FConnection.Step(handle);
  RefreshColumns(statement);
  const int columns = static_cast<int>(statement.Columns.size());
  for (; row; row = FConnection.Step(handle)) {
    for (int column = 0; column < columns; ++column) cells.push_back(ReadCell(handle, column));
    if (cells.size() > FConnection.Limits().ResultValues)
      throw TSqliteFault{
          "The statement was stopped: its result is too large, or it follows a loop in the data.",
          "result too large"};
  }
  run.Result->Load(statement.Columns, std::move(cells));
  run.HasResult = true;
}

void TSqliteDatabase::TraceRun(const TRun& run, std::chrono::steady_clock::time_point start,
                               sqlite3_int64 changesBefore, const TSqliteFault* fault) {
  const auto time = std::chrono::steady_clock::now() - start;
  TTraceEntry entry;
  entry.Database = run.Database;
  entry.Text = run.Text;
  entry.Sent = run.Sent;
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
