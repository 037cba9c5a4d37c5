#include "host/query/SecretColumns.h"

#include <algorithm>
#include <string>
#include <utility>

#include "Frame/Host/Classes.h"
#include "host/query/Redaction.h"

namespace zanhost {

namespace {

constexpr std::pair<std::string_view, std::string_view> kKeptForPlugins[]{
    {"ZanPluginParam", "ParamText"},
    {"ST_DataParams", "ParamValue"},
    {"ST_DataParams", "ParamXML"},
};

}  // namespace

bool IsSecretColumn(std::string_view table, std::string_view column) {
  return TouchesPasswords(column) ||
         std::any_of(std::begin(kKeptForPlugins), std::end(kKeptForPlugins), [&](const auto& kept) {
           return zanrole::SameText(table, kept.first) && zanrole::SameText(column, kept.second);
         });
}

}  // namespace zanhost
