#pragma once

#include <span>
#include <string>
#include <string_view>

#include "host/query/Adaptation.h"

namespace zantest {

/// What must hold for every text that a query object may be given, sense or nonsense. Gives the first
/// property that does not hold, in words; empty when all do:
///  - the tokens make the text again;
///  - a rule of an engine leaves every literal as it was unless it says that it does not, in the tokens and
///  in
///    the text that is sent;
///  - the shape of a shape is the shape itself, the rules do the same to all statements of a shape, and each
///    bound literal is one of the text;
///  - a pattern takes what the reader reads;
///  - a statement that SQLite prepares as it stands is prepared after adaptation, but for an update that is
///    rewritten because it would mean something else;
///  - what is quoted for a call of MySql_execute_MultiSql is what is unquoted again.
std::string BrokenProperty(std::string_view text);

/// The property about literals alone, under the rules of any engine.
std::string BrokenLiterals(std::string_view text, std::span<const zanhost::TAdaptationRule> rules);

}  // namespace zantest
