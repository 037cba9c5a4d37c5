#include "host/query/Sqlite/SqliteQuery.h"

#include "host/query/Sqlite/SqliteDatabase.h"

namespace zanhost {

void TSqliteQuery::Open() {
  Close();
  FDatabase.Run(*this, FName, &DataSet());
}

void TSqliteQuery::ExecSQL() { FDatabase.Run(*this, FName, nullptr); }

}  // namespace zanhost
