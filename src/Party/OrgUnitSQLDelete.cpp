#include "Frame/Dialects.h"
#include "Party/OrgUnitSQL.h"

namespace zanrole {

namespace {

// The identity of the node is joined on to each.
constexpr const char* kMainPost = "select ObjID from UserH where ObjID=";
constexpr const char* kToRecycleBin = "UPDATE PartyH SET Parent = -9 WHERE Djlsh=";
constexpr const char* kDeleteNode = "delete from PartyH where Djlsh=";
constexpr const char* kDeletePosition = "delete from PositionEntityH where ObjID=";
constexpr const char* kForgetMainPost = "update userH set ObjID=0 where ObjID=";
constexpr const char* kDeleteCompanyEntity = "Delete  from CompanyH where ObjID=";
constexpr const char* kDeleteDepartmentEntity = "Delete  from DepartmentH where ObjID=";
constexpr const char* kDeletePositionEntity = "Delete from PositionEntityH where ObjID=";
constexpr const char* kDeleteUserEntity = "Delete from UserH where ObjID=";

bool IsMainPost(TZANQuery& query, const TOrgUnit& unit) {
  if (!unit.isUser()) return false;
  OpenStatement(query, kMainPost + std::to_string(unit.ID));
  return !query.Eof();
}

}  // namespace

void TOrgUnitSQL::DeleteOrgUnit(const TOrgUnit& AOrgUnit, bool /*flag*/) {
  if (AOrgUnit.ID == 0) return;
  const std::string id = std::to_string(AOrgUnit.ID);
  try {
    const auto query = TDbProviderFactory::GetQuery();
    ExecStatement(*query, (IsMainPost(*query, AOrgUnit) ? kToRecycleBin : kDeleteNode) + id);
    if (AOrgUnit.isPositionEntity()) ExecStatement(*query, kDeletePosition + id);
    if (AOrgUnit.isUser()) ExecStatement(*query, kForgetMainPost + id);
  } catch (const EZanError&) {
    // The caller goes on with its next unit as after a success.
  }
}

void TOrgUnitSQL::DeleteOrgUnitEntity(const TOrgUnit& AOrgUnit) {
  const auto query = TDbProviderFactory::GetQuery();
  const std::string id = std::to_string(AOrgUnit.ID);
  ExecStatement(*query, kDeleteNode + id);
  if (AOrgUnit.isCompany()) ExecStatement(*query, kDeleteCompanyEntity + id);
  if (AOrgUnit.isDepartment()) ExecStatement(*query, kDeleteDepartmentEntity + id);
  if (AOrgUnit.isPositionEntity()) ExecStatement(*query, kDeletePositionEntity + id);
  if (AOrgUnit.isUser()) ExecStatement(*query, kDeleteUserEntity + id);
}

void TOrgUnitSQL::DeleteRelation(const TOrgUnit& AOrgUnit) {
  for (const TOrgUnit* child : AOrgUnit.Children()) DeleteRelation(*child);
  DeleteOrgUnit(AOrgUnit, true);
}

void TOrgUnitSQL::Delete(const TOrgUnit& AOrgUnit) {
  if (AOrgUnit.isPositionEntity()) {
    TOrgUnitList people;
    ListUsersByParent(AOrgUnit, people);
    for (const auto& person : people) Delete(*person);
  }
  for (const TOrgUnit* child : AOrgUnit.Children()) Delete(*child);
  if (AOrgUnit.isUser())
    DeleteOrgUnit(AOrgUnit, true);
  else
    DeleteOrgUnitEntity(AOrgUnit);
}

}  // namespace zanrole
