#include "host/worker/HostSession.h"

#include <fmt/format.h>

#include "host/platform/Numbering.h"

namespace zanhost {

TLogin LoginOf(const TAccount& account) {
  return {account.OID, account.Login, account.Name, account.IsSuperUser, /*IsBuilder*/ false};
}

TLogin LoginOf(zanrole::TDatabaseServices& database, const std::string& user) {
  const std::optional<TAccount> account = FindAccount(database, user);
  if (!account) throw zanrole::EZanError(fmt::format("There is no user with the login '{}'", user));
  return LoginOf(*account);
}

TLogin BuilderLogin() {
  TLogin builder;
  builder.Name = "[ZanBuilder]";
  builder.IsBuilder = true;
  return builder;
}

THostSessionImpl::THostSessionImpl(const TSessionParts& parts, const TLogin& login)
    : FParts(parts),
      FIsBuilder(login.IsBuilder),
      FSystemInfo(parts.Database),
      FFuncManager(parts.Module),
      FWebServices(parts.Settings.ReadString("services", "address", "")) {
  FSystemInfo.LoginUserOID = login.OID;
  FSystemInfo.LoginUserID = login.Login;
  FSystemInfo.LoginUserName = login.Name;
  FSystemInfo.IsSuperUser = login.IsSuperUser;
  FSystemInfo.ServerUrl = parts.Settings.ReadString("services", "server", "");
}

int THostSessionImpl::TLoginRecord::NewDjLsh(std::string_view name) {
  return zanhost::NewDjLsh(*FDatabase, name);
}

}  // namespace zanhost
