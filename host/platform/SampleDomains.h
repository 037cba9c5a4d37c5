#pragma once

#include "host/platform/SampleModel.h"

namespace zanhost {

inline constexpr int kDomainLevels = 5;

/// The tree of domains, five levels deep, with its managers, users, roles, creators and quotas: fills
/// Domains and Members and adds the roles of the domains. REQUIRES: the accounts are built.
void BuildDomains(TSampleModel& model, TSampleRandom& random);

}  // namespace zanhost
