#pragma once

#include <string_view>

#include "Frame/Host/Rights.h"

namespace zanrole {

/// Who has a right set: the users after `afterOID`, at most `limit` of them, with the right that
/// TTolPermission::GetPermission would give to each in a session of his own. Super users are among them,
/// accounts out of use too. REQUIRES: limit >= 1. Raises EDatabaseError.
TRightHolders ReadRightHolders(int objectID, std::string_view oprate, int afterOID, int limit);

}  // namespace zanrole
