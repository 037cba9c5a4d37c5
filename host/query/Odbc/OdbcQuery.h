#pragma once

#include "Frame/Host/Zandbs.h"

namespace zanhost {

class TOdbcDatabase;

/// A query object behind an ODBC driver. Its database outlives it.
class TOdbcQuery final : public zanrole::TZANQuery {
 public:
  TOdbcQuery(TOdbcDatabase& database, bool onSystem) : FDatabase(database), FOnSystem(onSystem) {}

  void Open() override;
  void ExecSQL() override;

 private:
  TOdbcDatabase& FDatabase;
  bool FOnSystem;
};

}  // namespace zanhost
