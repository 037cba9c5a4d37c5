#include "host/gateway/Login.h"

#include <algorithm>
#include <boost/asio/co_spawn.hpp>
#include <exception>
#include <utility>

#include "host/gateway/Network.h"
#include "host/gateway/PasswordChange.h"
#include "host/query/DataUrl.h"

namespace zanhost {

namespace {

constexpr TThrottleRule kPerLogin{3, std::chrono::seconds(60)};
// Many people may come from one address.
constexpr TThrottleRule kPerNetwork{10, std::chrono::seconds(60)};
constexpr std::size_t kMostAtOnce = 32;

TLoginResult ResultOf(TLoginVerdict verdict) {
  switch (verdict) {
    case TLoginVerdict::Accepted:
      return TLoginResult::Accepted;
    case TLoginVerdict::Disabled:
      return TLoginResult::Disabled;
    case TLoginVerdict::NeedReset:
      return TLoginResult::NeedReset;
    case TLoginVerdict::Wrong:
      break;
  }
  return TLoginResult::Wrong;
}

TLoginAnswer AnswerOf(TLoginResult result) {
  TLoginAnswer answer;
  answer.Result = result;
  return answer;
}

TLoginAnswer RefusedPassword(std::string why) {
  TLoginAnswer answer = AnswerOf(TLoginResult::PasswordRefused);
  answer.Detail = std::move(why);
  return answer;
}

std::string_view DescribeResult(TLoginResult result) {
  switch (result) {
    case TLoginResult::Accepted:
      return "ok";
    case TLoginResult::Wrong:
      return "refused: wrong login or password";
    case TLoginResult::Disabled:
      return "refused: account is disabled";
    case TLoginResult::NeedReset:
      return "refused: needs a new password";
    case TLoginResult::Slowed:
      return "refused: too many failed tries";
    case TLoginResult::Busy:
      return "refused: too many tries at once";
    case TLoginResult::PasswordRefused:
      return "refused: the new password is not taken";
  }
  return "";
}

bool HasControlCharacter(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; });
}

}  // namespace

TLoginDesk::TLoginDesk(asio::any_io_executor executor, const TServeOptions& options, TLog& log)
    : FExecutor(std::move(executor)),
      FOptions(options),
      FLog(log),
      FTrace(options.Trace.empty() ? nullptr : std::make_unique<TTrace>(options.Trace.string())),
      FDatabase(OpenDatabase(options.Data, TOpenMode::MustExist)),
      FCipher(KeyFileOf(options.Folder)),
      FByLogin(kPerLogin),
      FByNetwork(kPerNetwork),
      FPool(1) {
  FDatabase->SetTrace(FTrace.get());
}

TLoginDesk::~TLoginDesk() { FPool.join(); }

std::chrono::seconds TLoginDesk::DelayOf(const TLoginTry& given) const {
  const auto now = std::chrono::steady_clock::now();
  return std::max(FByLogin.Delay(given.Login, now), FByNetwork.Delay(NetworkOf(given.Address), now));
}

TTask<TLoginAnswer> TLoginDesk::Try(TLoginTry given) {
  TLoginAnswer answer = AnswerOf(TLoginResult::Slowed);
  answer.RetryAfter = DelayOf(given);
  bool isNews = true;
  if (answer.RetryAfter > std::chrono::seconds::zero()) {
    const bool isNewsOfLogin = FByLogin.NoteRefusal(given.Login);
    isNews = FByNetwork.NoteRefusal(NetworkOf(given.Address)) || isNewsOfLogin;
  } else {
    answer = AnswerOf(TLoginResult::Busy);
    if (FRunning < kMostAtOnce) answer = co_await TryUnslowed(given);
  }
  if (isNews) LogTry(given, answer);
  co_return answer;
}

TTask<TLoginAnswer> TLoginDesk::TryUnslowed(const TLoginTry& given) {
  const auto now = std::chrono::steady_clock::now();
  const std::string network = NetworkOf(given.Address);
  FByLogin.Begin(given.Login, now);
  FByNetwork.Begin(network, now);
  ++FRunning;
  std::exception_ptr fault;
  TLoginOutcome outcome;
  try {
    outcome = co_await Check(given.Login, given.Password);
  } catch (const std::exception&) {
    fault = std::current_exception();
  }
  --FRunning;
  if (fault || outcome.Verdict != TLoginVerdict::Wrong) {
    FByLogin.TakeBack(given.Login);
    FByNetwork.TakeBack(network);
  }
  if (fault) std::rethrow_exception(fault);
  if (outcome.Verdict == TLoginVerdict::NeedReset && !given.NewPassword.empty())
    co_return co_await Renew(given);
  TLoginAnswer answer = AnswerOf(ResultOf(outcome.Verdict));
  answer.Who = {outcome.Account.Login, outcome.Account.Name, given.Language};
  if (answer.Result == TLoginResult::Accepted) FByLogin.Forget(given.Login);
  co_return answer;
}

TTask<TLoginOutcome> TLoginDesk::Check(std::string login, std::string password) {
  co_return co_await asio::co_spawn(
      FPool,
      [this, &login, &password]() -> TTask<TLoginOutcome> {
        co_return CheckLogin(*FDatabase, FCipher, login, password);
      },
      asio::use_awaitable);
}

TTask<TLoginAnswer> TLoginDesk::Renew(const TLoginTry& given) {
  if (given.NewPassword == given.Password) co_return RefusedPassword("The new password is the old one.");
  if (HasControlCharacter(given.NewPassword))
    co_return RefusedPassword("A password holds no control characters.");
  // Named, since the compiler destroys a braced temporary of an awaited call twice.
  TPasswordChange change{FOptions.Data, FOptions.Trace, given.Login, given.NewPassword};
  const std::optional<std::string> refusal = co_await ChangePassword(FExecutor, std::move(change));
  if (refusal) co_return RefusedPassword(*refusal);
  const TLoginOutcome outcome = co_await Check(given.Login, given.NewPassword);
  TLoginAnswer answer = AnswerOf(ResultOf(outcome.Verdict));
  answer.Who = {outcome.Account.Login, outcome.Account.Name, given.Language};
  co_return answer;
}

void TLoginDesk::LogTry(const TLoginTry& given, const TLoginAnswer& answer) {
  const std::string outcome = std::string(DescribeResult(answer.Result)) + " (" + given.Address + ")";
  FLog.Write({{}, given.Login, "login", outcome, {}});
}

}  // namespace zanhost
