#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "host/query/Adaptation.h"

namespace zanhost {

/// What MariaDB needs to run the statements written for MySQL, in the order of application.
std::span<const TAdaptationRule> MariaDbRules();

/// A rule decides by what a literal of this statement holds, so that texts of its shape may fare differently.
bool RulesReadLiterals(const TTokens& statement);

/// call-argument: `call MySql_execute_MultiSql(…)` takes the statements to run as one text, which no rule
/// would look into, and runs them one by one. This gives that text without its quotes (also one that was
/// never quoted); none for any other statement. Raises TMariaDbFault for such a call with parameters, which
/// would be lost in the text.
std::optional<std::string> StatementsOfCall(std::string_view statement);

/// What MariaDB in its Oracle mode needs to run the statements written for Oracle, in the order of
/// application.
std::span<const TAdaptationRule> OracleModeRules();

/// A statement of a script for Oracle as it is sent in Oracle mode. Rules look into a statement that is
/// handed to ZanMake; a routine is written for the server and stays.
std::string AdaptScriptForOracleMode(TTokens& tokens);

}  // namespace zanhost
