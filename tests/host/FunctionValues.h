#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/query/Database.h"
#include "host/worker/FunctionSession.h"

namespace zantest {

/// Values of a function's inputs, by the inputs' names.
using TFunctionValues = std::map<std::string, std::string>;

/// A value for each input that a function of the module declares, with which it gets as far as it can.
/// REQUIRES: the database holds a sample company.
TFunctionValues ExistingValues(zanhost::TDatabase& database);

/// Those that the module itself brings.
std::vector<const zanhost::TFunction*> SystemFunctions(const std::vector<zanhost::TFunction>& all);

}  // namespace zantest
