#include "host/query/RestrictedDatabase.h"

#include "host/query/DataUrl.h"
#include "host/query/MariaDb/MariaDbDatabase.h"
#include "host/query/Odbc/Url.h"
#include "host/query/Sqlite/SqliteDatabase.h"

namespace zanhost {

std::unique_ptr<TDatabase> OpenRestricted(const std::string& url) {
  if (IsOdbcUrl(url))
    throw zanrole::EDatabaseError(
        "Functions that put a text of their caller into a statement cannot be offered over an ODBC driver: "
        "nothing there ends a text behind its first statement. Name the data by sqlite:FOLDER or mysql://….",
        {});
  if (IsMariaDbUrl(url))
    return std::make_unique<TMariaDbDatabase>(ParseMariaDbUrl(url), TOpenMode::MustExist,
                                              TAccess::Restricted);
  return std::make_unique<TSqliteDatabase>(FolderOfData(url).string(), TOpenMode::MustExist,
                                           TAccess::Restricted);
}

}  // namespace zanhost
