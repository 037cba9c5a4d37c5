#pragma once

#include <boost/json/object.hpp>
#include <exception>

#include "Frame/Host/Services.h"
#include "host/worker/FunctionCall.h"

namespace zanhost {

/// {"name","description","kind","in","out"}; a parameter is {"name","type","description","default"}.
boost::json::object DescribeFunction(const TFunction& function);
/// {"result":true,"out":{"Result":"1,2"}}
boost::json::object DescribeOutcome(const TCallOutcome& outcome);
/// {"answer":"…"}: a text, a number, true or false, a list, or null.
boost::json::object DescribeAnswer(const zanrole::TServiceAnswer& answer);
/// {"operation":"…","arguments":[{"name","type"}],"answer":"text"}
boost::json::object DescribeOperation(const zanrole::TServiceOperation& operation);
/// {"error":"…"}, and of a failed statement its text, without what could be a password.
boost::json::object DescribeFault(const std::exception& fault);

}  // namespace zanhost
