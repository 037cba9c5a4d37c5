#pragma once

#include <string>
#include <utility>
#include <vector>

#include "Frame/Host/Export.h"

namespace zantest {

/// What was asked, and the answer as text.
using TAnswers = std::vector<std::pair<std::string, std::string>>;

extern "C" {
/// Asks each service of zanrole in the session that is current on this thread, about the user with this
/// login. Faults pass as exceptions.
ZAN_EXPORT void ConsumerAskServices(const std::string& user, TAnswers& answers);
/// Asks the plain entries of zanrole.
ZAN_EXPORT void ConsumerAskPlainEntries(TAnswers& answers);
/// Makes the session's service forget the menus that the user may run.
ZAN_EXPORT void ConsumerForgetMenus();
/// Makes a statement of zanrole fail and catches the fault by its type: was it caught, and the statement.
ZAN_EXPORT bool ConsumerCatchesFault(std::string& statement);
}

}  // namespace zantest
