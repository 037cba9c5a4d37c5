#include "tests/conformance/faults/TableDump.h"

#include <algorithm>
#include <cctype>

#include "Frame/Dialects.h"

namespace zantest {

using zanrole::TZanValue;

namespace {

/// A moment that reads like any other.
constexpr char kSomeTime[] = "2001-02-03 04:05:06";

bool HoldsMoments(std::string column) {
  std::transform(column.begin(), column.end(), column.begin(),
                 [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
  return column.find("time") != std::string::npos || column == "installedat";
}

std::string Joined(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
  return text;
}

std::string Literal(const TZanValue& value) {
  if (std::holds_alternative<std::monostate>(value)) return "null";
  return zanrole::QuotedStr(zanrole::ValueAsString(value));
}

std::string Literals(const std::vector<TZanValue>& row) {
  std::string text;
  for (const TZanValue& value : row) text += (text.empty() ? "" : ", ") + Literal(value);
  return text;
}

void Execute(zanrole::TZANQuery& query, const std::string& statement) {
  query.SQL().SetText(statement);
  query.ExecSQL();
}

}  // namespace

TTables::TTables(const TEngine& engine, zanhost::TDatabase& database) : FDatabase(&database) {
  for (const std::string name : {"data", "system"}) {
    const auto query = QueryOn(name);
    query->SQL().SetText(engine.CatalogueStatement());
    for (query->Open(); !query->Eof(); query->Next()) {
      const std::string table = query->Fields(0).AsString();
      // One database may be both.
      if (name == "system" && FColumns.contains({"data", table})) continue;
      FColumns[{name, table}].push_back(query->Fields(1).AsString());
    }
  }
}

std::unique_ptr<zanrole::TZANQuery> TTables::QueryOn(const std::string& database) const {
  return database == "system" ? FDatabase->GetSysQuery() : FDatabase->GetQuery();
}

TTableRows TTables::Read(const TTableKey& table, const std::vector<std::string>& columns) const {
  TTableRows rows;
  const auto query = QueryOn(table.first);
  query->SQL().SetText("select " + Joined(columns) + " from " + table.second);
  for (query->Open(); !query->Eof(); query->Next()) {
    std::vector<TZanValue> row;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const TZanValue& value = query->Fields(static_cast<int>(i)).Value();
      const bool isNull = std::holds_alternative<std::monostate>(value);
      row.push_back(!isNull && HoldsMoments(columns[i]) ? TZanValue(std::string(kSomeTime)) : value);
    }
    rows.push_back(std::move(row));
  }
  std::sort(rows.begin(), rows.end(), [](const auto& a, const auto& b) { return Literals(a) < Literals(b); });
  return rows;
}

TTableDump TTables::Dump() const {
  TTableDump dump;
  for (const auto& [table, columns] : FColumns) dump[table] = Read(table, columns);
  return dump;
}

void TTables::Restore(const TTableDump& wanted) const {
  for (const auto& [table, rows] : wanted) {
    const std::vector<std::string>& columns = FColumns.at(table);
    if (Read(table, columns) == rows) continue;
    const auto query = QueryOn(table.first);
    Execute(*query, "delete from " + table.second);
    for (const auto& row : rows)
      Execute(*query,
              "insert into " + table.second + "(" + Joined(columns) + ") values(" + Literals(row) + ")");
  }
}

std::string Difference(const TTableDump& found, const TTableDump& expected) {
  std::string text;
  const auto note = [&](const char* sign, const TTableKey& table, const TTableRows& rows,
                        const TTableRows& others) {
    for (const auto& row : rows)
      if (std::find(others.begin(), others.end(), row) == others.end())
        text += "\n" + std::string(sign) + table.second + ": " + Literals(row);
  };
  for (const auto& [table, rows] : found) {
    note("more  ", table, rows, expected.at(table));
    note("fewer ", table, expected.at(table), rows);
    if (rows.size() != expected.at(table).size()) text += "\nanother number of rows in " + table.second;
  }
  return text;
}

}  // namespace zantest
