#pragma once

#include <sqlite3.h>

#include <string>

namespace zanbench {

/// Name and version, for a report.
inline std::string SqliteEngine() { return std::string("SQLite ") + sqlite3_libversion(); }

/// One statement prepared once in SQLite's own interface, as the fastest program would hold it. Reads its
/// first column as a list joined by commas.
class TBareStatement {
 public:
  TBareStatement(const std::string& file, const std::string& statement) {
    sqlite3_open_v2(file.c_str(), &FConnection, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    sqlite3_prepare_v3(FConnection, statement.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &FStatement, nullptr);
  }
  ~TBareStatement() {
    sqlite3_finalize(FStatement);
    sqlite3_close(FConnection);
  }
  TBareStatement(const TBareStatement&) = delete;
  TBareStatement& operator=(const TBareStatement&) = delete;

  /// Binds the one parameter. Each value is followed by a comma.
  std::string Ask(int parameter) {
    std::string list;
    sqlite3_bind_int(FStatement, 1, parameter);
    while (sqlite3_step(FStatement) == SQLITE_ROW) {
      list += reinterpret_cast<const char*>(sqlite3_column_text(FStatement, 0));
      list += ',';
    }
    sqlite3_reset(FStatement);
    return list;
  }

 private:
  sqlite3* FConnection = nullptr;
  sqlite3_stmt* FStatement = nullptr;
};

}  // namespace zanbench
