#pragma once

#include "host/gateway/Options.h"

namespace zanhost {

/// Serves the client, logins and sessions until SIGTERM or SIGINT; says its address on standard output when
/// it listens. Gives the program's exit status: 0 after a clean end, 1 with a sentence on standard error when
/// it cannot start. The calling thread is the I/O thread.
int Serve(const TServeOptions& options);

}  // namespace zanhost
