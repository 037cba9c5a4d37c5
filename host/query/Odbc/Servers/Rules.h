#pragma once

#include <span>
#include <string>

#include "host/query/Adaptation.h"

namespace zanhost {

// What the servers for which the module's texts are written still need, in the order of application.

std::span<const TAdaptationRule> SqlServerRules();
std::span<const TAdaptationRule> OracleRules();

/// The statement, or the whole batch, as it is sent: with a semicolon behind it, which some statements need.
std::string AdaptForSqlServer(TTokens& tokens);
/// The same; a single statement goes without a semicolon behind it, a block with one.
std::string AdaptForOracle(TTokens& tokens);

}  // namespace zanhost
