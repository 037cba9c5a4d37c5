#pragma once

#include <memory>
#include <vector>

#include "host/worker/Differ.h"

namespace zanhost {

/// The windows of a session in the order they came up. Numbers start at 1 and are never given twice.
class TWindows {
 public:
  TWindowView& Open(zanrole::TForm& form, bool modal);
  /// Takes a window away; the client will be told when it knows the window. Does nothing for a number that is
  /// gone.
  void Remove(int number) noexcept;

  /// Null when there is none.
  TWindowView* Find(int number) const;
  TWindowView* Find(const zanrole::TForm& form) const;
  const std::vector<std::unique_ptr<TWindowView>>& All() const { return FWindows; }

  /// No modal window stands before it.
  bool IsReachable(const TWindowView& window) const;
  /// The number that the next window gets.
  int NextNumber() const { return FLastNumber + 1; }

  /// The client was told nothing yet.
  void Reset();
  /// Windows that the client knows and that are gone; they count as told.
  std::vector<int> TakeGone();

 private:
  std::vector<std::unique_ptr<TWindowView>> FWindows;
  std::vector<int> FGone;
  int FLastNumber = 0;
};

}  // namespace zanhost
