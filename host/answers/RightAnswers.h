#pragma once

#include <boost/json/object.hpp>

#include "host/answers/AnswerSession.h"
#include "host/answers/Question.h"

namespace zanhost {

// Answers about rights, for the session that is in use. Each raises ERefusedQuestion for an unknown type or
// object.

/// {"login","menus":[{"objectID","caption","function","children"}]}: what the user may run.
boost::json::object AnswerMenus(TAnswerSession& session, const TQuestion& question);
/// {"login","objectID","denied":[…]}: the operations of an object that are denied to the user.
boost::json::object AnswerDenied(TAnswerSession& session, const TQuestion& question);
/// The effective right of the user with the rows that decide and the reason in words.
boost::json::object AnswerRight(TAnswerSession& session, const TQuestion& question);
/// The rows of an object and operation, and whose right they make.
boost::json::object AnswerHolders(TAnswerSession& session, const TQuestion& question);

}  // namespace zanhost
