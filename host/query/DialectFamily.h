#pragma once

#include <memory>
#include <string_view>

#include "Frame/Host/Zandbs.h"

namespace zanhost {

/// A dialect that the module speaks, with the helpers that write and read it. Each maker gives a fresh
/// helper.
struct TDialectFamily {
  zanrole::TDialect Dialect;
  std::string_view ServerType;  ///< "mssql", "oracle" or "mysql"
  std::unique_ptr<zanrole::TDBFieldHelper> (*FieldHelper)();
  std::unique_ptr<zanrole::TDBParamHelper> (*ParamHelper)();
  std::unique_ptr<zanrole::TDBObjectHelper> (*ObjectHelper)();
  std::unique_ptr<zanrole::TDBTypesHelper> (*TypesHelper)();
  std::unique_ptr<zanrole::TDBFunctionsHelper> (*FunctionsHelper)();
  std::unique_ptr<zanrole::TSelectSQLHelper> (*SelectHelper)();
};

/// A maker of such a helper.
template <typename THelper, typename TImplementation>
std::unique_ptr<THelper> MakeHelper() {
  return std::make_unique<TImplementation>();
}

/// A Boolean column holds 0 or 1.
class TBitFieldHelper final : public zanrole::TDBFieldHelper {
 public:
  bool GetBoolean(const zanrole::TField& field) override { return field.AsBoolean(); }
};

/// The server takes a Boolean parameter for such a column.
class TBitParamHelper final : public zanrole::TDBParamHelper {
 public:
  void SetBoolean(zanrole::TParam& param, bool value) override { param.AsBoolean(value); }
};

/// "select FIELDS from TABLE where … order by …" without the clauses that are empty.
std::string PlainSelect(const zanrole::TZANSelectSQLEntity& entity);

/// The first row of such a select by "limit 1" behind it.
class TLimitSelectHelper final : public zanrole::TSelectSQLHelper {
 public:
  std::string Build(const zanrole::TZANSelectSQLEntity& entity) override;
};

}  // namespace zanhost
