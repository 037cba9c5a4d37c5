#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace zanhost {

/// The administrator's login of a fresh installation with the password that was made for it.
struct TFirstLogin {
  std::string Login;
  std::string Password;
};

/// A password of 20 random letters and digits that cannot be mistaken for one another.
std::string MakeFirstPassword();

/// Keeps the first login in FOLDER/first-login.txt (JSON, readable by its owner alone) until its password is
/// changed. Raises std::filesystem::filesystem_error.
void WriteFirstLogin(const std::filesystem::path& folder, const TFirstLogin& first);
/// Nothing when there is none, or no longer.
std::optional<TFirstLogin> ReadFirstLogin(const std::filesystem::path& folder);
/// To be called when the password of `login` was changed: removes the file when it is about that login.
void ForgetFirstLogin(const std::filesystem::path& folder, std::string_view login);

}  // namespace zanhost
