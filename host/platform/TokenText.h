#pragma once

#include <string>
#include <string_view>

namespace zanhost {

/// A new token: zan_ID_SECRET of letters and digits, ID 12 of them and SECRET 43, which are 256 random bits.
std::string NewTokenText();

/// The ID of a text that has the form of a token; empty when it has not. An ID alone lets nobody in and may
/// be shown and logged.
std::string_view TokenIdOf(std::string_view text);

}  // namespace zanhost
