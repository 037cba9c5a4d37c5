#pragma once

#include <sql.h>
#include <sqlext.h>

namespace zanhost {

/// A handle of the driver manager; freed with its owner.
template <SQLSMALLINT Kind>
class TOdbcHandle {
 public:
  /// Null when the driver manager refuses; the parent then has the diagnostics.
  explicit TOdbcHandle(SQLHANDLE parent) {
    if (!SQL_SUCCEEDED(SQLAllocHandle(Kind, parent, &FHandle))) FHandle = SQL_NULL_HANDLE;
  }
  ~TOdbcHandle() {
    if (FHandle != SQL_NULL_HANDLE) SQLFreeHandle(Kind, FHandle);
  }
  TOdbcHandle(const TOdbcHandle&) = delete;
  TOdbcHandle& operator=(const TOdbcHandle&) = delete;

  SQLHANDLE Get() const { return FHandle; }

 private:
  SQLHANDLE FHandle = SQL_NULL_HANDLE;
};

}  // namespace zanhost
