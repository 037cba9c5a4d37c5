#pragma once

#include <vector>

#include "Frame/Host/Un_basefunc.h"

namespace zanrole {

/// Adds the rows of the domain functions to the table of function classes: the query service of the domains
/// as functions of the expression language.
void AppendDomainFuncClasses(std::vector<TFuncClass>& classes);

}  // namespace zanrole
