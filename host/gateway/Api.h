#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>

#include "host/gateway/Admission.h"
#include "host/gateway/Answer.h"
#include "host/gateway/Coroutines.h"
#include "host/gateway/Login.h"
#include "host/gateway/Request.h"
#include "host/gateway/ServiceApi.h"
#include "host/gateway/Sessions.h"
#include "host/gateway/StaticFiles.h"

namespace zanhost {

/// The HTTP surface: /api, /healthz and the client's files. What other services ask goes to the TServiceApi.
class TApi {
 public:
  TApi(TLoginDesk& login, TSessions& sessions, TServiceApi& services, TStaticFiles& files,
       std::uint64_t maxUpload)
      : FLogin(login), FSessions(sessions), FServices(services), FStaticFiles(files), FMaxUpload(maxUpload) {}

  TAdmission Admit(const TRequest& request);
  /// Answers an admitted request with its body. `bodyFile` is where the body went, as Admit said.
  TTask<TAnswer> Answer(TRequest request, std::filesystem::path bodyFile);
  /// The session that a WebSocket may look at; null, with the refusal, when there is none.
  std::shared_ptr<TLoginSession> AdmitWebSocket(const TRequest& request, TAnswer& refusal);

 private:
  TTask<TAnswer> LogIn(const TRequest& request);
  TAnswer OpenSession(const TRequest& request, const TOperator& who);
  TAnswer Session(const TRequest& request);
  TAnswer LogOut(const TRequest& request);
  TAnswer GetFile(const TRequest& request);
  TAnswer TakeUpload(const TRequest& request, const std::filesystem::path& file);
  std::optional<TAnswer> RefuseUpload(const TRequest& request, TAdmission& admission);
  std::shared_ptr<TLoginSession> SessionOf(const TRequest& request) const;

  TLoginDesk& FLogin;
  TSessions& FSessions;
  TServiceApi& FServices;
  TStaticFiles& FStaticFiles;
  std::uint64_t FMaxUpload;
};

}  // namespace zanhost
