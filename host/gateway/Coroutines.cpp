#include "host/gateway/Coroutines.h"

#include <boost/asio/co_spawn.hpp>
#include <exception>
#include <iostream>
#include <utility>

namespace zanhost {

void Spawn(const asio::any_io_executor& executor, const char* name, TTask<> task) {
  asio::co_spawn(executor, std::move(task), [name](const std::exception_ptr& fault) {
    if (!fault) return;
    try {
      std::rethrow_exception(fault);
    } catch (const std::exception& known) {
      std::cerr << "zanhost: " << name << ": " << known.what() << '\n';
    }
  });
}

TWakeup::TWakeup(const asio::any_io_executor& executor) : FTimer(executor) {
  FTimer.expires_at(asio::steady_timer::time_point::max());
}

TTask<> TWakeup::Wait() { co_await FTimer.async_wait(kWithError); }

}  // namespace zanhost
