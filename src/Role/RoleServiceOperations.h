#pragma once

#include <vector>

#include "Frame/Host/Services.h"

namespace zanrole {

/// The operations of TRunPermission and TTolPermission.
void AppendRoleServiceOperations(std::vector<TServiceOperation>& operations);

}  // namespace zanrole
