#pragma once

#include <string>
#include <vector>

#include "Frame/Host/Classes.h"

namespace zanbench {

/// One row that a saving makes or changes.
struct TDifference {
  int ID;
  bool IsNew;
  std::string Name;
  int Sequence;
};

/// As many rows are made as are changed. Values differ with each call, as they do from one saving to the
/// next.
inline std::vector<TDifference> DifferencesOf(int call, int count) {
  std::vector<TDifference> differences;
  for (int id = 1; id <= count / 2; ++id) {
    differences.push_back({id, true, "部门" + std::to_string(call * 7 + id), 0});
    differences.push_back({id, false, {}, call + id});
  }
  return differences;
}

/// The statements of a saving, as the module writes them: the table is emptied, each difference is one line.
inline zanrole::TStringList StatementsOf(const std::vector<TDifference>& differences) {
  zanrole::TStringList lines;
  lines.Add("delete from Differences;");
  for (const TDifference& row : differences) {
    const std::string id = std::to_string(row.ID);
    if (row.IsNew) {
      lines.Add("insert into Differences(ID, Name, Sequence) values(" + id + ", " +
                zanrole::QuotedStr(row.Name) + ", 0);");
    } else {
      lines.Add("update Differences set Sequence = " + std::to_string(row.Sequence) + " where ID = " + id +
                ";");
    }
  }
  return lines;
}

}  // namespace zanbench
