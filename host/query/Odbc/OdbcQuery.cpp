#include "host/query/Odbc/OdbcQuery.h"

#include "host/query/Odbc/OdbcDatabase.h"

namespace zanhost {

void TOdbcQuery::Open() {
  Close();
  FDatabase.Run(*this, FOnSystem, &DataSet());
}

void TOdbcQuery::ExecSQL() { FDatabase.Run(*this, FOnSystem, nullptr); }

}  // namespace zanhost
