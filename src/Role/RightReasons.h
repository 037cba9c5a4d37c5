#pragma once

#include <string_view>

#include "Frame/Host/Rights.h"

namespace zanrole {

/// The effective right of the logged-in user and why it is so, from the rows as they stand now: what
/// TTolPermission::GetPermission gives once it has read them. Raises EDatabaseError.
TRightReason ExplainRight(int objectID, std::string_view oprate);

}  // namespace zanrole
