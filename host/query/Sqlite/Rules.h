#pragma once

#include <span>

#include "host/query/Adaptation.h"

namespace zanhost {

/// What SQLite needs to run the statements written for SQL Server, in the order of application.
std::span<const TAdaptationRule> SqliteRules();

/// Rules that are more than a look at a few tokens. Each is described in the table of SqliteRules.
bool RewriteUpdateFrom(TTokens& tokens);
bool NestLongUnion(TTokens& tokens);
bool RunRoutineAsStatement(TTokens& tokens);

}  // namespace zanhost
