#include "host/query/Sqlite/Helpers.h"

#include "host/query/SqlServerHelpers.h"
#include "host/query/Tokens.h"

namespace zanhost {

namespace {

class TSqliteFunctionsHelper final : public zanrole::TDBFunctionsHelper {
 public:
  std::string RowCountExpression() override { return "changes()"; }
  std::string ConditionalStatement(std::string_view condition, std::string_view statement) override;
  std::string ConditionalEnd() override { return {}; }
};

std::string TSqliteFunctionsHelper::ConditionalStatement(std::string_view condition,
                                                         std::string_view statement) {
  const TTokens tokens = Tokenize(statement);
  const std::size_t values = FindOuterWord(tokens, "values", 0, tokens.size());
  const std::size_t open = values + 1;
  const bool isInsert = !tokens.empty() && tokens[0].IsWord("insert") && open < tokens.size() &&
                        tokens[open].IsOperator("(") && ClosingBracket(tokens, open) < tokens.size();
  if (!isInsert)
    throw zanrole::EDatabaseError("Only an insert of values can be made conditional.",
                                  std::string(statement));
  const auto at = [&](std::size_t index) { return tokens.begin() + static_cast<std::ptrdiff_t>(index); };
  const TTokens head(tokens.begin(), at(values));
  const TTokens list(at(open + 1), at(ClosingBracket(tokens, open)));
  return TokensToText(head) + " select " + TokensToText(list) + " where " + std::string(condition) + ";";
}

constexpr TDialectFamily kFamily{zanrole::TDialect::SqlServer,
                                 "mssql",
                                 MakeHelper<zanrole::TDBFieldHelper, TBitFieldHelper>,
                                 MakeHelper<zanrole::TDBParamHelper, TBitParamHelper>,
                                 MakeHelper<zanrole::TDBObjectHelper, TSqlServerObjectHelper>,
                                 MakeHelper<zanrole::TDBTypesHelper, TSqlServerTypesHelper>,
                                 MakeHelper<zanrole::TDBFunctionsHelper, TSqliteFunctionsHelper>,
                                 MakeHelper<zanrole::TSelectSQLHelper, TLimitSelectHelper>};

}  // namespace

const TDialectFamily& SqliteFamily() { return kFamily; }

}  // namespace zanhost
