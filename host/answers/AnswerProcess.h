#pragma once

#include <string>

#include "host/worker/Installation.h"
#include "host/worker/LineChannel.h"

namespace zanhost {

/// Answers the gateway's questions, which come as lines of standard input, until that ends: for each one line
/// "NUMBER STATUS BODY" on standard output, in turn. A line {"n":NUMBER,"do":"cancel"} ends the statement of
/// that question if it is running. `restrictedData` is the data URL for OpenRestricted; empty for that of the
/// embedded database, or none. Gives the program's exit status; raises what the installation raises when it
/// cannot be opened.
int RunAnswers(const TSessionOptions& options, const std::string& restrictedData);

/// The same over another channel.
int RunAnswers(const TSessionOptions& options, const std::string& restrictedData, TLineChannel& channel);

}  // namespace zanhost
