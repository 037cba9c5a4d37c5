#include "host/worker/Differ.h"

#include <algorithm>

#include "host/worker/Dialogs.h"
#include "host/worker/Properties.h"

namespace zanhost {

namespace json = boost::json;
using zanrole::TComponent;

void TWindowView::AppendChanges(json::array& changes) {
  for (TComponent* const part : FForm->Components()) part->ApplyRules();
  if (!FSent) {
    AppendOpen(changes);
  } else if (FForm->Caption != FCaption) {
    changes.push_back(json::object{{"set", FNumber}, {"caption", FForm->Caption}});
  }
  FCaption = FForm->Caption;
  AppendGone(changes);
  EnterNewParts();
  for (TPartView& view : FParts) AppendPart(view, changes);
  for (TPartView& view : FParts) {
    if (view.Rows) view.Rows->AppendChanges(FNumber, view.Name, changes);
  }
  AppendFocus(changes);
  FSent = true;
}

void TWindowView::Reset() {
  FSent = false;
  for (TPartView& view : FParts) {
    view.Sent.clear();
    if (view.Rows) view.Rows->Reset();
  }
}

void TWindowView::NoteInput(const TComponent& part, std::string_view property, json::value value) {
  TPartView* const view = FindView(part);
  if (view != nullptr && !view->Sent.empty()) view->Sent[property] = std::move(value);
}

TRowsView* TWindowView::Rows(const TComponent& part) {
  TPartView* const view = FindView(part);
  return view != nullptr ? view->Rows.get() : nullptr;
}

void TWindowView::AppendOpen(json::array& changes) {
  json::object open{
      {"open", FNumber}, {"class", FForm->ClassName()}, {"caption", FForm->Caption}, {"modal", FModal}};
  if (const auto* const message = dynamic_cast<const TMessageForm*>(FForm)) open["kind"] = message->Kind();
  changes.push_back(std::move(open));
}

void TWindowView::AppendGone(json::array& changes) {
  const auto& parts = FForm->Components();
  std::erase_if(FParts, [&](const TPartView& view) {
    const auto found = std::find(parts.begin(), parts.end(), view.Part);
    const bool gone = found == parts.end() || (*found)->Serial() != view.Serial;
    if (gone && !view.Sent.empty()) changes.push_back(json::object{{"remove", FNumber}, {"name", view.Name}});
    return gone;
  });
}

void TWindowView::EnterNewParts() {
  if (FParts.size() == FForm->Components().size()) return;
  for (TComponent* const part : FForm->Components()) {
    if (FindView(*part) != nullptr) continue;
    std::unique_ptr<TRowSource> source = RowSourceOf(*part);
    auto rows = source ? std::make_unique<TRowsView>(std::move(source)) : nullptr;
    FParts.push_back({part, part->Serial(), part->Name(), {}, std::move(rows)});
  }
}

void TWindowView::AppendPart(TPartView& view, json::array& changes) const {
  json::object now = PropertiesOf(*view.Part);
  json::object change;
  if (view.Sent.empty()) {
    change = {{"component", FNumber}, {"name", view.Name}, {"kind", KindName(view.Part->Kind())}};
    if (const TComponent* const container = view.Part->Container()) change["in"] = container->Name();
    for (const auto& [property, value] : now) change[property] = value;
    changes.push_back(std::move(change));
  } else {
    for (const auto& [property, value] : now) {
      const json::value* const sent = view.Sent.if_contains(property);
      if (sent == nullptr || *sent != value) change[property] = value;
    }
    if (change.empty()) return;
    change["set"] = FNumber;
    change["name"] = view.Name;
    changes.push_back(std::move(change));
  }
  view.Sent = std::move(now);
}

void TWindowView::AppendFocus(json::array& changes) {
  if (FForm->FocusRequest == nullptr) return;
  changes.push_back(json::object{{"focus", FNumber}, {"name", FForm->FocusRequest->Name()}});
  FForm->FocusRequest = nullptr;
}

TWindowView::TPartView* TWindowView::FindView(const TComponent& part) {
  const auto found = std::find_if(FParts.begin(), FParts.end(), [&](const TPartView& view) {
    return view.Part == &part && view.Serial == part.Serial();
  });
  return found != FParts.end() ? &*found : nullptr;
}

}  // namespace zanhost
