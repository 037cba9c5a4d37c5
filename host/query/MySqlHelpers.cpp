#include "host/query/MySqlHelpers.h"

namespace zanhost {

namespace {

class TMySqlObjectHelper final : public zanrole::TDBObjectHelper {
 public:
  std::string QuoteName(std::string_view name) override { return "`" + std::string(name) + "`"; }
};

class TMySqlTypesHelper final : public zanrole::TDBTypesHelper {
 public:
  std::string WideTextType() override { return "char"; }
};

class TMySqlFunctionsHelper final : public zanrole::TDBFunctionsHelper {
 public:
  std::string RowCountExpression() override { return "row_count()"; }
  std::string ConditionalStatement(std::string_view condition, std::string_view statement) override {
    return "if " + std::string(condition) + " then " + std::string(statement) + " ";
  }
  std::string ConditionalEnd() override { return "end if;"; }
};

constexpr TDialectFamily kFamily{zanrole::TDialect::MySql,
                                 "mysql",
                                 MakeHelper<zanrole::TDBFieldHelper, TBitFieldHelper>,
                                 MakeHelper<zanrole::TDBParamHelper, TBitParamHelper>,
                                 MakeHelper<zanrole::TDBObjectHelper, TMySqlObjectHelper>,
                                 MakeHelper<zanrole::TDBTypesHelper, TMySqlTypesHelper>,
                                 MakeHelper<zanrole::TDBFunctionsHelper, TMySqlFunctionsHelper>,
                                 MakeHelper<zanrole::TSelectSQLHelper, TLimitSelectHelper>};

}  // namespace

const TDialectFamily& MySqlFamily() { return kFamily; }

}  // namespace zanhost
