#pragma once

#include <string>
#include <string_view>

namespace zanrole {

// What all questions about domains rest on. Each runs its statement on a fresh query of the data database and
// raises EDatabaseError when it fails.

/// First column of all rows joined by commas, without the empty values.
std::string QueryList(std::string statement);
/// First column of the first row; empty when there is none.
std::string QueryValue(std::string statement);
/// Is there a row?
bool QueryExists(std::string statement);

/// The ids of the domains that a scope text names, joined by commas; "-10000", which no domain has, when
/// there is none, so that the list can always stand in brackets behind "in".
std::string ResolveDomainScope(std::string_view scope);

/// The current domain of the login, as a number and as it stands in statements.
struct TCurrentDomain {
  int ID = -1;
  std::string Text = "-1";
};
TCurrentDomain& CurrentDomain();

}  // namespace zanrole
