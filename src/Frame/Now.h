#pragma once

#include "Frame/Host/Classes.h"

namespace zanrole {

/// The time of day at this machine's place, as the databases store times.
TDateTime Now();

}  // namespace zanrole
