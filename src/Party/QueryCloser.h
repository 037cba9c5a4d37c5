#pragma once

#include "Frame/Host/Zandbs.h"

namespace zanrole {

/// Closes a query that is kept for further use when its reading is over, also when that fails.
class TQueryCloser {
 public:
  explicit TQueryCloser(TZANQuery& query) : FQuery(query) {}
  ~TQueryCloser() { FQuery.Close(); }
  TQueryCloser(const TQueryCloser&) = delete;
  TQueryCloser& operator=(const TQueryCloser&) = delete;

 private:
  TZANQuery& FQuery;
};

}  // namespace zanrole
