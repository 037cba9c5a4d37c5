#pragma once

#include <string>

#include "Frame/Host/Un_aes.h"
#include "host/query/Database.h"

namespace zanhost {

struct TSampleOptions {
  /// People of the company, at least kFewestPeople. Departments, positions, domains and roles grow with it.
  int People = 500;
  /// The same seed and size give the same rows, but for the passwords.
  unsigned Seed = 20240102;
  /// Password of the super user; not empty.
  std::string AdminPassword;
  /// Enciphers what is stored as a password. Must outlive the call.
  zanrole::TCipher& Cipher;
};

inline constexpr int kFewestPeople = 5;

/// What was made, to be told to the person who asked for it.
struct TSampleResult {
  int Companies = 0;
  int Departments = 0;
  int Positions = 0;
  int People = 0;
  int Users = 0;
  int Roles = 0;
  int Domains = 0;
  int MenuEntries = 0;
  int Rights = 0;
  std::string AdminLogin;
  /// A manager of a top domain and an ordinary user. Nobody knows their passwords: they are random and kept
  /// nowhere, so they log in after the super user has set one.
  std::string ManagerLogin;
  std::string UserLogin;
};

/// Fills an installed, empty database with a company: organisation, accounts, menus, rights and domains.
/// All of it or nothing. Raises EZanError for options out of bounds and for a database that holds data
/// already, EDatabaseError for a failed statement.
TSampleResult MakeSample(TDatabase& database, const TSampleOptions& options);

}  // namespace zanhost
