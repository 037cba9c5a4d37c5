#pragma once

#include <string>
#include <string_view>

namespace zanhost {

/// What stands in the place of a hidden value.
inline constexpr std::string_view kHidden = "***";

/// True when a statement names anything about passwords: a column, a table, a parameter, also inside the
/// quoted text of a call. Its literals and parameters may then be passwords.
bool TouchesPasswords(std::string_view statement);

/// The statement as it may be written down or shown: where it touches passwords, its text literals (and a
/// number assigned to such a column) are hidden, also those of statements inside the quoted text of a call. A
/// statement whose quotes do not match is hidden whole.
std::string RedactStatement(std::string_view statement);

}  // namespace zanhost
