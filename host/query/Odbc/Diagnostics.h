#pragma once

#include <sql.h>
#include <sqlext.h>

#include "host/query/Odbc/Link.h"

namespace zanhost {

/// The first diagnostic record of the last call on a handle. It must be read before any other call on it.
TOdbcError ErrorOf(SQLSMALLINT kind, SQLHANDLE handle);

}  // namespace zanhost
