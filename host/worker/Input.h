#pragma once

#include <utility>

#include "host/worker/Event.h"
#include "host/worker/Windows.h"

namespace zanhost {

/// The component that an event is for. Its handlers may destroy it, and its window with it.
struct TTarget {
  TWindows& Windows;
  TWindowView& Window;
  zanrole::TComponent& Part;
};

/// Runs a callback on a copy of it: the component that holds it may be gone before it returns.
template <typename TCallback, typename... TArguments>
void Fire(TCallback callback, TArguments&&... arguments) {
  if (callback) callback(std::forward<TArguments>(arguments)...);
}

/// Does to a component what a person did: stores the input, then runs the component's callback. Events of
/// rows that are gone, and input for what is read-only, change nothing. Raises EProtocolError, and changes
/// nothing, for an event that the component does not take. Nothing of `target` may be used afterwards.
/// REQUIRES: the component is usable.
void ApplyInput(const TEvent& event, const TTarget& target);

/// The part of ApplyInput that is about rows of lists, grids and trees.
void ApplyRowInput(const TEvent& event, const TTarget& target);

/// A person looks at these rows. Nothing for a component without rows.
void ApplyView(const TEvent& event, const TTarget& target);

[[noreturn]] void RaiseNotTaken(const zanrole::TComponent& part);

}  // namespace zanhost
