#pragma once

#include "host/query/DialectFamily.h"

namespace zanhost {

/// SQL Server's dialect in what SQLite takes of it. SQLite has no conditional statement: the condition goes
/// into the statement itself, so that "insert into T(…) values(…);" becomes an insert … select … where. The
/// helper raises EDatabaseError for any other statement.
const TDialectFamily& SqliteFamily();

}  // namespace zanhost
