#include "host/cli/LoggedOperation.h"

#include "host/platform/Log.h"
#include "host/query/DataUrl.h"
#include "host/worker/FunctionSession.h"

namespace zanhost {

namespace {

using TClock = std::chrono::steady_clock;

TOperation LineFor(const TSessionOptions& options, const std::string& operation, TClock::time_point start,
                   std::string outcome) {
  return {NewSessionName(), OperatorNameOf(options), operation, std::move(outcome),
          std::chrono::duration_cast<std::chrono::milliseconds>(TClock::now() - start)};
}

}  // namespace

int RunLogged(const TSessionOptions& options, const std::string& operation,
              const std::function<int()>& work) {
  TLog log(FolderOfData(options.Data));
  const TClock::time_point start = TClock::now();
  try {
    const int status = work();
    log.Write(LineFor(options, operation, start, status == 0 ? "ok" : "failed"));
    return status;
  } catch (const std::exception& fault) {
    log.Write(LineFor(options, operation, start, OutcomeOf(fault)));
    throw;
  }
}

}  // namespace zanhost
