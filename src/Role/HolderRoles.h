#pragma once

#include <string>
#include <vector>

#include "Frame/Host/Zandbs.h"

namespace zanrole {

/// One role of a holder of rights.
struct THolderRole {
  std::string GroupID;    ///< `OID` of the role as trimmed text
  std::string GroupName;  ///< trimmed
};

/// The roles of a user or role, one level deep, and the list of identities to which his rights belong.
struct THolderRoles {
  std::string UserStr;  ///< text behind "in": "(12, 3, 7)", the holder first
  std::vector<THolderRole> Roles;
};

/// Reads the roles of a holder. `query` runs on the data database and is closed afterwards.
/// Raises EDatabaseError.
THolderRoles ReadHolderRoles(TZANQuery& query, int userID);

}  // namespace zanrole
