#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "Frame/Host/Forms.h"
#include "Frame/Host/Zandbs.h"

namespace zanrole {

/// One column of a list: where its values come from and how they are shown.
struct TDataSetColumn {
  /// Key of the resource strings.
  std::string Title;
  /// Column of the data set.
  std::string Field;
  int Width = 120;
  std::function<std::string(const TZanValue&)> Text = ValueAsString;
};

/// Shows rows of a working copy in a list: those that pass the filter, in the order of the working copy or
/// sorted by a column. A click on a title sorts by that column, a second click reverses the order.
class TDataSetList {
 public:
  /// Takes over the callbacks of `list`. `keyField` is an integer column that tells the shown rows apart.
  /// `list` and `rows` must outlive this object; the columns of `rows` must not change.
  TDataSetList(TListView& list, TDataSet& rows, std::string_view keyField,
               std::vector<TDataSetColumn> columns);
  TDataSetList(const TDataSetList&) = delete;
  TDataSetList& operator=(const TDataSetList&) = delete;

  /// Titles of the columns in the language of the session.
  void InitLngResources();
  /// Shows the rows as they are now. To be called after every change of the working copy.
  void Refresh();
  /// Selects the row on top, or nothing when there is none.
  void SelectFirst();

  /// Row of the working copy -> is it shown? Without it all are. Takes effect with the next Refresh.
  std::function<bool(int row)> Filter;
  /// Name of the icon of every row; may be empty.
  std::string Icon;

 private:
  int FieldIndex(std::string_view name) const;
  std::int64_t KeyOf(int row) const;
  TListRow ShownRow(int index) const;
  void ClickColumn(int column);
  void Sort();
  bool ComesBefore(int row, int otherRow) const;

  TListView& FList;
  TDataSet& FRows;
  std::vector<TDataSetColumn> FColumns;
  std::vector<int> FFieldOfColumn;
  int FKeyField;
  /// Rows of the working copy in the order of the list.
  std::vector<int> FShown;
};

}  // namespace zanrole
