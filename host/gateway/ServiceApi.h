#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "host/gateway/Admission.h"
#include "host/gateway/Answer.h"
#include "host/gateway/AnswerPool.h"
#include "host/gateway/Coroutines.h"
#include "host/gateway/Request.h"
#include "host/gateway/ServiceRoute.h"
#include "host/gateway/Throttle.h"
#include "host/gateway/TokenRates.h"
#include "host/platform/Log.h"
#include "host/platform/Tokens.h"

namespace zanhost {

/// The interface for services: who bears a token asks functions and rights, within the token's scope. Checks
/// and passes on; the answers are made by the processes of the pool.
class TServiceApi {
 public:
  /// `folder`: of the installation, with its tokens. `pool` and `log` must outlive the object.
  TServiceApi(const std::filesystem::path& folder, TAnswerPool& pool, TLog& log);

  static bool Serves(std::string_view path) { return IsServicePath(path); }

  /// Checks address, token and its rate.
  TAdmission Admit(const TRequest& request);
  /// Answers an admitted request with its body.
  TTask<TAnswer> Answer(const TRequest& request);

 private:
  std::optional<TAnswer> RefuseToken(const TRequest& request);
  std::optional<TAnswer> RefuseRate(const TBearerToken& token);
  TAnswer RefuseBearer(const TRequest& request, TTokenVerdict verdict);
  TTask<TAnswer> AnswerQuestion(const TServiceRoute& route, const TRequest& request);
  void LogLine(const TBearerToken& token, const TQuestion& question, std::string_view outcome);

  TAnswerPool& FPool;
  TLog& FLog;
  TTokenBook FTokens;
  TTokenRates FRates;
  /// Slows down who tries tokens; who bears a valid one is not slowed with him.
  TThrottle FWrongTokens;
};

}  // namespace zanhost
