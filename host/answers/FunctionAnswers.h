#pragma once

#include <boost/json/object.hpp>

#include "host/answers/AnswerSession.h"
#include "host/answers/Question.h"

namespace zanhost {

// Answers about system functions, for the session that is in use.

/// {"functions":[…]}, each as DescribeSystemFunction.
boost::json::object AnswerFunctions(TAnswerSession& session, const TQuestion& question);
/// {"name","description","in","out","pastesText","allowed"}. Raises ERefusedQuestion for an unknown name.
boost::json::object AnswerFunction(TAnswerSession& session, const TQuestion& question);
/// {"result","out"}, and "messages" and "undeclared" unless they are empty. Raises ERefusedQuestion for an
/// unknown name and for a function that fails.
boost::json::object AnswerCall(TAnswerSession& session, const TQuestion& question);

}  // namespace zanhost
