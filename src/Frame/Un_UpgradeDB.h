#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "Frame/Host/Zandbs.h"

namespace zanrole {

/// Brings the tables of an older database up to what the consoles need: it looks at the table itself and adds
/// the columns that are missing.
class TUpgradeDB {
 public:
  /// Upgrades once a session. A failure raises and leaves the upgrade to be tried again.
  static void Execute();

  TUpgradeDB();
  void DoUpgrade();

 private:
  void UpdateSTUsersCreatorName();
  void AddMissingColumn(std::string_view column, std::string_view statement, std::string_view type);
  void ExecSqlText(std::string_view text);

  std::unique_ptr<TZANQuery> FDataQuery;
  std::unique_ptr<TZANQuery> FDataExec;
};

}  // namespace zanrole
