#pragma once

#include <string>
#include <vector>

namespace zanrole {

/// One row of STPermission that bears on a right.
struct TRightRow {
  int HolderOID = 0;
  std::string HolderLogin;  ///< empty for a role
  std::string HolderName;   ///< trimmed; empty when the holder's row in STUsers is gone
  bool IsRole = false;      ///< the row counts for the members of its holder, not for him
  std::string Right;        ///< "允许" (allowed) or "禁止" (denied); empty when the row's value is null
  bool Decides = false;     ///< the effective right that was asked for follows from this row
};

/// The effective right of the logged-in user on a pair of object and operation, and why it is so.
struct TRightReason {
  /// "允许", "禁止", or empty: nothing is set, which counts as not allowed.
  std::string Right;
  /// Everything is allowed to him, whatever the rows say.
  bool IsSuperUser = false;
  /// His own in their order, then those of his roles by OID.
  std::vector<TRightRow> Rows;
  /// The reason in the session's language: what decides first, then what was overruled. Never empty.
  std::vector<std::string> Sentences;
};

/// A user for whom a right is set, by a row of his own or of his roles, or who is a super user.
struct TRightHolder {
  int OID = 0;
  std::string Login;
  std::string Name;          ///< trimmed
  std::string Right;         ///< the effective right, "允许" or "禁止"
  bool IsSuperUser = false;  ///< everything is allowed to him, also without a row
  bool IsDisabled = false;   ///< the account is out of use; his rights stand nevertheless
};

/// One page of those for whom a right is set.
struct TRightHolders {
  /// Those of the users below, then those of all roles, both by OID. None is marked as deciding.
  std::vector<TRightRow> Rows;
  /// By OID.
  std::vector<TRightHolder> Users;
  /// More users follow the last of the page.
  bool HasMore = false;
};

}  // namespace zanrole
