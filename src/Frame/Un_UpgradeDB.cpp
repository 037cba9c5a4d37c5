#include "Frame/Un_UpgradeDB.h"

#include "Frame/Dialects.h"
#include "Frame/Session.h"

namespace zanrole {

namespace {

/// The session has seen to the upgrade.
struct TUpgradeDone {
  bool Value = false;
};

}  // namespace

TUpgradeDB::TUpgradeDB()
    : FDataQuery(TDbProviderFactory::GetQuery()), FDataExec(TDbProviderFactory::GetQuery()) {}

void TUpgradeDB::Execute() {
  bool& done = TSession::Current().Slot<TUpgradeDone>().Value;
  if (done) return;
  TUpgradeDB().DoUpgrade();
  done = true;
}

void TUpgradeDB::DoUpgrade() { UpdateSTUsersCreatorName(); }

void TUpgradeDB::ExecSqlText(std::string_view text) { ExecStatement(*FDataExec, std::string(text)); }

void TUpgradeDB::AddMissingColumn(std::string_view column, std::string_view statement,
                                  std::string_view type) {
  if (FDataQuery->FindField(column) == nullptr) ExecSqlText(std::string(statement) + std::string(type));
}

void TUpgradeDB::UpdateSTUsersCreatorName() {
  const std::string_view integerType = DialectText("int", "integer", "int");
  const std::string_view dateType = DialectText("DATETIME", "DATE", "DATETIME");
  const std::string textType = TextTypeName() + "(200)";

  OpenStatement(*FDataQuery, "select * from STUsers where 1=0");
  AddMissingColumn("Creator", "alter table STUsers add Creator ", integerType);
  AddMissingColumn("CreateTime", "alter table STUsers add CreateTime ", dateType);
  AddMissingColumn("CreatorName", "alter table STUsers add CreatorName ", textType);
  AddMissingColumn("ModifierName", "alter table STUsers add ModifierName ", textType);
  AddMissingColumn("ModifyTime", "alter table STUsers add ModifyTime ", dateType);
  FDataQuery->Close();
}

}  // namespace zanrole
