#pragma once

#include <string_view>

#include "Frame/Host/Zandbs.h"

namespace zanhost {

class TSqliteDatabase;

/// A query object on the embedded database. Its database outlives it.
class TSqliteQuery final : public zanrole::TZANQuery {
 public:
  /// `name` is a constant: which database the module asked for, "data" or "system".
  TSqliteQuery(TSqliteDatabase& database, std::string_view name) : FDatabase(database), FName(name) {}

  void Open() override;
  void ExecSQL() override;

 private:
  TSqliteDatabase& FDatabase;
  std::string_view FName;
};

}  // namespace zanhost
