#include "host/query/MariaDb/MariaDbDatabase.h"
#include "host/query/MariaDb/Rules.h"
#include "host/query/MariaDb/Values.h"
#include "host/query/Redaction.h"
#include "host/query/Trace.h"

namespace zanhost {

using zanrole::TZanValue;

namespace {

/// Longer texts are lists of values that rarely come again.
constexpr std::size_t kGreatestCachedText = 16'384;

constexpr char kHiddenMessage[] = "The server refused a statement about passwords: ";

/// Puts a marker in the place of each parameter and gives the names.
std::vector<std::string> TakeParameters(TTokens& tokens) {
  std::vector<std::string> names;
  for (TToken& token : tokens) {
    if (token.Kind != TTokenKind::Parameter) continue;
    names.emplace_back(token.Text.substr(1));
    token.Text = "?";
  }
  return names;
}

/// "select *" and "a.*": what they give changes with the table.
bool ListsAllColumns(const TTokens& tokens) {
  for (std::size_t at = 1; at < tokens.size(); ++at) {
    const TToken& previous = tokens[at - 1];
    const bool beginsColumn = previous.IsWord("select") || previous.IsWord("distinct") ||
                              previous.IsOperator(",") || previous.IsOperator(".");
    if (tokens[at].IsOperator("*") && beginsColumn) return true;
  }
  return false;
}

std::string ShownMessage(const TMariaDbFault& fault, std::string_view text) {
  return fault.QuotesValues && TouchesPasswords(text) ? kHiddenMessage + fault.Kind : fault.Message;
}

}  // namespace

void TMariaDbDatabase::Run(zanrole::TZANQuery& query, bool onSystem, zanrole::TDataSet* result) {
  TRun run{query, onSystem, query.SQL().Text(), result};
  const auto start = std::chrono::steady_clock::now();
  try {
    Execute(run);
  } catch (const TMariaDbFault& fault) {
    TraceRun(run, start, &fault);
    query.Close();
    throw zanrole::EDatabaseError(ShownMessage(fault, run.Text), RedactStatement(run.Text));
  }
  TraceRun(run, start, nullptr);
}

void TMariaDbDatabase::UseDatabase(const std::string& database) {
  if (FConnection->IsLost()) FCache.Clear();
  FConnection->Use(database);
}

void TMariaDbDatabase::Execute(TRun& run) {
  const std::string& database = run.OnSystem ? FConnection->Url().System : FConnection->Url().Data;
  UseDatabase(database);
  const TRunningStatement running(*FConnection);
  // What a name means depends on the database in which the statement was prepared.
  std::string key = database + "\n" + run.Text;
  if (const auto cached = FCache.Find(key)) {
    ExecutePrepared(run, *cached);
  } else {
    TStatementTexts texts = SplitStatements(run.Text);
    if (texts.Statements.empty()) throw TMariaDbFault{"There is no statement.", "no statement"};
    if (texts.IsBatch) return ExecuteBatch(run, texts);
    ExecuteStatement(run, texts.Statements.front(), std::move(key));
  }
  if (run.Result != nullptr && !run.HasResult)
    throw TMariaDbFault{"The statement gives no result.", "no result"};
}

void TMariaDbDatabase::ExecuteBatch(TRun& run, TStatementTexts& texts) {
  TMariaDbTransaction transaction(*FConnection);
  for (TTokens& tokens : texts.Statements) ExecuteStatement(run, tokens, {});
  if (run.Result != nullptr && !run.HasResult)
    throw TMariaDbFault{"None of the statements gives a result.", "no result"};
  transaction.Commit();
}

void TMariaDbDatabase::ExecuteStatement(TRun& run, TTokens& tokens, std::string key) {
  std::string text = AdaptForMariaDb(tokens);
  TTokens adapted = Tokenize(text);
  std::vector<std::string> paramNames = TakeParameters(adapted);
  if (paramNames.empty()) return ExecuteText(run, text);
  const auto statement = Prepare(TokensToText(adapted), std::move(paramNames));
  // The client refuses the rows of a statement that gives another number of columns than when it was
  // prepared.
  const bool kept = !key.empty() && key.size() <= kGreatestCachedText && !ListsAllColumns(adapted);
  if (kept) FCache.Add(std::move(key), statement);
  ExecutePrepared(run, *statement);
}

void TMariaDbDatabase::ExecuteText(TRun& run, const std::string& text) {
  NoteSent(run, text);
  FConnection->Send(text);
  do {
    ReadTextResult(run);
  } while (FConnection->NextResult());
}

void TMariaDbDatabase::ReadTextResult(TRun& run) {
  const TMySqlResultHandle result(mysql_store_result(FConnection->Handle()));
  if (result == nullptr) {
    if (mysql_field_count(FConnection->Handle()) != 0) FConnection->Raise();
    run.Changed += static_cast<std::int64_t>(mysql_affected_rows(FConnection->Handle()));
    return;
  }
  if (run.Result == nullptr || run.HasResult) return;
  std::vector<std::string> columns;
  for (unsigned i = 0; i < result->field_count; ++i) columns.emplace_back(result->fields[i].name);
  std::vector<TZanValue> cells;
  cells.reserve(columns.size() * static_cast<std::size_t>(mysql_num_rows(result.get())));
  while (const MYSQL_ROW row = mysql_fetch_row(result.get())) {
    const unsigned long* lengths = mysql_fetch_lengths(result.get());
    for (unsigned i = 0; i < result->field_count; ++i)
      cells.push_back(row[i] != nullptr ? ReadCell(result->fields[i], row[i], lengths[i]) : TZanValue());
  }
  run.Result->Load(columns, std::move(cells));
  run.HasResult = true;
}

std::shared_ptr<TMariaDbPrepared> TMariaDbDatabase::Prepare(std::string text,
                                                            std::vector<std::string> paramNames) {
  auto statement = std::make_shared<TMariaDbPrepared>();
  statement->Handle.reset(mysql_stmt_init(FConnection->Handle()));
  if (statement->Handle == nullptr) FConnection->Raise();
  const my_bool measured = 1;
  mysql_stmt_attr_set(statement->Handle.get(), STMT_ATTR_UPDATE_MAX_LENGTH, &measured);
  if (mysql_stmt_prepare(statement->Handle.get(), text.data(), text.size()) != 0)
    FConnection->Raise(statement->Handle.get());
  statement->Sent = std::move(text);
  statement->ParamNames = std::move(paramNames);
  return statement;
}

void TMariaDbDatabase::ExecutePrepared(TRun& run, TMariaDbPrepared& statement) {
  static const TZanValue kNull;
  NoteSent(run, statement.Sent);
  MYSQL_STMT* const handle = statement.Handle.get();
  TMariaDbBinding binding(statement.ParamNames.size());
  for (std::size_t i = 0; i < statement.ParamNames.size(); ++i) {
    const zanrole::TParam* param = run.Query.Params().Find(statement.ParamNames[i]);
    binding.Set(i, param != nullptr ? param->Value() : kNull);
  }
  if (mysql_stmt_bind_param(handle, binding.Binds()) != 0 || mysql_stmt_execute(handle) != 0)
    FConnection->Raise(handle);
  int more = 0;
  do {
    ReadPreparedResult(run, handle);
    mysql_stmt_free_result(handle);
    more = mysql_stmt_next_result(handle);
  } while (more == 0);
  if (more > 0) FConnection->Raise(handle);
}

void TMariaDbDatabase::ReadPreparedResult(TRun& run, MYSQL_STMT* statement) {
  if (mysql_stmt_field_count(statement) == 0) {
    run.Changed += static_cast<std::int64_t>(mysql_stmt_affected_rows(statement));
    return;
  }
  if (mysql_stmt_store_result(statement) != 0) FConnection->Raise(statement);
  if (run.Result == nullptr || run.HasResult) return;
  const TMySqlResultHandle metadata(mysql_stmt_result_metadata(statement));
  if (metadata == nullptr) FConnection->Raise(statement);
  std::vector<std::string> columns;
  for (unsigned i = 0; i < metadata->field_count; ++i) columns.emplace_back(metadata->fields[i].name);
  std::vector<TZanValue> cells;
  if (!ReadRows(statement, *metadata, cells)) FConnection->Raise(statement);
  run.Result->Load(columns, std::move(cells));
  run.HasResult = true;
}

void TMariaDbDatabase::NoteSent(TRun& run, const std::string& text) const {
  if (FTrace != nullptr) run.Sent += (run.Sent.empty() ? "" : ";\n") + text;
}

void TMariaDbDatabase::TraceRun(const TRun& run, std::chrono::steady_clock::time_point start,
                                const TMariaDbFault* fault) {
  if (FTrace == nullptr) return;
  const auto time = std::chrono::steady_clock::now() - start;
  TTraceEntry entry;
  entry.Database = run.OnSystem ? "system" : "data";
  entry.Text = run.Text;
  if (run.Sent != run.Text) entry.Sent = run.Sent;
  entry.Params = &run.Query.Params();
  entry.Rows = run.HasResult ? run.Result->RowCount() : run.Changed;
  entry.Time = std::chrono::duration_cast<std::chrono::microseconds>(time);
  if (fault != nullptr) {
    entry.Error = fault->Message;
    entry.ErrorKind = fault->Kind;
    entry.Rows = 0;
  }
  FTrace->Write(entry);
}

}  // namespace zanhost
