#pragma once

#include <string>
#include <vector>

#include "host/query/LiteralBinding.h"
#include "host/query/Sqlite/Handles.h"

namespace zanhost {

/// A statement that SQLite has prepared, with what running it needs to know.
struct TSqlitePrepared {
  TStatementHandle Handle;
  /// Statements of its shape run by it, if their fixed literals are the same.
  bool MayBeKept = false;
  /// Which literals of the module's text are fixed: they stand in the statement.
  std::vector<std::size_t> Fixed;
  /// In the engine's order of its parameters.
  std::vector<TParameterSource> Sources;
  /// Names of the columns of the result, valid for as long as the engine has not prepared the statement anew.
  std::vector<std::string> Columns;
  int ColumnsReadAt = -1;
};

}  // namespace zanhost
