#pragma once

#include <string>

namespace zantest {

/// Data URL of databases on the server of this test program, by the ODBC driver for MariaDB; the installation
/// has its folder here.
std::string OdbcUrl(const std::string& data, const std::string& system, const std::string& folder);

/// Why this machine has no server or no driver to it; empty when it has both.
std::string WhyNoOdbcDriver();

}  // namespace zantest
