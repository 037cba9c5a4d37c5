#include "host/worker/RowSource.h"

#include <boost/json/array.hpp>
#include <unordered_map>

namespace zanhost {

namespace json = boost::json;
using namespace zanrole;

namespace {

void AddSigns(json::object& row, const std::string& icon, const std::string& mark, bool selected) {
  if (!icon.empty()) row["icon"] = icon;
  if (!mark.empty()) row["mark"] = mark;
  if (selected) row["selected"] = true;
}

class TListRows : public TRowSource {
 public:
  explicit TListRows(TListView& list) : FList(&list) {}

  int Count() override { return FList->RowCount(); }

  json::object Row(int index) override {
    const TListRow shown = FList->OnRow ? FList->OnRow(index) : TListRow();
    json::object row;
    row["id"] = shown.Id;
    row["cells"] = Cells(shown);
    AddSigns(row, shown.Icon, shown.Mark, FList->Selection.contains(shown.Id));
    return row;
  }

  std::int64_t IdAt(int index) override { return FList->OnRow ? FList->OnRow(index).Id : 0; }

  int IndexOf(std::int64_t id) override {
    if (FList->OnIndexOf) return FList->OnIndexOf(id);
    const int count = Count();
    for (int index = 0; index < count; ++index) {
      if (IdAt(index) == id) return index;
    }
    return -1;
  }

  std::optional<std::int64_t> Focused() override {
    return FList->Focused >= 0 ? std::optional(FList->Focused) : std::nullopt;
  }

 protected:
  virtual json::array Cells(const TListRow& shown) {
    json::array cells;
    for (const std::string& cell : shown.Cells) cells.emplace_back(cell);
    return cells;
  }

 private:
  TListView* FList;
};

/// A cell that cannot be changed is a text, like a list's; any other is an object that says what it takes.
json::value GridCell(const TGridCell& cell) {
  if (cell.ReadOnly && !cell.Button) return json::value(cell.Text);
  json::object object;
  object["text"] = cell.Text;
  if (!cell.ReadOnly) object["edit"] = true;
  if (cell.Button) object["button"] = true;
  if (!cell.PickList.empty()) {
    json::array& picks = object["pick"].emplace_array();
    for (const std::string& pick : cell.PickList) picks.emplace_back(pick);
  }
  return object;
}

class TGridRows final : public TListRows {
 public:
  explicit TGridRows(TGrid& grid) : TListRows(grid), FGrid(&grid) {}

 protected:
  json::array Cells(const TListRow& shown) override {
    if (!FGrid->OnCell) return TListRows::Cells(shown);
    json::array cells;
    for (int column = 0; column < static_cast<int>(FGrid->Columns.size()); ++column)
      cells.push_back(GridCell(FGrid->OnCell(shown.Id, column)));
    return cells;
  }

 private:
  TGrid* FGrid;
};

class TTreeRows final : public TRowSource {
 public:
  explicit TTreeRows(TTreeView& tree) : FTree(&tree) {}

  int Count() override { return static_cast<int>(Rows().size()); }

  json::object Row(int index) override {
    const TRow& place = Rows()[static_cast<std::size_t>(index)];
    const TTreeNode& node = *place.Node;
    json::object row;
    row["id"] = node.Id();
    row["level"] = place.Level;
    row["node"] = node.Children().empty() ? "leaf" : node.Expanded() ? "open" : "closed";
    row["cells"].emplace_array().emplace_back(node.Text);
    AddSigns(row, node.Icon, node.Mark, FTree->Selected() == &node);
    return row;
  }

  std::int64_t IdAt(int index) override { return Rows()[static_cast<std::size_t>(index)].Node->Id(); }

  int IndexOf(std::int64_t id) override {
    Rows();
    const auto found = FIndex.find(id);
    return found != FIndex.end() ? found->second : -1;
  }

  std::optional<std::int64_t> Focused() override {
    const TTreeNode* const selected = FTree->Selected();
    return selected != nullptr ? std::optional(selected->Id()) : std::nullopt;
  }

 private:
  struct TRow {
    const TTreeNode* Node;
    int Level;
  };

  /// The flattened tree, made anew only when its structure has changed.
  const std::vector<TRow>& Rows() {
    if (!FIsFlat || FRevision != FTree->StructureRevision()) {
      FRows.clear();
      FIndex.clear();
      Append(FTree->Roots(), 0);
      FRevision = FTree->StructureRevision();
      FIsFlat = true;
    }
    return FRows;
  }

  void Append(const std::vector<std::unique_ptr<TTreeNode>>& nodes, int level) {
    for (const auto& node : nodes) {
      FIndex.emplace(node->Id(), static_cast<int>(FRows.size()));
      FRows.push_back({node.get(), level});
      if (node->Expanded()) Append(node->Children(), level + 1);
    }
  }

  TTreeView* FTree;
  std::vector<TRow> FRows;
  std::unordered_map<std::int64_t, int> FIndex;
  unsigned FRevision = 0;
  bool FIsFlat = false;
};

}  // namespace

std::unique_ptr<TRowSource> RowSourceOf(TComponent& component) {
  switch (component.Kind()) {
    case TComponentKind::List:
      return std::make_unique<TListRows>(static_cast<TListView&>(component));
    case TComponentKind::Grid:
      return std::make_unique<TGridRows>(static_cast<TGrid&>(component));
    case TComponentKind::Tree:
      return std::make_unique<TTreeRows>(static_cast<TTreeView&>(component));
    default:
      return nullptr;
  }
}

}  // namespace zanhost
