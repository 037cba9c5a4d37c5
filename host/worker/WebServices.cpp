#include "host/worker/WebServices.h"

#include <fmt/format.h>

namespace zanhost {

std::string THostWebServices::Call(const zanrole::TSoapCall& call) {
  if (call.ServiceAddress.empty()) {
    throw zanrole::EZanError(
        fmt::format("The web service {} cannot be called: this installation has no address of web services",
                    call.Service));
  }
  throw zanrole::EZanError(
      fmt::format("The web service {} at {} cannot be called: this host has no client of web services",
                  call.Service, call.ServiceAddress));
}

}  // namespace zanhost
