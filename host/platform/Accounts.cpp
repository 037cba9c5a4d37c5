#include "host/platform/Accounts.h"

#include "host/platform/Secrets.h"

namespace zanhost {

namespace {

// clang-format off
constexpr char kSelectAccount[] =
    "select A.OID, A.UserID, A.UserName, A.Password, A.UnUsed, A.IsAdministrator, B.NeedReset, B.CanModify "
    "from STUsers A left outer join STUserPasswordStrategy B on A.UserID = B.UserID "
    "where A.uGroup = 0 and A.UserID = :UserID";

constexpr char kClearNeedReset[] =
    "update STUserPasswordStrategy set NeedReset = :NeedReset where UserID = :UserID";
// clang-format on

struct TStoredAccount {
  TAccount Account;
  std::string Password;
};

// A user without a policy row has the defaults.
bool ReadFlag(zanrole::TDBFieldHelper& helper, const zanrole::TField& field, bool fallback) {
  return field.IsNull() ? fallback : helper.GetBoolean(field);
}

std::optional<TStoredAccount> LoadAccount(zanrole::TDatabaseServices& database, std::string_view login) {
  const std::unique_ptr<zanrole::TZANQuery> query = database.GetQuery();
  query->SQL().SetText(kSelectAccount);
  query->ParamByName("UserID").AsString(login);
  query->Open();
  if (query->Eof()) return std::nullopt;
  const auto flags = database.GetDBFieldHelper();
  TStoredAccount stored;
  stored.Password = query->FieldByName("Password").AsString();
  TAccount& account = stored.Account;
  account.OID = query->FieldByName("OID").AsInteger();
  account.Login = query->FieldByName("UserID").AsString();
  account.Name = query->FieldByName("UserName").AsString();
  account.IsSuperUser = query->FieldByName("IsAdministrator").AsInteger() == 1;
  account.IsDisabled = query->FieldByName("UnUsed").AsInteger() != 0;
  account.NeedReset = ReadFlag(*flags, query->FieldByName("NeedReset"), false);
  account.CanModify = ReadFlag(*flags, query->FieldByName("CanModify"), true);
  return stored;
}

bool IsPasswordOf(zanrole::TCipher& cipher, std::string_view stored, std::string_view login,
                  std::string_view password) {
  try {
    const std::string bound = cipher.Decrypt(stored);
    return SameSecret(bound, std::string(login) + ":" + std::string(password));
  } catch (const zanrole::ECipherError&) {
    return !stored.empty() && SameSecret(stored, password);
  }
}

TLoginVerdict VerdictOn(const TAccount& account) {
  if (account.IsDisabled) return TLoginVerdict::Disabled;
  return account.NeedReset ? TLoginVerdict::NeedReset : TLoginVerdict::Accepted;
}

}  // namespace

std::optional<TAccount> FindAccount(zanrole::TDatabaseServices& database, std::string_view login) {
  std::optional<TStoredAccount> stored = LoadAccount(database, login);
  if (!stored) return std::nullopt;
  return std::move(stored->Account);
}

TLoginOutcome CheckLogin(zanrole::TDatabaseServices& database, zanrole::TCipher& cipher,
                         std::string_view login, std::string_view password) {
  const std::optional<TStoredAccount> stored = LoadAccount(database, login);
  // Made for every try, so that an unknown login has something of its own to be compared with.
  const std::string decoy = cipher.Encrypt(std::string(login) + ":");
  const bool isRight = IsPasswordOf(cipher, stored ? stored->Password : decoy, login, password);
  if (!stored || !isRight) return {};
  return {VerdictOn(stored->Account), stored->Account};
}

void ClearNeedReset(zanrole::TDatabaseServices& database, std::string_view login) {
  const std::unique_ptr<zanrole::TZANQuery> query = database.GetQuery();
  query->SQL().SetText(kClearNeedReset);
  database.GetDBParamHelper()->SetBoolean(query->ParamByName("NeedReset"), false);
  query->ParamByName("UserID").AsString(login);
  query->ExecSQL();
}

}  // namespace zanhost
