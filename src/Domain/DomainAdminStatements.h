#pragma once

#include <string>

// The statements that read the people who administer domains, each as the dialect of the session takes it.

namespace zanrole {

/// The managers that a domain owns, by name. The stored name of who made the account wins over his present
/// one.
std::string SelectManagers(int domainID);
/// `UserOID`, `FullName`, `IsOwned`: all domains of the managers of a domain, person by person.
std::string SelectDomainsOfManagers(int domainID);
/// The super users, by name.
std::string SelectAdministrators();

}  // namespace zanrole
