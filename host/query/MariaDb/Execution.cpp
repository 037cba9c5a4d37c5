#include <numeric>

#include "host/query/CallerText.h"
#include "host/query/MariaDb/MariaDbDatabase.h"
#include "host/query/MariaDb/Rules.h"
#include "host/query/MariaDb/Values.h"
#include "host/query/RestrictedDatabase.h"

namespace zanhost {

using zanrole::TZanCells;
using zanrole::TZanValue;

namespace {

std::string AdaptedText(const TStatementShape& shape, std::span<const TAdaptationRule> rules) {
  TTokens tokens = Tokenize(shape.Text);
  Adapt(tokens, rules);
  return TokensToText(tokens);
}

/// Adds the next row of a result to the cells; false when there is none.
bool ReadRow(MYSQL_RES& result, TZanCells& cells) {
  const MYSQL_ROW row = mysql_fetch_row(&result);
  if (row == nullptr) return false;
  const unsigned long* const lengths = mysql_fetch_lengths(&result);
  for (unsigned i = 0; i < result.field_count; ++i) AddCell(cells, result.fields[i], row[i], lengths[i]);
  return true;
}

/// All rows of a result that is here as a whole.
TZanCells ReadRows(MYSQL_RES& result) {
  TZanCells cells;
  cells.Reserve(result.field_count * static_cast<std::size_t>(mysql_num_rows(&result)));
  while (ReadRow(result, cells)) {
  }
  return cells;
}

}  // namespace

void TMariaDbDatabase::Run(zanrole::TZANQuery& query, bool onSystem, zanrole::TDataSet* result) {
  TRun run{query, onSystem, query.SQL().Text(), result, FConnection->RoundTrips()};
  try {
    Execute(run);
  } catch (const TMariaDbFault& fault) {
    FailRun(run, FTrace, FConnection->RoundTrips(), {fault.Message, fault.Kind, fault.QuotesValues});
  }
  EndRun(run, FTrace, FConnection->RoundTrips());
}

const std::string& TMariaDbDatabase::DatabaseOf(const TRun& run) const {
  return run.OnSystem ? FConnection->Url().System : FConnection->Url().Data;
}

TStatementCache<TMariaDbPrepared>& TMariaDbDatabase::CacheOf(const TRun& run) {
  return FCaches[run.OnSystem ? 1 : 0];
}

void TMariaDbDatabase::UseDatabase(const TRun& run) { FConnection->Use(DatabaseOf(run)); }

void TMariaDbDatabase::EnsureConnected() {
  FConnection->DropIfGone();
  if (!FConnection->IsLost()) return;
  ForgetPrepared();
  FConnection->EnsureConnected();
}

void TMariaDbDatabase::Execute(TRun& run) {
  EnsureConnected();
  const TRunningStatement running(*FConnection);
  if (FConnection->IsRestricted()) CheckCallerText(run.Text);
  TStatementReader reader(run.Text);
  if (!reader.Read(FShape)) throw TMariaDbFault{"There is no statement.", "no statement"};
  if (reader.IsBatch()) return FFlavour.BatchIsBlock ? ExecuteBlock(run) : ExecuteBatch(run, run.Text);
  if (const auto batch = StatementsOfCall(FShape.Text)) return ExecuteBatch(run, *batch);
  ExecuteSingle(run);
  if (run.Result != nullptr && !run.HasResult)
    throw TMariaDbFault{"The statement gives no result.", "no result"};
}

void TMariaDbDatabase::CheckCallerText(const std::string& text) {
  if (std::string why = WhyNotSent(text); !why.empty()) throw TMariaDbFault{std::move(why), "refused"};
}

void TMariaDbDatabase::ExecuteSingle(TRun& run) {
  std::shared_ptr<TMariaDbPrepared> statement = CacheOf(run).Find(FShape);
  if (statement != nullptr && statement->Handle != nullptr) {
    if (FTrace != nullptr) NoteSent(run, AdaptedText(FShape, FFlavour.Rules()));
    return ExecutePrepared(run, *statement);
  }
  TTokens tokens = Tokenize(FShape.Text);
  Adapt(tokens, FFlavour.Rules());
  if (statement == nullptr) statement = Prepare(run, tokens);
  const std::string text = TokensToText(tokens);
  if (statement == nullptr || statement->Handle == nullptr) {
    UseDatabase(run);
    return ExecuteText(run, text);
  }
  NoteSent(run, text);
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
  MYSQL* const handle = FConnection->Handle();
  const TMySqlResultHandle result(FConnection->IsRestricted() ? mysql_use_result(handle)
                                                              : mysql_store_result(handle));
  if (result == nullptr) {
    if (mysql_field_count(handle) != 0) FConnection->Raise();
    run.Changed += static_cast<std::int64_t>(mysql_affected_rows(handle));
    return;
  }
  if (run.Result == nullptr || run.HasResult) return;
  std::vector<std::string> columns;
  for (unsigned i = 0; i < result->field_count; ++i) columns.emplace_back(result->fields[i].name);
  run.Result->Load(columns, FConnection->IsRestricted() ? ReadRowsWithinLimits(*result) : ReadRows(*result));
  run.HasResult = true;
}

TZanCells TMariaDbDatabase::ReadRowsWithinLimits(MYSQL_RES& result) {
  TZanCells cells;
  std::size_t bytes = 0;
  while (ReadRow(result, cells)) {
    const unsigned long* const lengths = mysql_fetch_lengths(&result);
    bytes += std::accumulate(lengths, lengths + result.field_count, std::size_t{0});
    if (cells.Size() > kRestrictedValues || bytes > kRestrictedBytes)
      throw TMariaDbFault{"The statement was stopped: its result is too large.", "result too large"};
  }
  // The rows came from the server one by one, and it may have stopped.
  if (mysql_errno(FConnection->Handle()) != 0) FConnection->Raise();
  return cells;
}

void TMariaDbDatabase::ExecutePrepared(TRun& run, TMariaDbPrepared& statement) {
  static const TZanValue kNull;
  MYSQL_STMT* const handle = statement.Handle.get();
  TMariaDbBinding binding(statement.Sources.size());
  for (std::size_t i = 0; i < statement.Sources.size(); ++i) {
    const TParameterSource& source = statement.Sources[i];
    if (source.Literal != TParameterSource::NoLiteral) {
      binding.Set(i, FShape.Literals[source.Literal]);
    } else {
      const zanrole::TParam* param = run.Query.Params().Find(source.Name);
      binding.Set(i, param != nullptr ? param->Value() : kNull);
    }
  }
  if (mysql_stmt_bind_param(handle, binding.Binds()) != 0) FConnection->Raise(handle);
  FConnection->Execute(handle);
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
  TZanCells cells;
  if (!ReadRows(statement, *metadata, cells)) FConnection->Raise(statement);
  run.Result->Load(columns, std::move(cells));
  run.HasResult = true;
}

void TMariaDbDatabase::NoteSent(TRun& run, const std::string& text) const {
  if (FTrace != nullptr) zanhost::NoteSent(run, text);
}

}  // namespace zanhost
