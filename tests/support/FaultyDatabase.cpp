#include "tests/support/FaultyDatabase.h"

#include <stdexcept>

namespace zantest {

using zanrole::TZANQuery;
using zanrole::TZanValue;
using TKind = TSentStatement::TKind;

namespace {

constexpr std::string_view kRefused = "insert into TableThatIsNowhere(ID) values(1);\r\n";
constexpr std::string_view kCall = "call MySql_execute_MultiSql('";
constexpr std::string_view kCallEnd = "')";
constexpr std::string_view kBegin = "begin\r\n";
constexpr std::string_view kEnd = "end;";

void SetParam(zanrole::TParam& param, const TZanValue& value) {
  if (std::holds_alternative<std::monostate>(value)) param.Clear();
  if (const auto* number = std::get_if<std::int64_t>(&value)) param.AsInteger(*number);
  if (const auto* truth = std::get_if<bool>(&value)) param.AsBoolean(*truth);
  if (const auto* text = std::get_if<std::string>(&value)) param.AsString(*text);
  if (const auto* time = std::get_if<zanrole::TDateTime>(&value)) param.AsDateTime(*time);
  if (std::holds_alternative<double>(value)) throw std::logic_error("no parameter takes a fraction");
}

void Run(TZANQuery& query, const TSentStatement& statement, const std::string& text) {
  query.SQL().SetText(text);
  for (const auto& [name, value] : statement.Params) SetParam(query.ParamByName(name), value);
  if (statement.Kind == TKind::Open)
    query.Open();
  else
    query.ExecSQL();
}

void Copy(zanrole::TDataSet& from, zanrole::TDataSet& to) {
  std::vector<std::string> columns;
  zanrole::TZanCells cells;
  for (int i = 0; i < from.FieldCount(); ++i) columns.push_back(from.Field(i).Name());
  for (int row = 0; row < from.RowCount(); ++row)
    for (int i = 0; i < from.FieldCount(); ++i) cells.Add(from.At(row, i));
  to.Load(columns, std::move(cells));
}

/// The batch with one more statement, at its end, that no engine takes.
std::string Spoilt(const TSentStatement& batch) {
  std::string text = batch.Text;
  const std::size_t behind = text.starts_with(kCall) ? text.rfind(kCallEnd) : text.rfind(kEnd);
  if (!batch.IsBatch() || behind == std::string::npos) throw std::logic_error("no batch: " + text);
  return text.insert(behind, kRefused);
}

}  // namespace

bool TSentStatement::IsBatch() const {
  return Kind != TKind::Script && (Text.starts_with(kCall) || Text.starts_with(kBegin));
}

void SendAgain(zanhost::TDatabase& database, const TSentStatement& statement) {
  if (statement.Kind == TKind::Script) return database.ExecScript(statement.Text);
  const auto query = statement.OnSystem ? database.GetSysQuery() : database.GetQuery();
  Run(*query, statement, statement.Text);
}

/// A query of the module, run by one of the engine.
class TFaultyQuery final : public TZANQuery {
 public:
  TFaultyQuery(TFaultyDatabase& owner, std::unique_ptr<TZANQuery> engine, bool onSystem)
      : FOwner(&owner), FEngine(std::move(engine)), FOnSystem(onSystem) {}

  void Open() override {
    Pass(TKind::Open);
    Copy(FEngine->DataSet(), DataSet());
  }
  void ExecSQL() override { Pass(TKind::Exec); }

 private:
  void Pass(TKind kind) {
    TSentStatement statement{FOnSystem, kind, SQL().Text(), {}};
    for (const zanrole::TParam& param : Params()) statement.Params.emplace_back(param.Name(), param.Value());
    try {
      const std::string text = FOwner->Pass(statement);
      Run(*FEngine, statement, text);
    } catch (const zanrole::EDatabaseError&) {
      Close();
      throw;
    }
  }

  TFaultyDatabase* FOwner;
  std::unique_ptr<TZANQuery> FEngine;
  bool FOnSystem;
};

std::unique_ptr<TZANQuery> TFaultyDatabase::GetQuery() {
  return std::make_unique<TFaultyQuery>(*this, FEngine->GetQuery(), /*onSystem*/ false);
}

std::unique_ptr<TZANQuery> TFaultyDatabase::GetSysQuery() {
  return std::make_unique<TFaultyQuery>(*this, FEngine->GetSysQuery(), /*onSystem*/ true);
}

void TFaultyDatabase::ExecScript(std::string_view script) {
  FEngine->ExecScript(Pass({false, TKind::Script, std::string(script), {}}));
}

void TFaultyDatabase::FailAt(int n, TPlace place) {
  FSent.clear();
  FFailAt = static_cast<std::size_t>(n);
  FPlace = place;
}

void TFaultyDatabase::Before(std::string part, std::function<void()> meanwhile) {
  FAwaited = std::move(part);
  FMeanwhile = std::move(meanwhile);
}

std::string TFaultyDatabase::Pass(TSentStatement statement) {
  FSent.push_back(std::move(statement));
  const TSentStatement& sent = FSent.back();
  if (FMeanwhile && sent.Text.find(FAwaited) != std::string::npos) std::exchange(FMeanwhile, nullptr)();
  if (FSent.size() != FFailAt) return sent.Text;
  if (FPlace == TPlace::InsideTheBatch) return Spoilt(sent);
  throw zanrole::EDatabaseError(kMessage, sent.Text);
}

}  // namespace zantest
