#include "tests/host/FunctionValues.h"

#include "tests/host/Rows.h"

namespace zantest {

namespace {

// clang-format off

/// A login whose position has others above and below it on the map.
constexpr char kPersonOnMap[] =
    "select p.Code from PartyH p inner join PositionMapH m on m.PositionID = p.Parent"
    " inner join PositionMapH above on above.Djlsh = m.UpperPosition and above.PositionID > 0"
    " inner join PositionMapH below on below.UpperPosition = m.Djlsh"
    " inner join PartyH boss on boss.Parent = above.PositionID"
    " inner join PartyH worker on worker.Parent = below.PositionID"
    " inner join UserH u on u.code = p.Code and u.ObjID = p.DjLsh"
    " where p.Type = 'User' and m.MapID = (select min(MapId) from PositionMapH where PositionID = -1)";

constexpr char kDepartmentWithManager[] =
    "select d.Code from PartyH d inner join PartyH p on p.Parent = d.DjLsh"
    " inner join PositionEntityH e on e.ObjID = p.DjLsh and e.isManager = 1"
    " inner join PartyH u on u.Parent = p.DjLsh where d.Type = 'Department'";

constexpr char kPositionWithHolder[] =
    "select e.Code from PositionEntityH e inner join PartyH u on u.Parent = e.ObjID where u.Type = 'User'";

// clang-format on

}  // namespace

TFunctionValues ExistingValues(zanhost::TDatabase& database) {
  const auto first = [&](const std::string& statement) { return Text(database, statement); };
  const std::string person = first(kPersonOnMap);
  return {{"当前用户", person},
          {"用户号", person},
          {"用户号集", person + "," + first("select code from UserH where ObjID > 0")},
          {"岗位号", first(kPositionWithHolder)},
          {"岗位关系图", first("select PositionName from PositionMapH where PositionID = -1 order by MapId")},
          {"ParentCode", first(kDepartmentWithManager)},
          {"域ID", first("select ID from STDomains")},
          {"域代码", first("select Code from STDomains")},
          {"域节点代码", first("select FullCode from STDomains")},
          {"域名称", first("select Name from STDomains")},
          {"返回内容", ""},
          {"查询范围", "域范围,所属域,当前域"},
          {"是否包含下级域", "true"},
          {"查询条件", ""}};
}

std::vector<const zanhost::TFunction*> SystemFunctions(const std::vector<zanhost::TFunction>& all) {
  std::vector<const zanhost::TFunction*> functions;
  for (const zanhost::TFunction& function : all)
    if (function.Type == zanrole::TFuncType::System) functions.push_back(&function);
  return functions;
}

}  // namespace zantest
