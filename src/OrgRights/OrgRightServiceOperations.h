#pragma once

#include <vector>

#include "Frame/Host/Services.h"

namespace zanrole {

/// Adds the operations of the organisation rights queries.
void AppendOrgRightServiceOperations(std::vector<TServiceOperation>& operations);

}  // namespace zanrole
