#pragma once

#include <functional>
#include <vector>

#include "Frame/Host/Forms.h"

namespace zanrole {

/// One rule of a dialog.
struct TFieldCheck {
  /// The part that gets the focus when the rule is broken.
  TComponent* Field;
  /// Holds when the rule is broken. Asked only when all rules before it are kept; may run a statement.
  std::function<bool()> IsBroken;
  /// Shown to the person, a key of the resource strings.
  const char* Message;
};

/// Goes through the rules in order. At the first broken one its message is shown, its field gets the focus
/// and the answer is false; the dialog then stays open.
bool PassesChecks(const std::vector<TFieldCheck>& checks);

}  // namespace zanrole
