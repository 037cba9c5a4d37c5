#pragma once

#include <sql.h>

#include <memory>

#include "host/query/Odbc/Link.h"

namespace zanhost {

/// A statement on a connection of the driver manager, which outlives it. Throws TOdbcError.
std::unique_ptr<TOdbcStatement> NewDriverStatement(SQLHANDLE connection);

/// What the driver knows without asking the server.
bool IsDeadConnection(SQLHANDLE connection);

}  // namespace zanhost
