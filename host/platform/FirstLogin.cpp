#include "host/platform/FirstLogin.h"

#include <openssl/rand.h>

#include <boost/json.hpp>

#include "Frame/Host/Un_aes.h"
#include "host/platform/Files.h"
#include "host/platform/JsonObject.h"

namespace zanhost {

namespace {

// 32 characters, so that each byte picks one without favour; 0, 1, I, L, O and their likes are left out.
constexpr std::string_view kLetters = "abcdefghjkmnpqrstuvwxyz23456789A";
static_assert(256 % kLetters.size() == 0);
constexpr std::size_t kPasswordLength = 20;

std::filesystem::path FileOf(const std::filesystem::path& folder) { return folder / "first-login.txt"; }

std::string MemberOf(const TJsonMembers& members, std::string_view name) {
  for (const auto& [key, value] : members)
    if (key == name) return value;
  return {};
}

}  // namespace

std::string MakeFirstPassword() {
  unsigned char bytes[kPasswordLength];
  if (RAND_priv_bytes(bytes, sizeof(bytes)) != 1)
    throw zanrole::ECipherError("The system gives no random numbers to make a password of.");
  std::string password;
  for (const unsigned char byte : bytes) password += kLetters[byte % kLetters.size()];
  return password;
}

void WriteFirstLogin(const std::filesystem::path& folder, const TFirstLogin& first) {
  const boost::json::object text{{"login", first.Login}, {"password", first.Password}};
  ReplacePrivateFile(FileOf(folder), boost::json::serialize(text) + "\n");
}

std::optional<TFirstLogin> ReadFirstLogin(const std::filesystem::path& folder) {
  if (!std::filesystem::exists(FileOf(folder))) return std::nullopt;
  const auto members = ParseJsonObject(ReadFile(FileOf(folder)));
  if (!members) return std::nullopt;
  return TFirstLogin{MemberOf(*members, "login"), MemberOf(*members, "password")};
}

void ForgetFirstLogin(const std::filesystem::path& folder, std::string_view login) {
  const std::optional<TFirstLogin> first = ReadFirstLogin(folder);
  if (first && first->Login == login) std::filesystem::remove(FileOf(folder));
}

}  // namespace zanhost
