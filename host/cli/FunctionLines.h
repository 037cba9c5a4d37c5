#pragma once

#include <boost/json/object.hpp>
#include <exception>

#include "host/worker/FunctionCall.h"

namespace zanhost {

/// {"name","description","kind","in","out"}; a parameter is {"name","type","description","default"}.
boost::json::object DescribeFunction(const TFunction& function);
/// {"result":true,"out":{"Result":"1,2"}}
boost::json::object DescribeOutcome(const TCallOutcome& outcome);
/// {"error":"…"}, and of a failed statement its text, without what could be a password.
boost::json::object DescribeFault(const std::exception& fault);

}  // namespace zanhost
