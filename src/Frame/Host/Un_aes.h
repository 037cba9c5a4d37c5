#pragma once

#include <string>
#include <string_view>

#include "Frame/Host/Classes.h"

namespace zanrole {

/// The installation's cipher. Deterministic: equal texts give equal cipher texts. Both sides are UTF-8 text.
class ZAN_EXPORT TCipher {
 public:
  virtual ~TCipher();
  virtual std::string Encrypt(std::string_view plain) = 0;
  /// Raises ECipherError for a text that this installation did not encipher.
  virtual std::string Decrypt(std::string_view cipher) = 0;
};

class ZAN_EXPORT ECipherError : public EZanError {
 public:
  using EZanError::EZanError;
  ~ECipherError() override;
};

}  // namespace zanrole
