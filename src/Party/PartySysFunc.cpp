#include "Party/PartySysFunc.h"

#include "Party/PartySysFuncPositions.h"
#include "Party/PartySysFuncSuperiors.h"
#include "Party/PartySysFuncUnits.h"

namespace zanrole {

namespace {

template <typename TFunc>
TFuncClass Row(const char* className) {
  return {className, TFuncType::System,
          []() -> std::unique_ptr<TBaseFunc> { return std::make_unique<TFunc>(); }};
}

}  // namespace

void AppendPartyFuncClasses(std::vector<TFuncClass>& classes) {
  const TFuncClass rows[] = {
      Row<TSysFunc_SuperiorEx>("TSysFunc_SuperiorEx"),
      Row<TSysFunc_UnderlingEx>("TSysFunc_UnderlingEx"),
      Row<TSysFunc_SuperiorAllEx>("TSysFunc_SuperiorAllEx"),
      Row<TSysFunc_UnderlingAllEx>("TSysFunc_UnderlingAllEx"),
      Row<TSysFunc_GetUserOID>("TSysFunc_GetUserOID"),
      Row<TSysFunc_GetUserOIDS>("TSysFunc_GetUserOIDS"),
      Row<TSysFunc_DepartmentOID>("TSysFunc_DepartmentOID"),
      Row<TSysFunc_DepartmentCode>("TSysFunc_DepartmentCode"),
      Row<TSysFunc_DepartmentName>("TSysFunc_DepartmentName"),
      Row<TSysFunc_CompanyOID>("TSysFunc_CompanyOID"),
      Row<TSysFunc_CompanyCode>("TSysFunc_CompanyCode"),
      Row<TSysFunc_CompanyName>("TSysFunc_CompanyName"),
      Row<TSysFunc_PositionEntityOID>("TSysFunc_PositionEntityOID"),
      Row<TSysFunc_PositionEntityCode>("TSysFunc_PositionEntityCode"),
      Row<TSysFunc_PositionEntityName>("TSysFunc_PositionEntityName"),
      Row<TSysFunc_PositionCode>("TSysFunc_PositionCode"),
      Row<TSysFunc_PositionName>("TSysFunc_PositionName"),
      Row<TSysFunc_PositionUserOIDs>("TSysFunc_PositionUserOIDs"),
      Row<TSysFunc_PositionUsercodes>("TSysFunc_PositionUsercodes"),
      Row<TSysFunc_PositionUserNames>("TSysFunc_PositionUserNames"),
      Row<TSysFunc_GetManagerCode>("TSysFunc_GetManagerCode"),
      Row<TSysFunc_GetManagerName>("TSysFunc_GetManagerName"),
  };
  classes.insert(classes.end(), std::begin(rows), std::end(rows));
}

}  // namespace zanrole
