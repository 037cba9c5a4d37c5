#include "host/platform/InstalledData.h"

#include <fmt/format.h>

#include "host/platform/Schema.h"
#include "host/query/DataUrl.h"

namespace zanhost {

std::unique_ptr<TDatabase> OpenInstalledData(const std::string& dataUrl) {
  std::unique_ptr<TDatabase> database = OpenDatabase(dataUrl, TOpenMode::MustExist);
  const int version = InstalledSchemaVersion(*database);
  if (version > kSchemaVersion)
    throw zanrole::EZanError(fmt::format(
        "The data {} was made by a later version of this program (schema {}, this program knows {}).",
        ShownDataUrl(dataUrl), version, kSchemaVersion));
  if (version < kSchemaVersion)
    throw zanrole::EZanError(
        fmt::format("The data {0} lacks tables of this version. Make them with: zanhost schema --data {0}",
                    ShownDataUrl(dataUrl)));
  return database;
}

}  // namespace zanhost
