#include "tests/support/OdbcDriver.h"

#include <odbcinst.h>

#include <array>

#include "tests/support/MariaDbServer.h"

namespace zantest {

namespace {

constexpr char kDriver[] = "MariaDB Unicode";

}  // namespace

std::string OdbcUrl(const std::string& data, const std::string& system, const std::string& folder) {
  return std::string("odbc:DRIVER={") + kDriver +
         "};SERVER=localhost;UID=root;SOCKET=" + TMariaDbServer::Instance().Socket() + "?data=" + data +
         "&system=" + system + "&folder=" + folder;
}

std::string WhyNoOdbcDriver() {
  const std::string whyNot = WhyNoMariaDbServer();
  if (!whyNot.empty()) return whyNot;
  std::array<char, 4096> drivers{};
  WORD length = 0;
  // Names with a zero behind each.
  if (SQLGetInstalledDrivers(drivers.data(), drivers.size(), &length) &&
      std::string(drivers.data(), length).find(kDriver) != std::string::npos)
    return {};
  return std::string("no ODBC driver '") + kDriver + "' is installed (package odbc-mariadb)";
}

}  // namespace zantest
