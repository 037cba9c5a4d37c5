#include "Party/PartyServiceOperations.h"

#include "Frame/ServiceOperations.h"
#include "Party/PartyDAL.h"
#include "Party/PartyUn.h"

namespace zanrole {

namespace {

TPartyDAL& Dal() { return TServiceObject<TPartyDAL>::Get(); }

// Records and rows as texts, for who asks with texts.

/// One text a row: the values of all columns, separated by tabs.
TStringList RowsOf(TDataSet& rows) {
  TStringList list;
  for (rows.First(); !rows.Eof(); rows.Next()) {
    std::string line;
    for (int column = 0; column < rows.FieldCount(); ++column)
      line += (column > 0 ? "\t" : "") + rows.Field(column).AsString();
    list.Add(std::move(line));
  }
  return list;
}

template <typename TRecords>
TStringList NamesOf(const TRecords& records) {
  TStringList names;
  for (const auto& record : records) names.Add(record->FName);
  return names;
}

TStringList GetUserList() { return NamesOf(Dal().GetUserList()); }
TStringList GetRoleList() { return NamesOf(Dal().GetRoleList()); }
TStringList LoadPartyTopLevel() { return NamesOf(Dal().LoadPartyTopLevel()); }
TStringList LoadPartyByParentID(int parent) { return NamesOf(Dal().LoadPartyByParentID(parent)); }
TStringList UserDataSet() { return RowsOf(Dal().UserDataSet()); }
TStringList RoleDataSet() { return RowsOf(Dal().RoleDataSet()); }
TStringList RoleOfOrganizationQuery() { return RowsOf(Dal().RoleOfOrganizationQuery().DataSet()); }
TStringList UserOfOrganizationQuery() { return RowsOf(Dal().UserOfOrganizationQuery().DataSet()); }

void AppendPartyDAL(const TServiceAppender& add) {
  add("GetUserList", &GetUserList);
  add("GetRoleList", &GetRoleList);
  add("LoadPartyTopLevel", &LoadPartyTopLevel);
  add("LoadPartyByParentID", &LoadPartyByParentID, {"ParentID"});
  add("LoadRoles", &TPartyDAL::LoadRoles);
  add("LoadUsers", &TPartyDAL::LoadUsers, {"UserRange"});
  add("LoadRoleOfOrganization", &TPartyDAL::LoadRoleOfOrganization);
  add("LoadUserOfOrganization", &TPartyDAL::LoadUserOfOrganization, {"UserRange"});
  add("UserDataSet", &UserDataSet);
  add("RoleDataSet", &RoleDataSet);
  add("RoleOfOrganizationQuery", &RoleOfOrganizationQuery);
  add("UserOfOrganizationQuery", &UserOfOrganizationQuery);
}

}  // namespace

void AppendPartyServiceOperations(std::vector<TServiceOperation>& operations) {
  AppendPartyDAL(TServiceAppender(operations, "TPartyDAL"));
  const TServiceAppender add(operations, "TPartyFuncs");
  add("Superior", &TPartyFuncs::Superior, {"user"});
  add("Underling", &TPartyFuncs::Underling, {"user"});
  add("SuperOID", &TPartyFuncs::SuperOID, {"user"});
  add("UnderOIDS", &TPartyFuncs::UnderOIDS, {"user"});
  add("SuperiorEx", &TPartyFuncs::SuperiorEx, {"user", "mapName"});
  add("UnderlingEx", &TPartyFuncs::UnderlingEx, {"user", "mapName"});
  add("SuperiorAllEx", &TPartyFuncs::SuperiorAllEx, {"user", "mapName"});
  add("UnderlingAllEx", &TPartyFuncs::UnderlingAllEx, {"user", "mapName"});
  add("SuperOIDEx", &TPartyFuncs::SuperOIDEx, {"user", "mapName"});
  add("UnderOIDSEx", &TPartyFuncs::UnderOIDSEx, {"user", "mapName"});
  add("DepartmentOID", &TPartyFuncs::DepartmentOID, {"user"});
  add("DepartmentCode", &TPartyFuncs::DepartmentCode, {"user"});
  add("DepartmentName", &TPartyFuncs::DepartmentName, {"user"});
  add("CompanyOID", &TPartyFuncs::CompanyOID, {"user"});
  add("CompanyCode", &TPartyFuncs::CompanyCode, {"user"});
  add("CompanyName", &TPartyFuncs::CompanyName, {"user"});
  add("CompanyCodeByDepartmentOid", &TPartyFuncs::CompanyCodeByDepartmentOid, {"departmentOid"});
  add("PositionEntityOID", &TPartyFuncs::PositionEntityOID, {"user"});
  add("PositionEntityCode", &TPartyFuncs::PositionEntityCode, {"user"});
  add("PositionEntityName", &TPartyFuncs::PositionEntityName, {"user"});
  add("PositionCode", &TPartyFuncs::PositionCode, {"user"});
  add("PositionName", &TPartyFuncs::PositionName, {"user"});
  add("PositionUserOIDs", &TPartyFuncs::PositionUserOIDs, {"positionCode"});
  add("PositionUsercodes", &TPartyFuncs::PositionUsercodes, {"positionCode"});
  add("PositionUserNames", &TPartyFuncs::PositionUserNames, {"positionCode"});
  add("GetPositionUserValues", &TPartyFuncs::GetPositionUserValues, {"positionEntity", "column"});
  add("GetManagerCode", &TPartyFuncs::GetManagerCode, {"code"});
  add("GetManagerName", &TPartyFuncs::GetManagerName, {"code"});
  add("GetManagerPositionEntity", &TPartyFuncs::GetManagerPositionEntity, {"code"});
  add("GetUserOID", &TPartyFuncs::GetUserOID, {"user"});
  add("GetUserOIDS", &TPartyFuncs::GetUserOIDS, {"users"});
  add("findMapId", &TPartyFuncs::findMapId, {"name"});
}

}  // namespace zanrole
