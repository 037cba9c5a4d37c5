#pragma once

#include "Frame/Host/Zandbs.h"

namespace zanhost {

class TMariaDbDatabase;

/// A query object on a MariaDB server. Its database outlives it.
class TMariaDbQuery final : public zanrole::TZANQuery {
 public:
  TMariaDbQuery(TMariaDbDatabase& database, bool onSystem) : FDatabase(database), FOnSystem(onSystem) {}

  void Open() override;
  void ExecSQL() override;

 private:
  TMariaDbDatabase& FDatabase;
  bool FOnSystem;
};

}  // namespace zanhost
