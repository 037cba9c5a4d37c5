#pragma once

#include <string_view>

namespace zanhost {

/// True for the name of a function's input that holds a login, or several joined by commas: whoever may ask
/// about some logins only may not give others there. Names compare exactly, as inputs are found by them.
bool NamesLogins(std::string_view inputName);

}  // namespace zanhost
