#include "tests/conformance/Conformance.h"

namespace zantest {

void Conformance::SetUp() {
  const std::string whyNot = GetParam().WhyNot();
  if (!whyNot.empty()) GTEST_SKIP() << whyNot;
  FEngine = GetParam().Make();
  FDatabase = FEngine->OpenSession();
  FHost = std::make_unique<TEngineHost>(*FDatabase);
}

void Conformance::MakeCasesTable() {
  Exec("create table Cases (ID int not null, Name " + Engine().TextType(200) + ", Note " +
       Engine().LongTextType() + ", Flag " + Engine().BooleanType() + ", Moment " + Engine().DateTimeType() +
       ", primary key (ID))");
}

namespace {

void Fill(zanrole::TZANQuery& query, std::string_view text, const TParamValues& params) {
  query.SQL().SetText(std::string(text));
  for (const auto& [name, value] : params) {
    zanrole::TParam& param = query.ParamByName(name);
    if (const auto* number = std::get_if<std::int64_t>(&value)) param.AsInteger(*number);
    if (const auto* truth = std::get_if<bool>(&value)) param.AsBoolean(*truth);
    if (const auto* content = std::get_if<std::string>(&value)) param.AsString(*content);
    if (const auto* time = std::get_if<zanrole::TDateTime>(&value)) param.AsDateTime(*time);
  }
}

}  // namespace

void Conformance::Exec(std::string_view text, const TParamValues& params) {
  const auto query = Query();
  Fill(*query, text, params);
  query->ExecSQL();
}

std::vector<TTextRow> Conformance::Rows(std::string_view text, const TParamValues& params) {
  const auto query = Query();
  Fill(*query, text, params);
  query->Open();
  return RowsOf(*query);
}

std::vector<TTextRow> Conformance::RowsOf(zanrole::TZANQuery& query) {
  std::vector<TTextRow> rows;
  for (query.First(); !query.Eof(); query.Next()) {
    TTextRow row;
    for (int i = 0; i < query.DataSet().FieldCount(); ++i)
      row.push_back(query.Fields(i).IsNull() ? "(null)" : query.Fields(i).AsString());
    rows.push_back(std::move(row));
  }
  return rows;
}

std::string Conformance::Cell(std::string_view text, const TParamValues& params) {
  const std::vector<TTextRow> rows = Rows(text, params);
  return rows.empty() ? "(none)" : rows.front().front();
}

std::string Conformance::FaultOf(std::string_view text) {
  const auto query = Query();
  query->SQL().SetText(std::string(text));
  try {
    query->ExecSQL();
  } catch (const zanrole::EDatabaseError& error) {
    return error.Message();
  }
  ADD_FAILURE() << "no fault from: " << text;
  return {};
}

}  // namespace zantest
