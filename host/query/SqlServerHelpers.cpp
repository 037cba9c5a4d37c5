#include "host/query/SqlServerHelpers.h"

namespace zanhost {

namespace {

class TSqlServerFunctionsHelper final : public zanrole::TDBFunctionsHelper {
 public:
  std::string RowCountExpression() override { return "@@ROWCOUNT"; }
  std::string ConditionalStatement(std::string_view condition, std::string_view statement) override {
    return "if " + std::string(condition) + " " + std::string(statement) + " ";
  }
  std::string ConditionalEnd() override { return {}; }
};

class TSqlServerSelectHelper final : public zanrole::TSelectSQLHelper {
 public:
  std::string Build(const zanrole::TZANSelectSQLEntity& entity) override {
    zanrole::TZANSelectSQLEntity first = entity;
    first.Fields = "top 1 " + entity.Fields;
    return PlainSelect(first);
  }
};

constexpr TDialectFamily kFamily{zanrole::TDialect::SqlServer,
                                 "mssql",
                                 MakeHelper<zanrole::TDBFieldHelper, TBitFieldHelper>,
                                 MakeHelper<zanrole::TDBParamHelper, TBitParamHelper>,
                                 MakeHelper<zanrole::TDBObjectHelper, TSqlServerObjectHelper>,
                                 MakeHelper<zanrole::TDBTypesHelper, TSqlServerTypesHelper>,
                                 MakeHelper<zanrole::TDBFunctionsHelper, TSqlServerFunctionsHelper>,
                                 MakeHelper<zanrole::TSelectSQLHelper, TSqlServerSelectHelper>};

}  // namespace

const TDialectFamily& SqlServerFamily() { return kFamily; }

}  // namespace zanhost
