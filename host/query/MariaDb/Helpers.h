#pragma once

#include "Frame/Host/Zandbs.h"

namespace zanhost {

// The helper family of MySQL's dialect.

/// A Boolean column holds 0 or 1.
class TMySqlFieldHelper final : public zanrole::TDBFieldHelper {
 public:
  bool GetBoolean(const zanrole::TField& field) override { return field.AsBoolean(); }
};

class TMySqlParamHelper final : public zanrole::TDBParamHelper {
 public:
  void SetBoolean(zanrole::TParam& param, bool value) override { param.AsBoolean(value); }
};

/// `name`
class TMySqlObjectHelper final : public zanrole::TDBObjectHelper {
 public:
  std::string QuoteName(std::string_view name) override;
};

/// A cast names no varchar.
class TMySqlTypesHelper final : public zanrole::TDBTypesHelper {
 public:
  std::string WideTextType() override { return "char"; }
};

/// Outside a routine MySQL has no conditional statement: the module calls a stored routine in its place.
class TMySqlFunctionsHelper final : public zanrole::TDBFunctionsHelper {
 public:
  std::string RowCountExpression() override { return "row_count()"; }
  std::string ConditionalStatement(std::string_view condition, std::string_view statement) override;
  std::string ConditionalEnd() override { return "end if;"; }
};

class TMySqlSelectHelper final : public zanrole::TSelectSQLHelper {
 public:
  std::string Build(const zanrole::TZANSelectSQLEntity& entity) override;
};

}  // namespace zanhost
