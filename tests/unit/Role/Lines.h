#pragma once

#include <string>
#include <vector>

#include "Frame/Host/Classes.h"

namespace zantest {

/// The lines of a list in a container that matchers take.
inline std::vector<std::string> Lines(const zanrole::TStringList& list) { return {list.begin(), list.end()}; }

}  // namespace zantest
