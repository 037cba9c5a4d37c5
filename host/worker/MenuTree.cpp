#include "host/worker/MenuTree.h"

#include <map>

namespace zanhost {

namespace {

constexpr int kTop = -1;
constexpr std::string_view kFunctionMark = "函数";

// clang-format off
constexpr const char* kMenuRows =
    "select NodeID, ParentID, ObjectID, NodeCaption, Functions, NeedHide"
    " from Tree"
    " order by NodeLevel, ParentID, PrecedID";
// clang-format on

struct TMenuRow {
  int NodeID;
  TMenuEntry Entry;
};

/// Rows by the node that they hang under, in menu order.
using TRowsByParent = std::multimap<int, TMenuRow>;

TRowsByParent ReadRows(zanrole::TDatabaseServices& databases) {
  const auto query = databases.GetSysQuery();
  const auto fields = databases.GetDBFieldHelper();
  query->SQL().SetText(kMenuRows);
  query->Open();
  TRowsByParent rows;
  for (; !query->Eof(); query->Next()) {
    if (fields->GetBoolean(query->FieldByName("NeedHide"))) continue;
    TMenuRow row{query->FieldByName("NodeID").AsInteger(), {}};
    row.Entry.ObjectID = query->FieldByName("ObjectID").AsInteger();
    row.Entry.Caption = zanrole::Trim(query->FieldByName("NodeCaption").AsString());
    row.Entry.Function = MenuFunctionName(query->FieldByName("Functions").AsString());
    rows.emplace(query->FieldByName("ParentID").AsInteger(), std::move(row));
  }
  return rows;
}

/// The allowed entries below a node. Each row is taken out of the map as it is reached, so rows that name
/// each other as parents cannot be walked twice.
std::vector<TMenuEntry> TakeChildren(TRowsByParent& rows, int parent, const TIsMenuAllowed& isAllowed) {
  std::vector<TMenuRow> found;
  const auto [begin, end] = rows.equal_range(parent);
  for (auto row = begin; row != end; ++row) found.push_back(std::move(row->second));
  rows.erase(begin, end);
  std::vector<TMenuEntry> children;
  for (TMenuRow& row : found) {
    const bool isFolder = rows.contains(row.NodeID);
    row.Entry.Children = TakeChildren(rows, row.NodeID, isAllowed);
    const bool isKept = isFolder ? !row.Entry.Children.empty() : isAllowed(row.Entry.ObjectID);
    if (isKept) children.push_back(std::move(row.Entry));
  }
  return children;
}

}  // namespace

std::vector<TMenuEntry> ReadMenu(zanrole::TDatabaseServices& databases, const TIsMenuAllowed& isAllowed) {
  TRowsByParent rows = ReadRows(databases);
  return TakeChildren(rows, kTop, isAllowed);
}

std::string MenuFunctionName(std::string_view functions) {
  while (!functions.empty()) {
    const std::size_t end = functions.find_first_of("\r\n");
    const std::string_view line = functions.substr(0, end);
    const std::size_t bracket = line.find('(');
    if (line.starts_with(kFunctionMark) && bracket != std::string_view::npos)
      return zanrole::Trim(line.substr(kFunctionMark.size(), bracket - kFunctionMark.size()));
    functions.remove_prefix(end == std::string_view::npos ? functions.size() : end + 1);
  }
  return {};
}

}  // namespace zanhost
