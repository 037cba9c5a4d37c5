#include "host/query/Odbc/Server.h"

#include <fmt/format.h>

#include <algorithm>

namespace zanhost {

const TOdbcServer& FindOdbcServer(const std::string& productName) {
  for (const auto server : {SqlServerOnOdbc, OracleOnOdbc, MySqlOnOdbc}) {
    const auto isName = [&](std::string_view name) { return zanrole::SameText(name, productName); };
    if (std::ranges::any_of(server().ProductNames, isName)) return server();
  }
  throw zanrole::EDatabaseError(
      fmt::format("The ODBC driver leads to the product '{}', whose dialect is not known here. Known are "
                  "Microsoft SQL Server, Oracle and MariaDB.",
                  productName),
      {});
}

}  // namespace zanhost
