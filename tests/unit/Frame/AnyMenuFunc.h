#pragma once

#include <string>

#include "Frame/Host/Un_basefunc.h"

namespace zantest {

/// A menu function that opens nothing.
class TAnyMenuFunc final : public zanrole::TMenuBaseFunc {
 public:
  std::string FuncName() const override { return "域管理"; }
  std::string FuncDescription() const override { return "域管理"; }
  bool Execute() override { return true; }
};

}  // namespace zantest
