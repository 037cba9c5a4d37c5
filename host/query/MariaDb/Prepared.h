#pragma once

#include <vector>

#include "host/query/LiteralBinding.h"
#include "host/query/MariaDb/Handles.h"

namespace zanhost {

/// A statement that the server has prepared, with what running it needs to know.
struct TMariaDbPrepared {
  /// Null for a statement that the server has refused to prepare: it is sent as a text each time.
  TMySqlStatementHandle Handle;
  /// In the order of the markers.
  std::vector<TParameterSource> Sources;
};

}  // namespace zanhost
