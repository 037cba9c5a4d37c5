#pragma once

#include <string>
#include <string_view>

#include "Frame/Session.h"

namespace zanrole {

/// The installation's cipher under the platform's name; the key is the host's.
class TAesSecretKey {
 public:
  /// Equal texts give equal cipher texts.
  static std::string Encrypt(std::string_view plain) { return HostServices().Cipher().Encrypt(plain); }
  /// Raises ECipherError for a text that this installation did not encipher.
  static std::string Decrypt(std::string_view cipher) { return HostServices().Cipher().Decrypt(cipher); }
};

}  // namespace zanrole
