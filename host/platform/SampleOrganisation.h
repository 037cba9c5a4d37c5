#pragma once

#include "host/platform/SampleModel.h"

namespace zanhost {

/// Companies, departments, positions and `people` people with their posts: fills Nodes, Positions and People
/// of an empty model.
void BuildOrganisation(TSampleModel& model, TSampleRandom& random, int people);

/// Sets what follows from Parent in every node: paths, level, full name, leaf mark.
void DeriveNodes(TSampleModel& model);

}  // namespace zanhost
