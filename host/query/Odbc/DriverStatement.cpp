#include "host/query/Odbc/DriverStatement.h"

#include "host/query/Odbc/Binding.h"
#include "host/query/Odbc/Cells.h"
#include "host/query/Odbc/Diagnostics.h"
#include "host/query/Odbc/Handles.h"
#include "host/query/Odbc/WideText.h"

namespace zanhost {

namespace {

SQLPOINTER NumberArgument(std::uintptr_t number) { return reinterpret_cast<SQLPOINTER>(number); }

class TDriverStatement final : public TOdbcStatement {
 public:
  explicit TDriverStatement(SQLHANDLE connection) : FConnection(connection), FStatement(connection) {
    if (FStatement.Get() == SQL_NULL_HANDLE) {
      TOdbcError error = ErrorOf(SQL_HANDLE_DBC, connection);
      error.Dead = IsDeadConnection(connection);
      throw error;
    }
    // Braces in a text are no escape sequences of ODBC.
    SQLSetStmtAttrW(FStatement.Get(), SQL_ATTR_NOSCAN, NumberArgument(SQL_NOSCAN_ON), SQL_IS_UINTEGER);
  }

  void SetTimeLimit(std::chrono::seconds limit) override {
    SQLSetStmtAttrW(FStatement.Get(), SQL_ATTR_QUERY_TIMEOUT,
                    NumberArgument(static_cast<std::uintptr_t>(limit.count())), SQL_IS_UINTEGER);
  }

  // Texts end with a zero: given their length instead, the driver for MariaDB reads past their end.
  void Execute(const std::string& text) override {
    const std::u16string wide = ToWide(text);
    Check(SQLExecDirectW(FStatement.Get(), WideArgument(wide), SQL_NTS));
  }

  void Prepare(const std::string& text) override {
    const std::u16string wide = ToWide(text);
    Check(SQLPrepareW(FStatement.Get(), WideArgument(wide), SQL_NTS));
  }

  void Execute(const std::vector<const zanrole::TZanValue*>& values) override {
    const TOdbcBinding binding(values);
    for (SQLUSMALLINT i = 0; i < values.size(); ++i)
      Check(binding.Bind(FStatement.Get(), static_cast<SQLUSMALLINT>(i + 1)));
    const SQLRETURN result = SQLExecute(FStatement.Get());
    Check(result);
    SQLFreeStmt(FStatement.Get(), SQL_RESET_PARAMS);
  }

  TOdbcAnswer ReadAnswer(bool wanted) override {
    TOdbcAnswer answer;
    SQLSMALLINT columns = 0;
    Check(SQLNumResultCols(FStatement.Get(), &columns));
    if (columns == 0) {
      SQLLEN changed = 0;
      Check(SQLRowCount(FStatement.Get(), &changed));
      answer.Changed = changed > 0 ? changed : 0;
      return answer;
    }
    TOdbcCells cells(FStatement.Get(), columns);
    Check(cells.Describe(answer.Columns));
    if (!wanted) return answer;
    SQLRETURN fetched = SQL_SUCCESS;
    while ((fetched = SQLFetch(FStatement.Get())) != SQL_NO_DATA) {
      Check(fetched);
      Check(cells.ReadRow(answer.Cells));
    }
    return answer;
  }

  bool NextAnswer() override {
    const SQLRETURN more = SQLMoreResults(FStatement.Get());
    Check(more);
    return more != SQL_NO_DATA;
  }

  void Close() noexcept override { SQLFreeStmt(FStatement.Get(), SQL_CLOSE); }
  void Cancel() noexcept override { SQLCancel(FStatement.Get()); }

 private:
  /// "No data" is no error: an update that hits no row says so.
  void Check(SQLRETURN result) {
    if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA) return;
    TOdbcError error = ErrorOf(SQL_HANDLE_STMT, FStatement.Get());
    error.Dead = IsDeadConnection(FConnection);
    throw error;
  }

  SQLHANDLE FConnection;
  TOdbcHandle<SQL_HANDLE_STMT> FStatement;
};

}  // namespace

std::unique_ptr<TOdbcStatement> NewDriverStatement(SQLHANDLE connection) {
  return std::make_unique<TDriverStatement>(connection);
}

}  // namespace zanhost
