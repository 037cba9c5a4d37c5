#pragma once

#include <span>
#include <string>
#include <string_view>

#include "host/query/Adaptation.h"

namespace zantest {

/// What must hold for every text that the embedded database may be given, sense or nonsense. Gives the first
/// property that does not hold, in words; empty when all do:
///  - the tokens make the text again;
///  - a rule leaves every literal as it was unless it says that it does not, in the tokens and in the text
///    that is sent;
///  - the shape of a shape is the shape itself, and each bound literal is one of the text;
///  - a statement that SQLite prepares as it stands is prepared after adaptation, but for an update that is
///    rewritten because it would mean something else.
std::string BrokenProperty(std::string_view text);

/// The property about literals alone, under the rules of any engine.
std::string BrokenLiterals(std::string_view text, std::span<const zanhost::TAdaptationRule> rules);

/// The same for a text that MariaDB is given; the statements that a call of MySql_execute_MultiSql runs count
/// one by one, and the text of the call quotes them without loss.
std::string BrokenOnMariaDb(std::string_view text);

}  // namespace zantest
