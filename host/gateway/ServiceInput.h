#pragma once

#include "host/answers/Question.h"
#include "host/gateway/Request.h"
#include "host/gateway/ServiceRoute.h"
#include "host/platform/Tokens.h"

namespace zanhost {

/// The question that a request asks, with all its parts checked; whether the token may ask it is not. Without
/// a login in the body of a call it is about the token's only one. Raises ERefusedQuestion with status 400
/// for a path, query or body that cannot be understood, 422 for a value that functions do not take.
/// REQUIRES: the route asks something.
TQuestion ReadServiceQuestion(const TServiceRoute& route, const TRequest& request, const TTokenScope& scope);

}  // namespace zanhost
