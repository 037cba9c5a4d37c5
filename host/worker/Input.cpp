#include "host/worker/Input.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>

#include "host/worker/Properties.h"

namespace zanhost {

using namespace zanrole;

namespace {

std::string TextValue(const TEvent& event) {
  const std::string* const text = std::get_if<std::string>(&event.Value);
  if (text == nullptr) throw EProtocolError("\"value\" must be a text");
  return *text;
}

int NumberValue(const TEvent& event, int least, int most) {
  const std::int64_t* const number = std::get_if<std::int64_t>(&event.Value);
  if (number == nullptr) throw EProtocolError("\"value\" must be a whole number");
  if (*number < least || *number > most) throw EProtocolError("\"value\" is out of range");
  return static_cast<int>(*number);
}

/// Units of UTF-16 that a character takes, by the first byte of it; none for a byte inside a character.
int Utf16Units(char byte) {
  const auto bits = static_cast<unsigned char>(byte);
  if ((bits & 0xC0U) == 0x80U) return 0;
  return bits >= 0xF0U ? 2 : 1;
}

/// As many whole characters as `most` units of UTF-16 hold; the whole text when `most` is 0.
std::string FirstCharacters(const std::string& text, int most) {
  if (most <= 0) return text;
  std::size_t end = 0;
  for (int units = 0; end < text.size(); ++end) {
    units += Utf16Units(text[end]);
    if (units > most) break;
  }
  return text.substr(0, end);
}

void Set(TEdit& edit, const TEvent& event, TWindowView& window) {
  const std::string text = TextValue(event);
  if (edit.ReadOnly) return;
  if (edit.Mode == TEditMode::Password)
    window.NoteInput(edit, "filled", !text.empty());
  else
    window.NoteInput(edit, "value", boost::json::value(text));
  edit.Text = FirstCharacters(text, edit.MaxLength);
  Fire(edit.OnChange);
}

void Set(TMemo& memo, const TEvent& event, TWindowView& window) {
  const std::string text = TextValue(event);
  if (memo.ReadOnly) return;
  window.NoteInput(memo, "value", boost::json::value(text));
  memo.Text = FirstCharacters(text, memo.MaxLength);
  Fire(memo.OnChange);
}

void Set(TCheckBox& check, const TEvent& event, TWindowView& window) {
  const bool* const checked = std::get_if<bool>(&event.Value);
  if (checked == nullptr) throw EProtocolError("\"value\" must be true or false");
  window.NoteInput(check, "value", *checked);
  check.Checked = *checked;
  Fire(check.OnClick);
}

void Set(TChoice& choice, const TEvent& event, TWindowView& window) {
  const int index = NumberValue(event, -1, static_cast<int>(choice.Items.size()) - 1);
  window.NoteInput(choice, "value", index);
  choice.ItemIndex = index;
  Fire(choice.OnChange);
}

void Set(TComboBox& combo, const TEvent& event, TWindowView& window) {
  if (!combo.Editable) {
    Set(static_cast<TChoice&>(combo), event, window);
    return;
  }
  if (const std::string* const typed = std::get_if<std::string>(&event.Value)) {
    const auto item = std::find(combo.Items.begin(), combo.Items.end(), *typed);
    combo.ItemIndex = item != combo.Items.end() ? static_cast<int>(item - combo.Items.begin()) : -1;
    combo.Text = *typed;
    window.NoteInput(combo, "text", boost::json::value(*typed));
  } else {
    combo.ItemIndex = NumberValue(event, -1, static_cast<int>(combo.Items.size()) - 1);
    combo.Text = combo.ItemIndex >= 0 ? combo.Items[static_cast<std::size_t>(combo.ItemIndex)] : "";
    window.NoteInput(combo, "value", combo.ItemIndex);
  }
  Fire(combo.OnChange);
}

void Set(TSpinEdit& spin, const TEvent& event, TWindowView& window) {
  const int value = NumberValue(event, std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
  window.NoteInput(spin, "value", value);
  spin.Value = std::max(spin.MinValue, std::min(spin.MaxValue, value));
  Fire(spin.OnChange);
}

void Set(TTabs& tabs, const TEvent& event, TWindowView& window) {
  const std::string name = TextValue(event);
  TComponent* const page = tabs.Form().FindComponent(name);
  if (page == nullptr || page->Container() != &tabs || page->Kind() != TComponentKind::Tab) return;
  page->ApplyRules();
  if (!page->Usable()) return;
  window.NoteInput(tabs, "value", boost::json::value(name));
  tabs.ActivePage = name;
  Fire(tabs.OnChange);
}

void ApplySet(const TEvent& event, const TTarget& target) {
  TComponent& part = target.Part;
  switch (part.Kind()) {
    case TComponentKind::Edit:
      Set(static_cast<TEdit&>(part), event, target.Window);
      break;
    case TComponentKind::Memo:
      Set(static_cast<TMemo&>(part), event, target.Window);
      break;
    case TComponentKind::Check:
      Set(static_cast<TCheckBox&>(part), event, target.Window);
      break;
    case TComponentKind::Radio:
      Set(static_cast<TChoice&>(part), event, target.Window);
      break;
    case TComponentKind::Combo:
      Set(static_cast<TComboBox&>(part), event, target.Window);
      break;
    case TComponentKind::Spin:
      Set(static_cast<TSpinEdit&>(part), event, target.Window);
      break;
    case TComponentKind::Tabs:
      Set(static_cast<TTabs&>(part), event, target.Window);
      break;
    default:
      RaiseNotTaken(part);
  }
}

void PressCell(const TEvent& event, TGrid& grid) {
  if (!event.Id || !event.Column) throw EProtocolError("\"id\" or \"column\" is missing");
  if (*event.Column >= static_cast<int>(grid.Columns.size()))
    throw EProtocolError("\"column\" is out of range");
  if (grid.OnCell && grid.OnCell(*event.Id, *event.Column).Button)
    Fire(grid.OnButton, *event.Id, *event.Column);
}

void ApplyAct(const TEvent& event, const TTarget& target) {
  TComponent& part = target.Part;
  switch (part.Kind()) {
    case TComponentKind::Action:
      Fire(static_cast<TAction&>(part).OnExecute);
      break;
    case TComponentKind::Edit:
      Fire(static_cast<TEdit&>(part).OnEnterKey);
      break;
    case TComponentKind::Grid:
      PressCell(event, static_cast<TGrid&>(part));
      break;
    default:
      RaiseNotTaken(part);
  }
}

}  // namespace

void ApplyInput(const TEvent& event, const TTarget& target) {
  switch (event.Do) {
    case TDo::Act:
      ApplyAct(event, target);
      break;
    case TDo::Set:
      ApplySet(event, target);
      break;
    default:
      ApplyRowInput(event, target);
      break;
  }
}

void ApplyView(const TEvent& event, const TTarget& target) {
  if (event.Last < event.First) throw EProtocolError("\"last\" is out of range");
  if (TRowsView* const rows = target.Window.Rows(target.Part)) rows->Look(event.First, event.Last);
}

void RaiseNotTaken(const TComponent& part) {
  throw EProtocolError(fmt::format("{} of kind {} does not take this", part.Name(), KindName(part.Kind())));
}

}  // namespace zanhost
