#pragma once

#include <set>
#include <string>

#include "host/query/Sqlite/Handles.h"

namespace zanhost {

/// Keeps a connection to reading the tables of its file: SQLite asks it about each thing that a statement
/// would do, while it prepares the statement.
class TSqliteRestriction {
 public:
  /// Begins at once. `tables` are those that may be read, besides the engine's list of them. The object must
  /// live as long as the connection prepares statements.
  TSqliteRestriction(sqlite3* connection, const std::set<std::string>& tables);
  TSqliteRestriction(const TSqliteRestriction&) = delete;
  TSqliteRestriction& operator=(const TSqliteRestriction&) = delete;

  /// Why something was refused, as a sentence for a person; empty when nothing was.
  const std::string& Reason() const { return FReason; }
  /// A new statement begins.
  void ForgetReason() { FReason.clear(); }

 private:
  static int OnAsked(void* self, int action, const char* first, const char* second, const char* database,
                     const char* trigger);
  bool Allows(int action, const char* first, const char* second);
  bool AllowsReading(const std::string& table, const std::string& column);
  bool AllowsFunction(const std::string& name);
  bool Refuse(std::string reason);

  std::set<std::string> FTables;  ///< in lower case
  std::string FReason;
};

}  // namespace zanhost
