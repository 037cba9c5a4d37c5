#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Frame/Host/Un_aes.h"
#include "Frame/Host/Zandbs.h"

namespace zanhost {

/// A user's row of STUsers with his password policy. Roles are no accounts.
struct TAccount {
  int OID = 0;
  std::string Login;
  std::string Name;
  /// IsAdministrator is 1: no right is asked of him.
  bool IsSuperUser = false;
  bool IsDisabled = false;
  bool NeedReset = false;
  /// The person may change the password on his own.
  bool CanModify = true;
};

/// The account of exactly this login; nothing when there is none. Raises EDatabaseError.
std::optional<TAccount> FindAccount(zanrole::TDatabaseServices& database, std::string_view login);

enum class TLoginVerdict {
  Accepted,
  /// No such login, or not its password: nobody learns which.
  Wrong,
  /// The password is right, but the account is out of use.
  Disabled,
  /// The password is right, but another one has to be chosen first.
  NeedReset
};

struct TLoginOutcome {
  TLoginVerdict Verdict = TLoginVerdict::Wrong;
  /// Filled unless the verdict is Wrong.
  TAccount Account;
};

/// Compares a password with the stored one, which is the cipher text of "login:password", or the password as
/// it stands on an installation that does not encipher. An account without a stored password lets nobody in.
/// Takes as long for an unknown login as for a wrong password. Raises EDatabaseError.
TLoginOutcome CheckLogin(zanrole::TDatabaseServices& database, zanrole::TCipher& cipher,
                         std::string_view login, std::string_view password);

/// Notes that the password was chosen anew, so that the next login does not ask for it. Raises
/// EDatabaseError.
void ClearNeedReset(zanrole::TDatabaseServices& database, std::string_view login);

}  // namespace zanhost
