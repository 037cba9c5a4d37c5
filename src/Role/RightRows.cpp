#include "Role/RightRows.h"

#include "Frame/Commlib.h"
#include "Frame/Dialects.h"

namespace zanrole {

void TRightOfRoles::Add(TPermissionValue value) {
  FHasRows = true;
  if (value && (!FSmallest || *value < *FSmallest)) FSmallest = value;
}

TSetRight TRightOfRoles::Right() const { return FHasRows ? RightOfValue(FSmallest) : TSetRight::NotSet; }

std::unique_ptr<TZANQuery> QueryOnPair(std::string_view statement, int objectID, std::string_view oprate) {
  auto query = TDbProviderFactory::GetQuery();
  query->SQL().SetText(std::string(statement));
  query->ParamByName("ObjectID").AsInteger(objectID);
  query->ParamByName("Oprate").AsString(oprate);
  return query;
}

std::vector<TPermissionRow> ReadPermissionRows(TZANQuery& query) {
  std::vector<TPermissionRow> rows;
  for (query.Open(); !query.Eof(); query.Next()) {
    const TField& permission = query.FieldByName("Permission");
    TPermissionRow& row = rows.emplace_back();
    row.HolderOID = query.FieldByName("UserID").AsInteger();
    if (!permission.IsNull()) row.Value = permission.AsInteger();
    if (const TField* name = query.FindField("UserName")) row.HolderName = Trim(name->AsString());
  }
  return rows;
}

TRightRow RecordOfRow(const TPermissionRow& row, bool isRole) {
  TRightRow record;
  record.HolderOID = row.HolderOID;
  record.HolderName = row.HolderName;
  record.IsRole = isRole;
  if (row.Value) record.Right = WordOf(RightOfValue(row.Value));
  return record;
}

}  // namespace zanrole
