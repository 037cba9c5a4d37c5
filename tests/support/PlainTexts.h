#pragma once

#include <string>
#include <string_view>

#include "Frame/Host/Veshpublics.h"

namespace zantest {

/// Resource strings without any entry: each lookup gives its key.
class TPlainTexts final : public zanrole::TResourceStrings {
 public:
  std::string resD(std::string_view key, std::string_view, std::string_view) override {
    return std::string(key);
  }
  std::string res(std::string_view key, std::string_view) override { return std::string(key); }
  std::string resS(std::string_view key) override { return std::string(key); }
  void resDLLDownload(std::string_view, std::string_view) override {}
};

}  // namespace zantest
