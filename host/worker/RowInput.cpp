#include <algorithm>

#include "host/worker/Input.h"

namespace zanhost {

using namespace zanrole;

namespace {

struct TRowPlace {
  int Index;
  std::int64_t Id;
};

/// The row that an event names by id or index; nothing when it is gone.
std::optional<TRowPlace> FindRow(const TEvent& event, TRowsView& rows) {
  if (event.Id) {
    const int index = rows.IndexOf(*event.Id);
    return index >= 0 ? std::optional(TRowPlace{index, *event.Id}) : std::nullopt;
  }
  if (!event.Index) throw EProtocolError("\"id\" or \"index\" is missing");
  if (*event.Index >= rows.Source().Count()) return std::nullopt;
  return TRowPlace{*event.Index, rows.Source().IdAt(*event.Index)};
}

bool IsAlive(const TTarget& target, int window, const TComponent* part, unsigned serial) {
  const TWindowView* const view = target.Windows.Find(window);
  if (view == nullptr) return false;
  const auto& parts = view->Form().Components();
  const auto found = std::find(parts.begin(), parts.end(), part);
  return found != parts.end() && (*found)->Serial() == serial;
}

/// Ids of the rows from the anchor to `place`, in whatever order they stand.
std::set<std::int64_t> RangeTo(const TRowPlace& place, TRowsView& rows) {
  const int anchor = rows.Anchor ? rows.IndexOf(*rows.Anchor) : -1;
  if (anchor < 0) return {place.Id};
  std::set<std::int64_t> ids;
  for (int index = std::min(anchor, place.Index); index <= std::max(anchor, place.Index); ++index)
    ids.insert(rows.Source().IdAt(index));
  return ids;
}

void SelectInList(TListView& list, TRowsView& rows, const TRowPlace& place, TSelectMode mode) {
  std::set<std::int64_t> selection = list.Selection;
  if (list.MultiSelect && mode == TSelectMode::Toggle) {
    if (selection.erase(place.Id) == 0) selection.insert(place.Id);
  } else if (list.MultiSelect && mode == TSelectMode::Range) {
    selection = RangeTo(place, rows);
  } else {
    selection = {place.Id};
  }
  if (mode != TSelectMode::Range || !rows.Anchor) rows.Anchor = place.Id;
  rows.NoteFocus(place.Id);
  if (selection == list.Selection && list.Focused == place.Id) return;
  list.Selection = std::move(selection);
  list.Focused = place.Id;
  Fire(list.OnSelect);
}

void EditCell(const TEvent& event, TGrid& grid, TRowsView& rows, const TRowPlace& place) {
  const std::string* const text = std::get_if<std::string>(&event.Value);
  if (text == nullptr) throw EProtocolError("\"value\" must be a text");
  if (!event.Column || *event.Column >= static_cast<int>(grid.Columns.size()))
    throw EProtocolError("\"column\" is out of range");
  // Whatever comes of it, the client shows what was typed until it is told again.
  rows.ForgetRow(place.Index);
  if (!grid.OnCell || grid.OnCell(place.Id, *event.Column).ReadOnly) return;
  Fire(grid.OnEditCell, place.Id, *event.Column, *text);
}

void ApplyToList(const TEvent& event, const TTarget& target, TListView& list, TRowsView& rows) {
  if (event.Do == TDo::Sort) {
    if (!event.Column || *event.Column >= static_cast<int>(list.Columns.size()))
      throw EProtocolError("\"column\" is out of range");
    Fire(list.OnColumnClick, *event.Column);
    return;
  }
  const std::optional<TRowPlace> place = FindRow(event, rows);
  if (!place) return;
  const int window = target.Window.Number();
  const unsigned serial = list.Serial();
  switch (event.Do) {
    case TDo::Select:
      SelectInList(list, rows, *place, event.Mode);
      break;
    case TDo::Activate:
      if (!list.Selection.contains(place->Id)) SelectInList(list, rows, *place, TSelectMode::Set);
      if (IsAlive(target, window, &list, serial)) Fire(list.OnActivate, place->Id);
      break;
    case TDo::Mark:
      Fire(list.OnMark, place->Id);
      break;
    case TDo::Edit:
      if (list.Kind() != TComponentKind::Grid) RaiseNotTaken(list);
      EditCell(event, static_cast<TGrid&>(list), rows, *place);
      break;
    default:
      RaiseNotTaken(list);
  }
}

void ExpandBelow(TTreeView& tree, TTreeNode& node) {
  if (node.Children().empty()) return;
  tree.SetExpanded(&node, true);
  for (const auto& child : node.Children()) ExpandBelow(tree, *child);
}

void ExpandAll(TTreeView& tree, std::optional<std::int64_t> id) {
  if (!id) {
    for (const auto& root : tree.Roots()) ExpandBelow(tree, *root);
  } else if (TTreeNode* const node = tree.FindId(*id)) {
    ExpandBelow(tree, *node);
  }
}

/// The node that rows are dropped on; false when it is gone.
bool FindDropNode(const TEvent& event, const TTarget& target, TTreeView& source, TTreeNode*& onto) {
  onto = nullptr;
  if (!event.Onto) return true;
  TComponent* const part =
      event.OntoName.empty() ? &source : target.Window.Form().FindComponent(event.OntoName);
  if (part == nullptr || part->Kind() != TComponentKind::Tree) return false;
  part->ApplyRules();
  if (!part->Usable()) return false;
  onto = static_cast<TTreeView*>(part)->FindId(*event.Onto);
  return onto != nullptr;
}

void Drop(const TEvent& event, const TTarget& target, TTreeView& tree) {
  std::vector<TTreeNode*> nodes;
  for (const std::int64_t id : event.Ids) {
    TTreeNode* const node = tree.FindId(id);
    if (node == nullptr) return;
    nodes.push_back(node);
  }
  TTreeNode* onto = nullptr;
  if (FindDropNode(event, target, tree, onto)) Fire(tree.OnDrop, nodes, onto);
}

void ApplyToTreeNode(const TEvent& event, const TTarget& target, TTreeView& tree, TRowsView& rows) {
  const std::optional<TRowPlace> place = FindRow(event, rows);
  TTreeNode* const node = place ? tree.FindId(place->Id) : nullptr;
  if (node == nullptr) return;
  const int window = target.Window.Number();
  const unsigned serial = tree.Serial();
  switch (event.Do) {
    case TDo::Select:
      rows.NoteFocus(node->Id());
      tree.Select(node);
      break;
    case TDo::Activate: {
      rows.NoteFocus(node->Id());
      tree.Select(node);
      if (!IsAlive(target, window, &tree, serial)) return;
      if (TTreeNode* const still = tree.FindId(place->Id)) Fire(tree.OnActivate, *still);
      break;
    }
    case TDo::Toggle:
      if (!node->Children().empty()) tree.SetExpanded(node, !node->Expanded());
      break;
    case TDo::Mark:
      Fire(tree.OnMark, *node);
      break;
    default:
      RaiseNotTaken(tree);
  }
}

}  // namespace

void ApplyRowInput(const TEvent& event, const TTarget& target) {
  TRowsView* const rows = target.Window.Rows(target.Part);
  const TComponentKind kind = target.Part.Kind();
  if (kind == TComponentKind::List || kind == TComponentKind::Grid) {
    if (rows != nullptr) ApplyToList(event, target, static_cast<TListView&>(target.Part), *rows);
  } else if (kind == TComponentKind::Tree) {
    auto& tree = static_cast<TTreeView&>(target.Part);
    if (event.Do == TDo::ExpandAll)
      ExpandAll(tree, event.Id);
    else if (event.Do == TDo::Drop)
      Drop(event, target, tree);
    else if (rows != nullptr)
      ApplyToTreeNode(event, target, tree, *rows);
  } else {
    RaiseNotTaken(target.Part);
  }
}

}  // namespace zanhost
