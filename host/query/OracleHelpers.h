#pragma once

#include "host/query/DialectFamily.h"

namespace zanhost {

/// Oracle: names in "…" with the capital letters that it gives to unquoted ones, casts to "nvarchar2", a
/// Boolean column is a number, the conditional statement is one of a PL/SQL block, and a row count limits
/// from outside a select that is in order already.
const TDialectFamily& OracleFamily();

}  // namespace zanhost
