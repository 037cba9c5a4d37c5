#pragma once

#include "host/worker/Installation.h"
#include "host/worker/LineChannel.h"

namespace zanhost {

/// Runs one login for a gateway, over standard input and output, until the input ends or the person quits.
/// The first line out says whether it could start. Gives the program's exit status.
int RunWorker(const TSessionOptions& options);
/// The same over another channel.
int RunWorker(const TSessionOptions& options, TLineChannel& channel);

/// Runs one login for a script, over standard input and output, until the input ends or the script quits.
/// Gives the program's exit status. Raises EZanError when the session cannot start.
int RunScript(const TSessionOptions& options);
/// The same over another channel.
int RunScript(const TSessionOptions& options, TLineChannel& channel);

}  // namespace zanhost
