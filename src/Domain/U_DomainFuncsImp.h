#pragma once

#include <string>
#include <string_view>

#include "Frame/Dialects.h"
#include "Frame/Host/Classes.h"

// Questions about the tree of domains, its members and the operator. Everything here is stateless but for the
// current domain and the last check of the operator, which the session holds. A failing statement raises
// EDatabaseError unless told otherwise.
//
// Lists are texts: the values of one column joined by commas, without the empty ones; empty for no rows.

namespace zanrole {

/// A message or caption of the domain consoles in the language of the login; the Chinese text is the key.
ZAN_EXPORT std::string ResString(std::string_view key);
/// How many times an ASCII character occurs in a text.
ZAN_EXPORT int CharCountInStr(char character, std::string_view text);

/// Makes an empty row of STUsers, without a login until the caller fills it, and gives its `OID`.
ZAN_EXPORT int GetNewUserOID();
/// Makes a row of STUsers and gives its `OID`; -1 when the row cannot be found again. A row of the same
/// login, name and kind that existed before is found in its place, so callers look for doubles first.
ZAN_EXPORT int CreateNewUser(const std::string& userID, const std::string& userName,
                             const std::string& userDesc, int uGroup, int isAdministrator, int unUsed,
                             int empowermentRight);
/// Do the quotas of the domain and of all above it leave room for more users? When not, `overQuotaDomain` is
/// the full name of the lowest domain without room. A missing domain has room.
ZAN_EXPORT bool CheckUserLimit(int domainID, int usersToAdd, std::string& overQuotaDomain);

/// Is the operator the builder, the super user or a manager of any domain? The answer for a login is kept.
ZAN_EXPORT bool CheckOperatorIsAdmin();
/// May the operator, being none of these, hand on rights? The answer for a login is kept.
ZAN_EXPORT bool CheckOperatorHasEmpowermentRight();

/// The service that expressions and consoles ask about domains. The operator is the login's `OID`.
///
/// Four sets of domains: Auth (what the operator may act on), Own (where he belongs), Created (what he made)
/// and Cur (the current domain of the login). A name that ends in one s leaves lower domains out; the same
/// name with a second s takes them in.
class ZAN_EXPORT TDomainFuncImpl {
 public:
  TDomainFuncImpl() = delete;

  // Lists of domains.
  static std::string GetAuthDomainIDs();
  static std::string GetAuthDomainIDss();
  static std::string GetAuthDomainCodes();
  static std::string GetAuthDomainCodess();
  static std::string GetOwnDomainIDs();
  static std::string GetOwnDomainIDss();
  static std::string GetOwnDomainCodes();
  static std::string GetOwnDomainCodess();
  static std::string GetCreatedDomainIDs();
  static std::string GetCreatedDomainCodes();

  // Lists of users that are in use: by `OID`, or by login.
  static std::string GetAuthDomainOIDs();
  static std::string GetAuthDomainOIDss();
  static std::string GetAuthDomainUserIDs();
  static std::string GetAuthDomainUserIDss();
  static std::string GetOwnDomainOIDs();
  static std::string GetOwnDomainOIDss();
  static std::string GetOwnDomainUserIDs();
  static std::string GetOwnDomainUserIDss();
  static std::string GetCurDomainOIDs();
  static std::string GetCurDomainOIDss();
  static std::string GetCurDomainUserIDs();
  static std::string GetCurDomainUserIDss();

  // Lists of roles by `OID`.
  static std::string GetAuthDomainRoleOIDs();
  static std::string GetAuthDomainRoleOIDss();
  /// With the shared roles; for the super user and the builder also with roles that belong to no domain.
  static std::string GetAuthDomainRolesEx();

  // The current domain of the login: -1, and empty texts, until one is chosen.
  static int GetCurDomainID();
  static std::string GetCurDomainCode();
  static std::string GetCurDomainNodeCode();
  static std::string GetCurDomainName();
  static std::string GetCurDomainFullName();
  /// Chooses the current domain, which is not tested, and tells the web tier when the client works through
  /// it. Raises EZanError when the web tier cannot be told.
  static void SetCurrentDomainID(int id);

  // Does the domain lie in the operator's range, or below it? The text is pasted between quotes as it is.
  static bool CheckDomainAuthById(int id);
  static bool CheckDomainAuthByCode(const std::string& code);
  static bool CheckDomainAuthByNodeCode(const std::string& nodeCode);
  static bool CheckDomainAuthByName(const std::string& name);

  // General queries. `field` is any column or expression; blank means the identity. `scope` names one or more
  // of 当前域/Current, 创建域/Created, 所属域/Own and 域范围/Auth, joined by commas; anything else means the
  // current domain. They raise EZanError with a message for the caller when they cannot be run.
  static std::string GetDomains(const std::string& field, const std::string& scope, bool includeLower);
  static std::string GetDomainUsers(const std::string& field, const std::string& scope, bool includeLower);
  static std::string GetDomainRoles(const std::string& field, const std::string& scope, bool includeLower);
  static std::string GetDomainManagers(const std::string& field, const std::string& scope, bool includeLower);
  /// A field of the first domain that meets the condition; a blank condition is met by all.
  static std::string GetDomainInfo(const std::string& field, const std::string& where);

  /// 0 ordinary user, 1 super user, 2 manager of a domain.
  static int GetCurUserType();
};

}  // namespace zanrole
