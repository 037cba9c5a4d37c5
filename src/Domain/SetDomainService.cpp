#include "Domain/SetDomainService.h"

#include "Frame/Session.h"

namespace zanrole {

namespace {

TWebServices& WebServices() { return TSession::Current().Host().WebServices(); }

}  // namespace

TSetDomainService::TSetDomainService() {
  const std::string address = WebServices().ServiceAddress();
  FHasServer = !address.empty();
  FCall.ServiceAddress = address + "User.svc";
  FCall.Contract = "IUserService";
  FCall.Service = "User";
  FCall.Method = "SetCurDomainID";
}

bool TSetDomainService::Execute(int domainID) {
  TSystemInfo& login = SystemInfo();
  FCall.Params = {
      {"userId", "string", login.LoginUserID},
      {"publicToken", "string", login.SessionParams.Values("UserToken")},
      {"CurDomainID", "int", std::to_string(domainID)},
  };
  if (FHasServer) WebServices().Call(FCall);
  return true;
}

}  // namespace zanrole
