#pragma once

#include <vector>

#include "Frame/Host/Un_basefunc.h"

namespace zanrole {

/// Opens the administration of the domain tree.
class ZAN_EXPORT TMenuFunc_DomainManage : public TMenuBaseFunc {
 public:
  std::string FuncName() const override;
  std::string FuncDescription() const override;
  bool Execute() override;
};

/// Adds this unit's rows to the table of function classes.
void AppendMenuFuncClasses(std::vector<TFuncClass>& classes);

}  // namespace zanrole
