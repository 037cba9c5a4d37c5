#include <fmt/format.h>

#include <algorithm>

#include "host/worker/Dialogs.h"
#include "host/worker/SessionLoop.h"

// Windows of the session: coming up, waiting for their result, going.

namespace zanhost {

using zanrole::TForm;

/// Takes a modal window away however its loop ends.
class TSessionLoop::TWindowGuard {
 public:
  TWindowGuard(TWindows& windows, int window) : FWindows(&windows), FWindow(window) {}
  ~TWindowGuard() { FWindows->Remove(FWindow); }
  TWindowGuard(const TWindowGuard&) = delete;
  TWindowGuard& operator=(const TWindowGuard&) = delete;

 private:
  TWindows* FWindows;
  int FWindow;
};

void TSessionLoop::Show(TForm& form) {
  if (FWindows.Find(form) != nullptr) {
    FToFront.push_back(&form);
    return;
  }
  // Shown again before it was told that it was gone: it never went.
  std::erase_if(FHides, [&](const THide& hide) { return hide.Form == &form; });
  form.DoShow();
  FWindows.Open(form, /*modal*/ false);
}

int TSessionLoop::ShowModal(TForm& form) {
  if (FWindows.Find(form) != nullptr)
    throw zanrole::EZanError(fmt::format("{} is open already", form.ClassName()));
  form.DoShow();
  const int number = FWindows.Open(form, /*modal*/ true).Number();
  const TWindowGuard guard(FWindows, number);
  Loop([&] {
    const TWindowView* const window = FWindows.Find(number);
    return window == nullptr || window->Form().ModalResult != zanrole::mrNone;
  });
  // A form that its own handlers destroyed has no result to ask for.
  if (FWindows.Find(number) == nullptr) return zanrole::mrCancel;
  FWindows.Remove(number);
  const int result = form.ModalResult;
  form.DoHide();
  return result;
}

void TSessionLoop::Hide(TForm& form) {
  const TWindowView* const window = FWindows.Find(form);
  if (window == nullptr) return;
  if (window->IsModal()) {
    // Its loop takes it away, and tells it.
    if (form.ModalResult == zanrole::mrNone) form.ModalResult = zanrole::mrCancel;
    return;
  }
  FHides.push_back({&form, window->Number()});
  FWindows.Remove(window->Number());
}

void TSessionLoop::Forget(TForm& form) noexcept {
  if (const TWindowView* const window = FWindows.Find(form)) FWindows.Remove(window->Number());
  std::erase_if(FHides, [&](const THide& hide) { return hide.Form == &form; });
  std::erase(FToFront, &form);
}

/// Tells forms that they have left the screen, which may destroy them: so none whose handler still runs.
void TSessionLoop::RunHides() {
  for (;;) {
    const auto next = std::find_if(FHides.begin(), FHides.end(),
                                   [&](const THide& hide) { return !IsRunning(hide.Window); });
    if (next == FHides.end()) return;
    TForm* const form = next->Form;
    FHides.erase(next);
    form->DoHide();
  }
}

bool TSessionLoop::IsRunning(int window) const {
  return std::any_of(FFrames.begin(), FFrames.end(),
                     [&](const TFrame& frame) { return frame.Window == window; });
}

zanrole::TMsgDlgBtn TSessionLoop::MessageBox(std::string_view title, std::string_view text,
                                             zanrole::TMsgDlgType kind, unsigned buttons) {
  return TMessageForm(*this, *FResources, title, text, kind, buttons).Ask();
}

}  // namespace zanhost
