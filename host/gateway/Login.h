#pragma once

#include <boost/asio/thread_pool.hpp>
#include <chrono>
#include <memory>
#include <string>

#include "host/gateway/Coroutines.h"
#include "host/gateway/Options.h"
#include "host/gateway/Session.h"
#include "host/gateway/Throttle.h"
#include "host/platform/Accounts.h"
#include "host/platform/Cipher.h"
#include "host/query/Database.h"
#include "host/query/Trace.h"

namespace zanhost {

/// A try to log in, as it came.
struct TLoginTry {
  std::string Login;
  std::string Password;
  /// Stored first when the account needs one; otherwise not looked at.
  std::string NewPassword;
  std::string Language;
  std::string Address;
};

enum class TLoginResult {
  Accepted,
  Wrong,
  Disabled,
  NeedReset,
  /// Too many failed tries; RetryAfter says how long to wait.
  Slowed,
  /// Too many tries are being checked.
  Busy,
  /// The new password is not taken; Detail says why.
  PasswordRefused
};

struct TLoginAnswer {
  TLoginResult Result;
  std::chrono::seconds RetryAfter{};
  std::string Detail;
  TOperator Who;
};

/// Checks logins against the accounts, on a thread of its own, and slows down who guesses.
class TLoginDesk {
 public:
  /// Raises when the data, the installation's key or the trace cannot be opened. `options` and `log` must
  /// outlive the object.
  TLoginDesk(asio::any_io_executor executor, const TServeOptions& options, TLog& log);
  /// Waits for a check that runs.
  ~TLoginDesk();
  TLoginDesk(const TLoginDesk&) = delete;
  TLoginDesk& operator=(const TLoginDesk&) = delete;

  /// Writes one line to the log, but of tries that come too early only the first. Raises what the database
  /// raises.
  TTask<TLoginAnswer> Try(TLoginTry given);

 private:
  TTask<TLoginAnswer> TryUnslowed(const TLoginTry& given);
  TTask<TLoginOutcome> Check(std::string login, std::string password);
  TTask<TLoginAnswer> Renew(const TLoginTry& given);
  std::chrono::seconds DelayOf(const TLoginTry& given) const;
  void LogTry(const TLoginTry& given, const TLoginAnswer& answer);

  asio::any_io_executor FExecutor;
  const TServeOptions& FOptions;
  TLog& FLog;
  std::unique_ptr<TTrace> FTrace;
  std::unique_ptr<TDatabase> FDatabase;
  TSivCipher FCipher;
  TThrottle FByLogin;
  TThrottle FByNetwork;
  std::size_t FRunning = 0;
  // Last, so that its thread ends before what it uses.
  asio::thread_pool FPool;
};

}  // namespace zanhost
