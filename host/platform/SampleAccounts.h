#pragma once

#include "host/platform/SampleModel.h"

namespace zanhost {

/// Super user, special and global roles, accounts of the people, roles of head positions, managers of the
/// companies, memberships. REQUIRES: the organisation is built; there are no accounts yet.
void BuildAccounts(TSampleModel& model, TSampleRandom& random);

/// The mirror of a role in the organisation: a UserGroup node below `organisation` (or kNoOrganisation), to
/// which the role then points. REQUIRES: `role` is a role of the model.
void MirrorRole(TSampleModel& model, int role, int organisation);

/// The name of a role without what places it in a domain.
std::string BareRoleName(const TSampleAccount& role);

/// Roles that every sample has, by identity.
inline constexpr int kManagerRole = 2;
inline constexpr int kEmpowermentRole = 3;
inline constexpr int kEveryoneRole = 4;
inline constexpr int kFirstGlobalRole = kEveryoneRole;
inline constexpr int kLastGlobalRole = 8;

}  // namespace zanhost
