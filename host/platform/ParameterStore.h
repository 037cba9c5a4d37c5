#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "Frame/Host/Zandbs.h"

namespace zanhost {

/// One text that a plug-in keeps in the database.
class TPluginParam {
 public:
  /// The stored text; empty when there is none. Changes reach the database with SaveToDB only.
  std::string Text;

  /// Reads the stored text. `database` must outlive the parameter. Raises EDatabaseError.
  TPluginParam(zanrole::TDatabaseServices& database, std::string_view group, int id, std::string_view name);

  /// Stores `Text` in the place of what was stored. Raises EDatabaseError.
  void SaveToDB() const;

 private:
  void BindKey(zanrole::TZANQuery& query) const;
  void Execute(const char* statement) const;

  zanrole::TDatabaseServices* FDatabase;
  std::string FGroup;
  int FId;
  std::string FName;
};

/// The parameter store of plug-ins: texts by group, identity of the object they are about, and name.
class TPluginParamHome {
 public:
  /// `database` must outlive the store and the parameters it gave.
  explicit TPluginParamHome(zanrole::TDatabaseServices& database) : FDatabase(&database) {}

  /// Never null. Raises EDatabaseError.
  std::unique_ptr<TPluginParam> GetParam(std::string_view group, int id, std::string_view name);

 private:
  zanrole::TDatabaseServices* FDatabase;
};

}  // namespace zanhost
