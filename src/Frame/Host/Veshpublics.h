#pragma once

#include <string>
#include <string_view>

#include "Frame/Host/Classes.h"

namespace zanrole {

class TComponent;

/// The record of the login. The host fills it before the session is used and owns it.
class ZAN_EXPORT TSystemInfo {
 public:
  virtual ~TSystemInfo();
  /// `OID` in STUsers of the logged-in user; -1 in the designer.
  int LoginUserOID = -1;
  /// Display name and login name.
  std::string LoginUserName;
  std::string LoginUserID;
  /// The one field that the module writes (cleared and put back while rights are shown as they stand).
  bool IsSuperUser = false;
  /// Base address of the installation's web server; empty when there is none to notify.
  std::string ServerUrl;
  /// Values of the login: "BuilderWantRole", "UsingIntranet", "UserToken".
  TStringList SessionParams;
  /// Passwords are stored enciphered.
  bool EncryptPassword = true;
  /// The next number of the host's numbering for a kind of row; names fold case. Raises EDatabaseError.
  virtual int NewDjLsh(std::string_view name) = 0;
};

/// The host's resource strings, in the language of the login. A lookup without an entry gives the key.
class ZAN_EXPORT TResourceStrings {
 public:
  virtual ~TResourceStrings();
  virtual std::string resD(std::string_view key, std::string_view file, std::string_view section) = 0;
  virtual std::string res(std::string_view key, std::string_view section) = 0;
  virtual std::string resS(std::string_view key) = 0;
  /// Makes later lookups of this file and section find it.
  virtual void resDLLDownload(std::string_view file, std::string_view section) = 0;
  /// Gives a part of a form the font of the language. A host that leaves fonts to its client has nothing to
  /// do.
  virtual void res_SetControlFont(TComponent& control);
};

}  // namespace zanrole
