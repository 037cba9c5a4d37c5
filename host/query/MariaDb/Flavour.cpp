#include "host/query/MariaDb/Flavour.h"

#include "host/query/MariaDb/Rules.h"
#include "host/query/MariaDb/Script.h"
#include "host/query/MySqlHelpers.h"
#include "host/query/OracleHelpers.h"
#include "host/query/OracleScript.h"

namespace zanhost {

namespace {

constexpr std::string_view kMySqlRoutines[]{
    "DB_NAME",
    "GetDate",
    "Get_Partyh_Children_DjLsh",
    "Get_Partyh_Parent_DjLsh",
    "get_Parthh_Nodelevel",
    "get_UserFullDeptName",
    "MySql_execute_MultiSql",
    "MySql_RatingPermissionTreeNodes",
    "MySql_SetOrgFullName",
    "MySql_STDomainsGetFullName",
    "Mysql_Update_STUserPasswordStrategy",
    "P_RefreshPartyParentPath",
};

constexpr std::string_view kOracleRoutines[]{"getdate", "P_RefreshPartyParentPath", "ZanLoginUser",
                                             "ZanToChar"};

std::vector<std::string> MySqlScriptStatements(std::string_view script) {
  const std::vector<std::string_view> statements = SplitMariaDbScript(script);
  return {statements.begin(), statements.end()};
}

std::vector<std::string> OracleScriptStatements(std::string_view script) {
  std::vector<std::string> statements;
  for (const std::string_view statement : SplitOracleScript(script)) {
    TTokens tokens = Tokenize(statement);
    statements.push_back(AdaptScriptForOracleMode(tokens));
  }
  return statements;
}

// In both, texts are what they are: a backslash is a character like any other, || joins.
constexpr TMariaDbFlavour kMySql{
    MySqlFamily,
    "STRICT_TRANS_TABLES,NO_ENGINE_SUBSTITUTION,NO_BACKSLASH_ESCAPES,PIPES_AS_CONCAT",
    MariaDbRules,
    /*BatchIsBlock*/ false,
    MySqlScriptStatements,
    kMySqlRoutines,
};

constexpr TMariaDbFlavour kOracle{
    OracleFamily,
    "ORACLE,EMPTY_STRING_IS_NULL,NO_BACKSLASH_ESCAPES,STRICT_TRANS_TABLES,NO_ENGINE_SUBSTITUTION",
    OracleModeRules,
    /*BatchIsBlock*/ true,
    OracleScriptStatements,
    kOracleRoutines,
};

}  // namespace

const TMariaDbFlavour& MariaDbFlavourOf(zanrole::TDialect dialect) {
  return dialect == zanrole::TDialect::Oracle ? kOracle : kMySql;
}

}  // namespace zanhost
