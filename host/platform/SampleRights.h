#pragma once

#include "host/platform/SampleModel.h"

namespace zanhost {

/// What domains may hand down and what roles and users may do: fills Rights and the pairs of domains and
/// roles with menus. A domain holds no more than the domain above it, a role of a domain no more than its
/// domain. REQUIRES: the menus and the domains are built.
void BuildRights(TSampleModel& model, TSampleRandom& random);

}  // namespace zanhost
