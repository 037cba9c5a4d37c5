#pragma once

#include <string>

#include "Frame/Host/Un_basefunc.h"

namespace zanrole {

/// The menu entry through which a menu function was called.
struct TMenuNode {
  static constexpr int UnknownObject = -1;
  /// The entry's protected object, or UnknownObject.
  int ObjectID = UnknownObject;
  /// With which the console titles itself.
  std::string Caption;
};

/// Reads the parameter "MenuNode" (a JSON text with "ObjectID" and "Caption"). When it is missing or no JSON,
/// the object is unknown and the caption is the resource of the function's name.
TMenuNode ReadMenuNode(const TBaseFunc& function);

/// A Boolean parameter of a menu function: "是", "true" or "yes" in any case of letters; anything else, or a
/// missing parameter, is false.
bool IsParamTrue(const TFuncInfo& info, std::string_view name);

}  // namespace zanrole
