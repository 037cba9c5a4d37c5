#pragma once

#include "Frame/Host/Zandbs.h"

namespace zanhost {

// The helper family of SQL Server's dialect, in what SQLite takes of it.

/// A Boolean column holds 0 or 1.
class TSqliteFieldHelper final : public zanrole::TDBFieldHelper {
 public:
  bool GetBoolean(const zanrole::TField& field) override { return field.AsBoolean(); }
};

class TSqliteParamHelper final : public zanrole::TDBParamHelper {
 public:
  void SetBoolean(zanrole::TParam& param, bool value) override { param.AsBoolean(value); }
};

/// [name]
class TSqliteObjectHelper final : public zanrole::TDBObjectHelper {
 public:
  std::string QuoteName(std::string_view name) override;
};

class TSqliteTypesHelper final : public zanrole::TDBTypesHelper {
 public:
  std::string WideTextType() override { return "nvarchar"; }
};

/// SQLite has no conditional statement; the condition goes into the statement itself.
class TSqliteFunctionsHelper final : public zanrole::TDBFunctionsHelper {
 public:
  std::string RowCountExpression() override { return "changes()"; }
  /// "insert into T(…) values(…);" becomes an insert … select … where. Raises EDatabaseError for any other
  /// statement.
  std::string ConditionalStatement(std::string_view condition, std::string_view statement) override;
  std::string ConditionalEnd() override { return {}; }
};

class TSqliteSelectHelper final : public zanrole::TSelectSQLHelper {
 public:
  std::string Build(const zanrole::TZANSelectSQLEntity& entity) override;
};

}  // namespace zanhost
