#include "Party/PartyServiceOperations.h"

#include "Frame/ServiceOperations.h"
#include "Party/PartyUn.h"

namespace zanrole {

void AppendPartyServiceOperations(std::vector<TServiceOperation>& operations) {
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
