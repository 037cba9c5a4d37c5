#pragma once

#include <vector>

#include "Frame/Host/Un_basefunc.h"

namespace zanrole {

/// Adds the rows of the role functions to the table of function classes: the questions about the organisation
/// as functions of the expression language.
void AppendPartyFuncClasses(std::vector<TFuncClass>& classes);

}  // namespace zanrole
