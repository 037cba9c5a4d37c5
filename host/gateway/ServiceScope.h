#pragma once

#include <string>

#include "host/answers/Question.h"
#include "host/platform/Tokens.h"

namespace zanhost {

/// What the scope of a token lacks for a question, as a sentence for its bearer; empty when it lacks nothing.
std::string LackOf(const TTokenScope& scope, const TQuestion& question);

}  // namespace zanhost
