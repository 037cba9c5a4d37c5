#include "Role/UserPassword.h"

#include "Frame/AesSecretKey.h"
#include "Frame/Commlib.h"
#include "Frame/Dialects.h"
#include "Frame/Session.h"
#include "Role/UserInfo.h"

namespace zanrole {

namespace {

/// What is enciphered: the login is bound in, so that a value copied onto another account does not unlock it.
std::string LoginAndPassword(const std::string& login, const std::string& plain) {
  return Format("%s:%s", {login, plain});
}

std::string PlainPassword(const std::string& login, const std::string& held) {
  if (held.empty()) return held;
  try {
    const std::string bound = LoginAndPassword(login, "");
    const std::string deciphered = TAesSecretKey::Decrypt(held);
    if (deciphered.starts_with(bound)) return deciphered.substr(bound.size());
  } catch (const ECipherError&) {
    // Not a value of this cipher: a new password in plain text, or one stored before passwords were
    // enciphered.
  }
  return held;
}

// The MySQL text and the other one are worded each in its own way; "Getdate()" is meant for Oracle too.
// clang-format off
constexpr const char* kSetPasswordMySql = "Update STUsers Set Password=%s where oid=%d;";
constexpr const char* kSetPassword      = "Update STUsers Set Password = %s Where OID = %d;";

constexpr const char* kNoteTimeMySql = "Update STUserPasswordStrategy Set LastModifyTime = now() where UserID=%s;";
constexpr const char* kNoteTime      = "Update STUserPasswordStrategy Set LastModifyTime = Getdate()  Where UserID = %s;";
// clang-format on

}  // namespace

std::string SavePassword(int oid, const std::string& login, const std::string& held) {
  const std::string plain = PlainPassword(login, held);
  std::string stored =
      SystemInfo().EncryptPassword ? TAesSecretKey::Encrypt(LoginAndPassword(login, plain)) : plain;

  const bool mySql = DbHelper_IsMySql();
  TStringList statements;
  statements.Add(Format(mySql ? kSetPasswordMySql : kSetPassword, {QuotedStr(stored), oid}));
  statements.Add(Format(mySql ? kNoteTimeMySql : kNoteTime, {QuotedStr(login)}));
  const auto query = TDbProviderFactory::GetQuery();
  RunBatch(*query, statements);
  return stored;
}

void SavePassword(TUserInfo& user) { user.Password = SavePassword(user.oID, user.ID, user.Password); }

}  // namespace zanrole
