#pragma once

#include <span>
#include <string>

#include "host/query/Adaptation.h"

namespace zanhost {

/// What MariaDB needs to run the statements written for MySQL, in the order of application.
std::span<const TAdaptationRule> MariaDbRules();

/// The statement as it is sent. Its rules are those of MariaDbRules and, before them, one that looks into a
/// call: call-argument: `call MySql_execute_MultiSql(…)` takes the statements to run as one text, which no
/// rule would look into. The text is unquoted, each statement in it adapted, and quoted again; a text that
/// was never quoted is quoted. Raises TMariaDbFault for such a call with parameters, which would be lost in
/// the text.
std::string AdaptForMariaDb(TTokens& tokens);

}  // namespace zanhost
