#pragma once

#include "host/worker/Module.h"

namespace zantest {

/// The module as it is linked into the test program, in place of the shared library.
zanhost::TModule LinkedModule();

}  // namespace zantest
