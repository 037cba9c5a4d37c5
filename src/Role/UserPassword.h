#pragma once

#include <string>

namespace zanrole {

/// Stores the password of a user's row and notes the time of the change, as one batch.
/// `held` is what the record of the user holds: a new password in plain text, or the value that is stored
/// already. Gives the text that was stored, which the record holds from then on: enciphered together with the
/// login where the installation says so, otherwise the plain text.
/// Raises EDatabaseError.
std::string SavePassword(int oid, const std::string& login, const std::string& held);

}  // namespace zanrole
