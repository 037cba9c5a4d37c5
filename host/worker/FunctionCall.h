#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/platform/NamedValues.h"
#include "host/worker/FuncManager.h"

namespace zanhost {

/// What a system function answered.
struct TCallOutcome {
  /// The result of Execute.
  bool Result = false;
  /// Every output parameter, in the order of the description.
  TNamedValues Out;
  /// Names of given parameters that the function does not declare. They were passed on all the same.
  std::vector<std::string> Undeclared;
};

/// Runs a system function with these inputs; inputs that are not given keep their defaults.
/// Raises EZanError when there is no system function of that name. Faults of the function pass through.
TCallOutcome CallFunction(THostFuncManager& manager, std::string_view name, const TNamedValues& inputs);

/// Runs a menu function as a menu entry would. Inputs as for CallFunction.
/// Raises EZanError when there is no menu function of that name. Faults of the function pass through.
void RunMenuFunction(THostFuncManager& manager, std::string_view name, int style, const TNamedValues& inputs);

}  // namespace zanhost
