#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "Frame/Host/Zandbs.h"

namespace zanrole {

/// The door to the current session's queries. Each query is fresh and belongs to the caller.
class TDbProviderFactory {
 public:
  /// On the data database, and on the system database.
  static std::unique_ptr<TZANQuery> GetQuery();
  static std::unique_ptr<TZANQuery> GetSysQuery();
};

/// The door to the small helpers of the current session's dialect. Each is got for one use.
class TDbHelperProviderFactory {
 public:
  static std::unique_ptr<TDBFieldHelper> GetDBFieldHelper();
  static std::unique_ptr<TDBParamHelper> GetDBParamHelper();
  static std::unique_ptr<TDBObjectHelper> GetDBObjectHelper();
  static std::unique_ptr<TDBTypesHelper> GetDBTypesHelper();
  static std::unique_ptr<TDBFunctionsHelper> GetDBFunctionsHelper();
  static std::unique_ptr<TSelectSQLHelper> GetSelectSQLHelper();
};

/// Exactly one dialect holds; neither of the two means SQL Server, for which most statements are written.
bool DbHelper_IsMySql();
bool DbHelper_IsOracle();
/// Name of the server in lower case.
std::string DbHelper_DBServerType();

/// The one of three texts that the dialect takes.
std::string_view DialectText(std::string_view sqlServer, std::string_view oracle, std::string_view mySql);

/// A statement written with "IsNull(", in any case of letters, in the null function of the dialect.
std::string NullFuncRewrite(std::string_view statement);
/// The date expression of the dialect: now.
ZAN_EXPORT std::string DBCurDateStr();
/// What follows a select of constants: " from dual " on Oracle, nothing elsewhere.
std::string DualSuffix();
/// Type of the text columns that this module adds; the caller joins a length in brackets.
std::string TextTypeName();
/// Operator that joins two texts.
std::string_view ConcatOperator();

/// Prefix of a table of the data database, or of the system database, in a statement that runs on the other
/// one; the caller adds a dot and the table. Each runs one statement.
ZAN_EXPORT std::string GetDataDbName();
ZAN_EXPORT std::string GetSysDbName();

/// Largest identity plus one, as `statement` ("Select Max(OID) as MID From STUsers") gives the largest in its
/// first column; 1 for an empty table. Neither locks nor retries: the key of the table rejects a second
/// writer.
int NextIdentity(TZANQuery& query, std::string statement);

/// The statements, each closed with ";", as one text that goes to the server in one call: whole or not at
/// all.
std::string WrapBatch(const TStringList& statements);
/// Sends the batch. An empty list is not sent.
void RunBatch(TZANQuery& query, const TStringList& statements);

/// Runs a statement without a result, or opens one with a result, on a closed query.
void ExecStatement(TZANQuery& query, std::string statement);
void OpenStatement(TZANQuery& query, std::string statement);

}  // namespace zanrole
