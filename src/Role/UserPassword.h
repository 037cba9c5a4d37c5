#pragma once

#include <string>

namespace zanrole {

class TUserInfo;

/// Stores the password of a user's row and notes the time of the change, as one batch.
/// `held` is what the record of the user holds: a new password in plain text, or the value that is stored
/// already. Gives the text that was stored, which the record holds from then on: enciphered together with the
/// login where the installation says so, otherwise the plain text.
/// Raises EDatabaseError.
std::string SavePassword(int oid, const std::string& login, const std::string& held);
/// The same for a record, whose password becomes the stored value. Runs any number of times on one record
/// without harm.
void SavePassword(TUserInfo& user);

}  // namespace zanrole
