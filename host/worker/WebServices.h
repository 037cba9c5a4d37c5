#pragma once

#include <string>

#include "Frame/Host/Un_wcfservices.h"

namespace zanhost {

/// The client of web services of an installation that may have none.
class THostWebServices final : public zanrole::TWebServices {
 public:
  /// `address` ends in a slash, or is empty.
  explicit THostWebServices(std::string address) : FAddress(std::move(address)) {}
  std::string ServiceAddress() override { return FAddress; }
  std::string Call(const zanrole::TSoapCall& call) override;

 private:
  std::string FAddress;
};

}  // namespace zanhost
