#pragma once

#include <string>

namespace zanhost {

/// A new password: typed twice at the terminal without being shown, or one line of standard input when that
/// is no terminal. Raises EZanError when the two differ, when there is none, or when it is empty.
std::string ReadNewPassword();

}  // namespace zanhost
