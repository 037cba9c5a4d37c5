#pragma once

#include <string>

namespace zanhost {

/// How a driver of ODBC is reached and what the host uses behind it.
struct TOdbcUrl {
  /// For the driver manager: DSN=… or DRIVER=…;SERVER=…;…, with the password.
  std::string Connection;
  /// The databases; empty for the one that the connection leads to.
  std::string Data;
  std::string System;
  /// Where the installation keeps its key, settings and log.
  std::string Folder = "data";
  /// The password, for taking it out of what a driver says; empty when the connection has none.
  std::string Password;

  /// What the connection names as its server, or as its data source, for messages.
  std::string Server() const;
  std::string User() const;
};

/// True for a data URL of this engine.
bool IsOdbcUrl(const std::string& url);

/// Reads odbc:CONNECTION?option=value&option=value. CONNECTION is the connection string of the driver, as
/// its documentation gives it: attributes separated by ";", a value with special signs in {…} with each }
/// doubled. The options begin at the first "?" outside braces: data=NAME, system=NAME, folder=DIR,
/// passwordfile=PATH; each may be written with %XX. Raises EDatabaseError, whose text never holds the
/// password.
TOdbcUrl ParseOdbcUrl(const std::string& url);

/// The URL as it may be shown: values of attributes that are secrets are hidden, and so is what belongs to no
/// attribute, since it may be the rest of a password.
std::string ShownOdbcUrl(const std::string& url);

}  // namespace zanhost
