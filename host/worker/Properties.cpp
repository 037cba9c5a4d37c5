#include "host/worker/Properties.h"

#include <boost/json/array.hpp>

namespace zanhost {

namespace json = boost::json;
using namespace zanrole;

namespace {

std::string_view RoleName(TGroupRole role) {
  switch (role) {
    case TGroupRole::Bar:
      return "bar";
    case TGroupRole::Buttons:
      return "buttons";
    case TGroupRole::Fields:
      return "fields";
    case TGroupRole::Status:
      return "status";
    case TGroupRole::Row:
      return "row";
    case TGroupRole::Column:
      return "column";
  }
  return "column";
}

std::string_view ModeName(TEditMode mode) {
  switch (mode) {
    case TEditMode::Line:
      return "line";
    case TEditMode::Password:
      return "password";
    case TEditMode::Number:
      return "number";
  }
  return "line";
}

json::array TextArray(const std::vector<std::string>& texts) {
  json::array array;
  array.reserve(texts.size());
  for (const std::string& text : texts) array.emplace_back(text);
  return array;
}

void Add(json::object& to, const TAction& action) {
  to["icon"] = action.Icon;
  to["key"] = action.ShortCut;
  to["default"] = action.Default;
  to["cancel"] = action.Cancel;
  to["separator"] = action.Separator;
}

void Add(json::object& to, const TEdit& edit) {
  to["mode"] = ModeName(edit.Mode);
  if (edit.Mode == TEditMode::Password)
    to["filled"] = !edit.Text.empty();
  else
    to["value"] = edit.Text;
  to["readOnly"] = edit.ReadOnly;
  to["max"] = edit.MaxLength;
}

void Add(json::object& to, const TMemo& memo) {
  to["value"] = memo.Text;
  to["readOnly"] = memo.ReadOnly;
  to["max"] = memo.MaxLength;
}

void Add(json::object& to, const TChoice& choice) {
  to["items"] = TextArray(choice.Items);
  to["value"] = choice.ItemIndex;
}

void Add(json::object& to, const TComboBox& combo) {
  Add(to, static_cast<const TChoice&>(combo));
  to["editable"] = combo.Editable;
  to["text"] = combo.Text;
}

void Add(json::object& to, const TSpinEdit& spin) {
  to["value"] = spin.Value;
  to["min"] = spin.MinValue;
  to["max"] = spin.MaxValue;
}

json::array Columns(const TListView& list) {
  json::array columns;
  for (const TListColumn& column : list.Columns)
    columns.push_back(json::object{{"title", column.Title}, {"width", column.Width}});
  return columns;
}

void Add(json::object& to, const TListView& list) {
  to["columns"] = Columns(list);
  to["multi"] = list.MultiSelect;
  to["sort"] = list.SortColumn;
  to["descending"] = list.SortDescending;
  to["empty"] = list.EmptyText;
  to["focused"] = list.Focused >= 0 ? json::value(list.Focused) : json::value(nullptr);
  to["total"] = list.RowCount();
}

void Add(json::object& to, const TTreeView& tree) {
  to["empty"] = tree.EmptyText;
  const TTreeNode* const selected = tree.Selected();
  to["focused"] = selected != nullptr ? json::value(selected->Id()) : json::value(nullptr);
  to["drag"] = static_cast<bool>(tree.OnDrop);
}

/// The page in front: the one that was chosen, otherwise the first that can be seen.
std::string FrontPage(const TTabs& tabs) {
  if (!tabs.ActivePage.empty()) return tabs.ActivePage;
  for (const TComponent* const part : tabs.Form().Components()) {
    if (part->Container() == &tabs && part->Kind() == TComponentKind::Tab && part->Visible)
      return part->Name();
  }
  return {};
}

void AddOwn(json::object& to, const TComponent& part) {
  switch (part.Kind()) {
    case TComponentKind::Group:
      to["role"] = RoleName(static_cast<const TGroup&>(part).Role);
      break;
    case TComponentKind::Action:
      Add(to, static_cast<const TAction&>(part));
      break;
    case TComponentKind::Label:
      to["text"] = static_cast<const TLabel&>(part).Text;
      break;
    case TComponentKind::Edit:
      Add(to, static_cast<const TEdit&>(part));
      break;
    case TComponentKind::Memo:
      Add(to, static_cast<const TMemo&>(part));
      break;
    case TComponentKind::Check:
      to["value"] = static_cast<const TCheckBox&>(part).Checked;
      break;
    case TComponentKind::Radio:
      Add(to, static_cast<const TChoice&>(part));
      break;
    case TComponentKind::Combo:
      Add(to, static_cast<const TComboBox&>(part));
      break;
    case TComponentKind::Spin:
      Add(to, static_cast<const TSpinEdit&>(part));
      break;
    case TComponentKind::List:
    case TComponentKind::Grid:
      Add(to, static_cast<const TListView&>(part));
      break;
    case TComponentKind::Tree:
      Add(to, static_cast<const TTreeView&>(part));
      break;
    case TComponentKind::Tabs:
      to["value"] = FrontPage(static_cast<const TTabs&>(part));
      break;
    case TComponentKind::Tab:
      break;
    case TComponentKind::Progress:
      to["value"] = static_cast<const TProgressBar&>(part).Position;
      to["max"] = static_cast<const TProgressBar&>(part).Max;
      break;
    case TComponentKind::Picture:
      to["source"] = static_cast<const TPicture&>(part).Source;
      break;
  }
}

}  // namespace

std::string_view KindName(TComponentKind kind) {
  switch (kind) {
    case TComponentKind::Group:
      return "group";
    case TComponentKind::Action:
      return "action";
    case TComponentKind::Label:
      return "label";
    case TComponentKind::Edit:
      return "edit";
    case TComponentKind::Memo:
      return "memo";
    case TComponentKind::Check:
      return "check";
    case TComponentKind::Radio:
      return "radio";
    case TComponentKind::Combo:
      return "combo";
    case TComponentKind::Spin:
      return "spin";
    case TComponentKind::List:
      return "list";
    case TComponentKind::Tree:
      return "tree";
    case TComponentKind::Grid:
      return "grid";
    case TComponentKind::Tabs:
      return "tabs";
    case TComponentKind::Tab:
      return "tab";
    case TComponentKind::Progress:
      return "progress";
    case TComponentKind::Picture:
      return "picture";
  }
  return "group";
}

json::object PropertiesOf(const TComponent& component) {
  json::object properties;
  properties["caption"] = component.Caption;
  properties["hint"] = component.Hint;
  properties["enabled"] = component.Enabled;
  properties["visible"] = component.Visible;
  AddOwn(properties, component);
  return properties;
}

}  // namespace zanhost
