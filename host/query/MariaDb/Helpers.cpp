#include "host/query/MariaDb/Helpers.h"

namespace zanhost {

std::string TMySqlObjectHelper::QuoteName(std::string_view name) { return "`" + std::string(name) + "`"; }

std::string TMySqlFunctionsHelper::ConditionalStatement(std::string_view condition,
                                                        std::string_view statement) {
  return "if " + std::string(condition) + " then " + std::string(statement) + " ";
}

std::string TMySqlSelectHelper::Build(const zanrole::TZANSelectSQLEntity& entity) {
  std::string text = "select " + entity.Fields + " from " + entity.Table;
  if (!entity.Where.empty()) text += " where " + entity.Where;
  if (!entity.OrderBy.empty()) text += " order by " + entity.OrderBy;
  return text + " limit 1";
}

}  // namespace zanhost
