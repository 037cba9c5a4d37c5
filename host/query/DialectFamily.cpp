#include "host/query/DialectFamily.h"

namespace zanhost {

std::string PlainSelect(const zanrole::TZANSelectSQLEntity& entity) {
  std::string text = "select " + entity.Fields + " from " + entity.Table;
  if (!entity.Where.empty()) text += " where " + entity.Where;
  if (!entity.OrderBy.empty()) text += " order by " + entity.OrderBy;
  return text;
}

std::string TLimitSelectHelper::Build(const zanrole::TZANSelectSQLEntity& entity) {
  return PlainSelect(entity) + " limit 1";
}

}  // namespace zanhost
