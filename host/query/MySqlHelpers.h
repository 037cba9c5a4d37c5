#pragma once

#include "host/query/DialectFamily.h"

namespace zanhost {

/// MySQL: names in `…`, casts to "char", a Boolean column is a small number. Outside a routine there is no
/// conditional statement: the module calls a stored routine in its place.
const TDialectFamily& MySqlFamily();

}  // namespace zanhost
