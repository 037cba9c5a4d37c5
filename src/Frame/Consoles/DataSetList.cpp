#include "Frame/Consoles/DataSetList.h"

#include <algorithm>

#include "Frame/Commlib.h"

namespace zanrole {

TDataSetList::TDataSetList(TListView& list, TDataSet& rows, std::string_view keyField,
                           std::vector<TDataSetColumn> columns)
    : FList(list), FRows(rows), FColumns(std::move(columns)), FKeyField(FieldIndex(keyField)) {
  FList.Columns.clear();
  for (const TDataSetColumn& column : FColumns) {
    FFieldOfColumn.push_back(FieldIndex(column.Field));
    FList.Columns.push_back({column.Title, column.Width});
  }
  FList.OnRowCount = [this] { return static_cast<int>(FShown.size()); };
  FList.OnRow = [this](int index) { return ShownRow(index); };
  FList.OnColumnClick = [this](int column) { ClickColumn(column); };
}

int TDataSetList::FieldIndex(std::string_view name) const {
  for (int index = 0; index < FRows.FieldCount(); ++index) {
    if (SameText(FRows.Field(index).Name(), name)) return index;
  }
  throw EDatabaseError("Field '" + std::string(name) + "' not found", {});
}

std::int64_t TDataSetList::KeyOf(int row) const { return ValueAsInteger(FRows.At(row, FKeyField)); }

TListRow TDataSetList::ShownRow(int index) const {
  const int row = FShown[static_cast<std::size_t>(index)];
  TListRow shown;
  shown.Id = KeyOf(row);
  shown.Icon = Icon;
  for (std::size_t column = 0; column < FColumns.size(); ++column)
    shown.Cells.push_back(FColumns[column].Text(FRows.At(row, FFieldOfColumn[column])));
  return shown;
}

void TDataSetList::InitLngResources() {
  for (std::size_t column = 0; column < FColumns.size(); ++column)
    FList.Columns[column].Title = TZanResEx::resByExFunc(FColumns[column].Title);
}

void TDataSetList::Refresh() {
  FShown.clear();
  for (int row = 0; row < FRows.RowCount(); ++row) {
    if (!Filter || Filter(row)) FShown.push_back(row);
  }
  if (FList.SortColumn >= 0) Sort();
}

void TDataSetList::SelectFirst() { FList.Select(FShown.empty() ? -1 : KeyOf(FShown.front())); }

void TDataSetList::ClickColumn(int column) {
  FList.SortDescending = column == FList.SortColumn && !FList.SortDescending;
  FList.SortColumn = column;
  Sort();
}

void TDataSetList::Sort() {
  std::stable_sort(FShown.begin(), FShown.end(), [this](int row, int otherRow) {
    return FList.SortDescending ? ComesBefore(otherRow, row) : ComesBefore(row, otherRow);
  });
}

bool TDataSetList::ComesBefore(int row, int otherRow) const {
  const auto column = static_cast<std::size_t>(FList.SortColumn);
  const TZanValue value = FRows.At(row, FFieldOfColumn[column]);
  const TZanValue other = FRows.At(otherRow, FFieldOfColumn[column]);
  const auto* number = std::get_if<std::int64_t>(&value);
  const auto* otherNumber = std::get_if<std::int64_t>(&other);
  if (number != nullptr && otherNumber != nullptr) return *number < *otherNumber;
  return LowerCase(FColumns[column].Text(value)) < LowerCase(FColumns[column].Text(other));
}

}  // namespace zanrole
