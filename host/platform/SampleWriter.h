#pragma once

#include "Frame/Host/Un_aes.h"
#include "host/platform/SampleModel.h"
#include "host/query/Database.h"

namespace zanhost {

/// Writes the rows of the model. `adminPassword` is stored for the super user; every other account gets a
/// random password that nobody knows. Raises EDatabaseError; the caller keeps the rows together.
void WriteSample(TDatabase& database, const TSampleModel& model, zanrole::TCipher& cipher,
                 const std::string& adminPassword);

}  // namespace zanhost
