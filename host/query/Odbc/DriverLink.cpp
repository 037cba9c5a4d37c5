#include <algorithm>

#include "host/query/Odbc/Diagnostics.h"
#include "host/query/Odbc/DriverStatement.h"
#include "host/query/Odbc/Handles.h"
#include "host/query/Odbc/Link.h"
#include "host/query/Odbc/WideText.h"

namespace zanhost {

namespace {

constexpr std::uintptr_t kConnectSeconds = 10;

/// Attributes of ODBC take numbers in the place of a pointer.
SQLPOINTER NumberArgument(std::uintptr_t number) { return reinterpret_cast<SQLPOINTER>(number); }

class TDriverLink final : public TOdbcLink {
 public:
  explicit TDriverLink(const std::string& connection)
      : FEnvironment(SQL_NULL_HANDLE), FConnection(Version3(FEnvironment.Get())) {
    if (FConnection.Get() == SQL_NULL_HANDLE)
      throw TOdbcError{"HY001", 0, "The driver manager of ODBC does not start.", true};
    SQLSetConnectAttrW(FConnection.Get(), SQL_ATTR_LOGIN_TIMEOUT, NumberArgument(kConnectSeconds), 0);
    const std::u16string wide = ToWide(connection);
    Check(SQLDriverConnectW(FConnection.Get(), nullptr, WideArgument(wide),
                            static_cast<SQLSMALLINT>(wide.size()), nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT));
  }
  ~TDriverLink() override { SQLDisconnect(FConnection.Get()); }

  std::string ProductName() override {
    std::u16string name(256, u'\0');
    SQLSMALLINT bytes = 0;
    Check(SQLGetInfoW(FConnection.Get(), SQL_DBMS_NAME, name.data(),
                      static_cast<SQLSMALLINT>(name.size() * sizeof(char16_t)), &bytes));
    name.resize(std::min(static_cast<std::size_t>(bytes) / sizeof(char16_t), name.size() - 1));
    return FromWide(name);
  }

  std::unique_ptr<TOdbcStatement> NewStatement() override { return NewDriverStatement(FConnection.Get()); }

  void BeginTransaction() override { SetAutoCommit(SQL_AUTOCOMMIT_OFF); }

  void EndTransaction(bool keep) override {
    Check(SQLEndTran(SQL_HANDLE_DBC, FConnection.Get(), keep ? SQL_COMMIT : SQL_ROLLBACK));
    SetAutoCommit(SQL_AUTOCOMMIT_ON);
  }

 private:
  static SQLHANDLE Version3(SQLHANDLE environment) {
    SQLSetEnvAttr(environment, SQL_ATTR_ODBC_VERSION, NumberArgument(SQL_OV_ODBC3), 0);
    return environment;
  }

  void SetAutoCommit(std::uintptr_t state) {
    Check(SQLSetConnectAttrW(FConnection.Get(), SQL_ATTR_AUTOCOMMIT, NumberArgument(state), 0));
  }

  void Check(SQLRETURN result) {
    if (SQL_SUCCEEDED(result)) return;
    TOdbcError error = ErrorOf(SQL_HANDLE_DBC, FConnection.Get());
    error.Dead = IsDeadConnection(FConnection.Get());
    throw error;
  }

  TOdbcHandle<SQL_HANDLE_ENV> FEnvironment;
  TOdbcHandle<SQL_HANDLE_DBC> FConnection;
};

}  // namespace

bool IsDeadConnection(SQLHANDLE connection) {
  SQLUINTEGER dead = SQL_CD_FALSE;
  const SQLRETURN asked =
      SQLGetConnectAttrW(connection, SQL_ATTR_CONNECTION_DEAD, &dead, SQL_IS_UINTEGER, nullptr);
  return SQL_SUCCEEDED(asked) && dead == SQL_CD_TRUE;
}

std::unique_ptr<TOdbcLink> ConnectOdbc(const std::string& connection) {
  return std::make_unique<TDriverLink>(connection);
}

}  // namespace zanhost
