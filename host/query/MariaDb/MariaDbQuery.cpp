#include "host/query/MariaDb/MariaDbQuery.h"

#include "host/query/MariaDb/MariaDbDatabase.h"

namespace zanhost {

void TMariaDbQuery::Open() {
  Close();
  FDatabase.Run(*this, FOnSystem, &DataSet());
}

void TMariaDbQuery::ExecSQL() { FDatabase.Run(*this, FOnSystem, nullptr); }

}  // namespace zanhost
