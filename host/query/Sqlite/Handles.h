#pragma once

#include <sqlite3.h>

#include <memory>

namespace zanhost {

struct TConnectionCloser {
  void operator()(sqlite3* connection) const noexcept { sqlite3_close_v2(connection); }
};
struct TStatementFinalizer {
  void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
};

using TConnectionHandle = std::unique_ptr<sqlite3, TConnectionCloser>;
using TStatementHandle = std::unique_ptr<sqlite3_stmt, TStatementFinalizer>;

/// Gives a statement back for its next use when the block is left; its values are no longer read then.
class TStatementReset {
 public:
  explicit TStatementReset(sqlite3_stmt* statement) : FStatement(statement) {}
  ~TStatementReset() { sqlite3_reset(FStatement); }
  TStatementReset(const TStatementReset&) = delete;
  TStatementReset& operator=(const TStatementReset&) = delete;

 private:
  sqlite3_stmt* FStatement;
};

}  // namespace zanhost
