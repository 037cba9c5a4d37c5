#include "host/query/DataUrl.h"

#include <fmt/format.h>

#include "host/query/Sqlite/SqliteDatabase.h"

namespace zanhost {

namespace {

constexpr std::string_view kSqliteScheme = "sqlite:";

}  // namespace

std::unique_ptr<TDatabase> OpenDatabase(const std::string& url, TOpenMode mode) {
  if (url.starts_with(kSqliteScheme)) {
    const std::string folder = url.substr(kSqliteScheme.size());
    if (folder.empty())
      throw zanrole::EDatabaseError("The data URL names no folder: write sqlite:FOLDER.", {});
    return std::make_unique<TSqliteDatabase>(folder, mode);
  }
  throw zanrole::EDatabaseError(
      fmt::format("'{}' is no data URL that is known here. Known forms: sqlite:FOLDER.", url), {});
}

}  // namespace zanhost
