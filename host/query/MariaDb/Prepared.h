#pragma once

#include <string>
#include <vector>

#include "host/query/MariaDb/Handles.h"

namespace zanhost {

/// A statement that the server has prepared, with what running it needs to know.
struct TMariaDbPrepared {
  TMySqlStatementHandle Handle;
  /// The text that was prepared.
  std::string Sent;
  /// Names of the parameters, in the order of their markers; a name may come several times.
  std::vector<std::string> ParamNames;
};

}  // namespace zanhost
