#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "host/cli/CommonOptions.h"

namespace zanhost {

/// Does the work of a command and writes its one line to the log of the installation, with what came of it.
/// A fault is logged and passes on. REQUIRES: the folder of the installation exists.
int RunLogged(const TSessionOptions& options, const std::string& operation, const std::function<int()>& work);

}  // namespace zanhost
