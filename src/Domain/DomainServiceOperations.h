#pragma once

#include <vector>

#include "Frame/Host/Services.h"

namespace zanrole {

/// The operations of TDomainFuncImpl.
void AppendDomainServiceOperations(std::vector<TServiceOperation>& operations);

}  // namespace zanrole
