#pragma once

#include "host/platform/SampleModel.h"
#include "host/query/Database.h"

namespace zanhost {

/// Writes menus, documents and queries with their fields, and the rights on all of them.
/// Raises EDatabaseError; the caller keeps the rows together.
void WriteMenus(TDatabase& database, const TSampleModel& model);

}  // namespace zanhost
