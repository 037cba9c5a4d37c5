#pragma once

#include <vector>

#include "Frame/Host/Services.h"

namespace zanrole {

/// Adds the operations of the questions about the organisation.
void AppendPartyServiceOperations(std::vector<TServiceOperation>& operations);

}  // namespace zanrole
