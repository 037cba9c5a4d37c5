#pragma once

#include <boost/asio/any_io_executor.hpp>
#include <boost/asio/as_tuple.hpp>
#include <boost/asio/awaitable.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/asio/use_awaitable.hpp>

namespace zanhost {

namespace asio = boost::asio;

template <typename T = void>
using TTask = asio::awaitable<T>;

/// Awaits an operation whose failure is an ordinary outcome: the error code comes first in the result.
inline constexpr auto kWithError = asio::as_tuple(asio::use_awaitable);

/// Runs a task beside the others. What it throws ends that task only and is told on standard error, with
/// `name`.
void Spawn(const asio::any_io_executor& executor, const char* name, TTask<> task);

/// Lets tasks sleep until another changed something. All tasks run on one thread, so a task that checks its
/// condition and then waits misses nothing.
class TWakeup {
 public:
  explicit TWakeup(const asio::any_io_executor& executor);
  /// Returns at the next Notify; the caller checks its condition again.
  TTask<> Wait();
  void Notify() { FTimer.cancel(); }

 private:
  asio::steady_timer FTimer;
};

}  // namespace zanhost
