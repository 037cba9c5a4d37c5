#include "Frame/Dialects.h"

#include <utility>

#include "Frame/Session.h"

namespace zanrole {

std::unique_ptr<TZANQuery> TDbProviderFactory::GetQuery() { return Databases().GetQuery(); }
std::unique_ptr<TZANQuery> TDbProviderFactory::GetSysQuery() { return Databases().GetSysQuery(); }

using TFactory = TDbHelperProviderFactory;
std::unique_ptr<TDBFieldHelper> TFactory::GetDBFieldHelper() { return Databases().GetDBFieldHelper(); }
std::unique_ptr<TDBParamHelper> TFactory::GetDBParamHelper() { return Databases().GetDBParamHelper(); }
std::unique_ptr<TDBObjectHelper> TFactory::GetDBObjectHelper() { return Databases().GetDBObjectHelper(); }
std::unique_ptr<TDBTypesHelper> TFactory::GetDBTypesHelper() { return Databases().GetDBTypesHelper(); }
std::unique_ptr<TDBFunctionsHelper> TFactory::GetDBFunctionsHelper() {
  return Databases().GetDBFunctionsHelper();
}
std::unique_ptr<TSelectSQLHelper> TFactory::GetSelectSQLHelper() { return Databases().GetSelectSQLHelper(); }

bool DbHelper_IsMySql() { return Databases().Dialect() == TDialect::MySql; }
bool DbHelper_IsOracle() { return Databases().Dialect() == TDialect::Oracle; }
std::string DbHelper_DBServerType() { return Databases().ServerType(); }

std::string_view DialectText(std::string_view sqlServer, std::string_view oracle, std::string_view mySql) {
  if (DbHelper_IsMySql()) return mySql;
  return DbHelper_IsOracle() ? oracle : sqlServer;
}

std::string NullFuncRewrite(std::string_view statement) {
  if (DbHelper_IsMySql()) return StringReplace(statement, "IsNull(", "IfNull(", /*ignoreCase*/ true);
  if (DbHelper_IsOracle()) return StringReplace(statement, "IsNull(", "nvl(", /*ignoreCase*/ true);
  return std::string(statement);
}

std::string DBCurDateStr() { return std::string(DialectText("getdate()", "sysdate", "now()")); }

std::string DualSuffix() { return DbHelper_IsOracle() ? " from dual " : ""; }

std::string TextTypeName() { return std::string(DialectText("nvarchar", "nvarchar2", "varchar")); }

std::string_view ConcatOperator() { return DbHelper_IsOracle() ? "||" : "+"; }

namespace {

std::string DbName(TZANQuery& query) {
  if (DbHelper_IsOracle())
    OpenStatement(query, "select sys.login_user DbName from dual");
  else if (DbHelper_DBServerType() == "mysql")
    OpenStatement(query, "SELECT DB_NAME() DbName ");
  else
    OpenStatement(query, "select DB_NAME() + '.' DbName ");
  return query.Fields(0).AsString();
}

}  // namespace

std::string GetDataDbName() { return DbName(*TDbProviderFactory::GetQuery()); }

std::string GetSysDbName() { return DbName(*TDbProviderFactory::GetSysQuery()); }

int NextIdentity(TZANQuery& query, std::string statement) {
  OpenStatement(query, std::move(statement));
  const int largest = query.Eof() ? 0 : query.Fields(0).AsInteger();
  query.Close();
  return largest + 1;
}

std::string WrapBatch(const TStringList& statements) {
  if (DbHelper_IsMySql()) return "call MySql_execute_MultiSql(" + QuotedStr(statements.Text()) + ")";
  constexpr std::string_view kBegin = "begin\r\n";
  constexpr std::string_view kEnd = "\r\nend;";
  const std::string& text = statements.Text();
  std::string batch;
  batch.reserve(kBegin.size() + text.size() + kEnd.size());
  return batch.append(kBegin).append(text).append(kEnd);
}

void RunBatch(TZANQuery& query, const TStringList& statements) {
  if (statements.Count() > 0) ExecStatement(query, WrapBatch(statements));
}

void ExecStatement(TZANQuery& query, std::string statement) {
  query.Close();
  query.SQL().SetText(std::move(statement));
  query.ExecSQL();
}

void OpenStatement(TZANQuery& query, std::string statement) {
  query.Close();
  query.SQL().SetText(std::move(statement));
  query.Open();
}

}  // namespace zanrole
