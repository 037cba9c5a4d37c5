#pragma once

#include <memory>
#include <string>

#include "host/query/Database.h"

namespace zanhost {

/// Opens the data of an installation that is ready for use. Raises EZanError, with what to do about it, when
/// its schema is not the one of this program; EDatabaseError when there is no database or it cannot be
/// opened.
std::unique_ptr<TDatabase> OpenInstalledData(const std::string& dataUrl);

}  // namespace zanhost
