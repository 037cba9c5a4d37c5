#pragma once

#include <string>
#include <string_view>

namespace zantest {

/// What must hold for every text that the embedded database may be given, sense or nonsense. Gives the first
/// property that does not hold, in words; empty when all do:
///  - the tokens make the text again;
///  - the rules leave every literal as it was, in the tokens and in the text that is sent;
///  - the shape of a shape is the shape itself, and each bound literal is one of the text;
///  - a statement that SQLite prepares as it stands is prepared after adaptation, but for an update that is
///    rewritten because it would mean something else.
std::string BrokenProperty(std::string_view text);

}  // namespace zantest
