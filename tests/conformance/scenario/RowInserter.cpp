#include "tests/conformance/scenario/RowInserter.h"

#include "Frame/Dialects.h"

namespace zantest {

namespace {

std::string Literal(const TRowValue& value) {
  if (const int* number = std::get_if<int>(&value)) return std::to_string(*number);
  const std::string* text = std::get_if<std::string>(&value);
  return text == nullptr ? "null" : zanrole::QuotedStr(*text);
}

std::string InsertStatement(const std::string& table, std::initializer_list<TCell> row) {
  std::string columns;
  std::string values;
  for (const TCell& cell : row) {
    columns += (columns.empty() ? "" : ", ") + std::string(cell.Column);
    values += (values.empty() ? "" : ", ") + Literal(cell.Value);
  }
  return "insert into " + table + "(" + columns + ") values(" + values + ")";
}

}  // namespace

void TRowInserter::Insert(const std::string& table, std::initializer_list<TCell> row) {
  Run(InsertStatement(table, row));
}

void TRowInserter::InsertIntoSystem(const std::string& table, std::initializer_list<TCell> row) {
  FSystem.Add(InsertStatement(table, row) + ";");
}

void TRowInserter::Run(const std::string& statement) { FData.Add(statement + ";"); }

void TRowInserter::Flush() {
  zanrole::RunBatch(*zanrole::TDbProviderFactory::GetQuery(), FData);
  zanrole::RunBatch(*zanrole::TDbProviderFactory::GetSysQuery(), FSystem);
  FData.Clear();
  FSystem.Clear();
}

}  // namespace zantest
