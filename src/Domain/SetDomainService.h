#pragma once

#include "Frame/Host/Un_wcfservices.h"

namespace zanrole {

/// Tells the web tier which domain is the current one of the login.
class TSetDomainService {
 public:
  TSetDomainService();
  /// Makes the call, unless the installation has no web tier. Always true: what the service answers does not
  /// count. Raises EZanError when the call cannot be made.
  bool Execute(int domainID);

 private:
  bool FHasServer;
  TSoapCall FCall;
};

}  // namespace zanrole
