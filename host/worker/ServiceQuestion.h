#pragma once

#include <string>
#include <vector>

#include "Frame/Host/Services.h"
#include "host/worker/Module.h"

namespace zanhost {

/// An operation of a service, with its arguments as texts.
struct TServiceQuestion {
  std::string Operation;
  std::vector<std::string> Arguments;
};

/// Asks in the current session of the module. Of operations with the same name the first one takes the
/// question whose numbers and truths the arguments can be. Raises EZanError, with a sentence for a person,
/// for an unknown operation and for arguments that do not fit; faults of the operation pass.
zanrole::TServiceAnswer AskService(const TModule& module, const TServiceQuestion& question);

/// "TTolPermission.GetPermission ObjectID Oprate"
std::string SignatureOf(const zanrole::TServiceOperation& operation);

}  // namespace zanhost
