#pragma once

#include "Frame/Host/Host.h"

namespace zanhost {

/// The services that the module takes from this host before PackageLoad.
class THostServicesImpl final : public zanrole::THostServices {
 public:
  /// `cipher` must outlive the module's unloading.
  explicit THostServicesImpl(zanrole::TCipher& cipher) : FCipher(&cipher) {}

  int ContractVersion() const override { return zanrole::kContractVersion; }
  zanrole::TCipher& Cipher() override { return *FCipher; }
  std::string StrToMIME64(std::string_view bytes) override;
  std::string MIME64ToStr(std::string_view text) override;
  std::optional<std::vector<std::pair<std::string, std::string>>> ParseJsonObject(
      std::string_view text) override;

 private:
  zanrole::TCipher* FCipher;
};

}  // namespace zanhost
