#include "host/query/OracleHelpers.h"

#include <algorithm>

namespace zanhost {

namespace {

class TOracleParamHelper final : public zanrole::TDBParamHelper {
 public:
  void SetBoolean(zanrole::TParam& param, bool value) override { param.AsInteger(value ? 1 : 0); }
};

class TOracleObjectHelper final : public zanrole::TDBObjectHelper {
 public:
  std::string QuoteName(std::string_view name) override {
    std::string upper(name);
    std::ranges::transform(upper, upper.begin(), [](char letter) {
      return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    });
    return "\"" + upper + "\"";
  }
};

class TOracleTypesHelper final : public zanrole::TDBTypesHelper {
 public:
  std::string WideTextType() override { return "nvarchar2"; }
};

class TOracleFunctionsHelper final : public zanrole::TDBFunctionsHelper {
 public:
  std::string RowCountExpression() override { return "SQL%ROWCOUNT"; }
  std::string ConditionalStatement(std::string_view condition, std::string_view statement) override {
    return "if " + std::string(condition) + " then " + std::string(statement) + " ";
  }
  std::string ConditionalEnd() override { return "end if;"; }
};

class TOracleSelectHelper final : public zanrole::TSelectSQLHelper {
 public:
  std::string Build(const zanrole::TZANSelectSQLEntity& entity) override {
    return "select * from (" + PlainSelect(entity) + ") where rownum = 1";
  }
};

constexpr TDialectFamily kFamily{zanrole::TDialect::Oracle,
                                 "oracle",
                                 MakeHelper<zanrole::TDBFieldHelper, TBitFieldHelper>,
                                 MakeHelper<zanrole::TDBParamHelper, TOracleParamHelper>,
                                 MakeHelper<zanrole::TDBObjectHelper, TOracleObjectHelper>,
                                 MakeHelper<zanrole::TDBTypesHelper, TOracleTypesHelper>,
                                 MakeHelper<zanrole::TDBFunctionsHelper, TOracleFunctionsHelper>,
                                 MakeHelper<zanrole::TSelectSQLHelper, TOracleSelectHelper>};

}  // namespace

const TDialectFamily& OracleFamily() { return kFamily; }

}  // namespace zanhost
