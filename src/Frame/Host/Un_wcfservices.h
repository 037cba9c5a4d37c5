#pragma once

#include <string>
#include <vector>

#include "Frame/Host/Classes.h"

namespace zanrole {

struct TSoapParam {
  std::string Name;
  /// "string" or "int".
  std::string Type;
  std::string Value;
};

/// A call of a web service: what is sent, and to whom.
struct TSoapCall {
  std::string ServiceAddress;
  std::string Contract;
  std::string Service;
  std::string Method;
  std::vector<TSoapParam> Params;
};

/// The host's client of web services.
class ZAN_EXPORT TWebServices {
 public:
  virtual ~TWebServices();
  /// Address of the installation's services, ending in a slash; empty when there is none.
  virtual std::string ServiceAddress() = 0;
  /// Makes the call and gives the result's text. Raises EZanError when it cannot be made.
  virtual std::string Call(const TSoapCall& call) = 0;
};

}  // namespace zanrole
