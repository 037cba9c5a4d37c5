#include "host/worker/Windows.h"

#include <algorithm>
#include <utility>

namespace zanhost {

TWindowView& TWindows::Open(zanrole::TForm& form, bool modal) {
  // Room for every window that may have to be told as gone: Remove must not fail.
  FGone.reserve(FGone.size() + FWindows.size() + 1);
  return *FWindows.emplace_back(std::make_unique<TWindowView>(++FLastNumber, form, modal));
}

void TWindows::Remove(int number) noexcept {
  const auto found =
      std::find_if(FWindows.begin(), FWindows.end(), [&](const auto& w) { return w->Number() == number; });
  if (found == FWindows.end()) return;
  if ((*found)->IsSent()) FGone.push_back(number);
  FWindows.erase(found);
}

TWindowView* TWindows::Find(int number) const {
  for (const auto& window : FWindows) {
    if (window->Number() == number) return window.get();
  }
  return nullptr;
}

TWindowView* TWindows::Find(const zanrole::TForm& form) const {
  for (const auto& window : FWindows) {
    if (&window->Form() == &form) return window.get();
  }
  return nullptr;
}

bool TWindows::IsReachable(const TWindowView& window) const {
  for (auto later = FWindows.rbegin(); later != FWindows.rend(); ++later) {
    if (later->get() == &window) return true;
    if ((*later)->IsModal()) return false;
  }
  return false;
}

void TWindows::Reset() {
  FGone.clear();
  for (const auto& window : FWindows) window->Reset();
}

std::vector<int> TWindows::TakeGone() {
  std::vector<int> gone = std::exchange(FGone, {});
  FGone.reserve(FWindows.size() + 1);
  return gone;
}

}  // namespace zanhost
