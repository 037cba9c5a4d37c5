#pragma once

namespace zanhost {

/// What may be done on the databases of a session.
enum class TAccess {
  Full,
  /// For statements that hold a text of a caller, who may have written a part of the statement: one select at
  /// a time, no passwords, little time and memory.
  Restricted,
};

}  // namespace zanhost
