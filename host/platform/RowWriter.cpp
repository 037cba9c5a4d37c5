#include "host/platform/RowWriter.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <string>
#include <vector>

namespace zanhost {

namespace {

constexpr std::string_view kSystemTables[] = {"Tree",   "ObjectRegister", "ExFunction", "ST_DataParams",
                                              "MlDy",   "DjDy",           "XmDy",       "CxDy",
                                              "CxXsDy", "ViewDy",         "WebMenu"};

void SetValue(zanrole::TParam& param, const zanrole::TZanValue& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return param.AsString(*text);
  if (const auto* number = std::get_if<std::int64_t>(&value)) return param.AsInteger(*number);
  if (const auto* truth = std::get_if<bool>(&value)) return param.AsBoolean(*truth);
  if (const auto* time = std::get_if<zanrole::TDateTime>(&value)) return param.AsDateTime(*time);
  param.Clear();
}

}  // namespace

std::unique_ptr<zanrole::TZANQuery> QueryOfTable(TDatabase& database, std::string_view table) {
  const bool ofSystem = std::ranges::find(kSystemTables, table) != std::end(kSystemTables);
  return ofSystem ? database.GetSysQuery() : database.GetQuery();
}

TRowWriter::TRowWriter(TDatabase& database, std::string_view table,
                       std::initializer_list<std::string_view> columns)
    : FQuery(QueryOfTable(database, table)) {
  std::vector<std::string> markers;
  for (const std::string_view column : columns) markers.push_back(fmt::format(":{}", column));
  FQuery->SQL().SetText(fmt::format("insert into {} ({}) values ({})", table, fmt::join(columns, ", "),
                                    fmt::join(markers, ", ")));
}

void TRowWriter::Add(std::initializer_list<zanrole::TZanValue> values) {
  zanrole::TParams& params = FQuery->Params();
  int index = 0;
  for (const zanrole::TZanValue& value : values) SetValue(params[index++], value);
  FQuery->ExecSQL();
}

void WritePairs(TDatabase& database, std::string_view table, std::string_view first, std::string_view second,
                const std::vector<std::pair<int, int>>& pairs) {
  TRowWriter rows(database, table, {first, second});
  for (const auto& [left, right] : pairs) rows.Add({left, right});
}

}  // namespace zanhost
