#pragma once

#include <functional>
#include <semaphore>
#include <string>
#include <thread>
#include <utility>

#include "bench/Measure.h"
#include "bench/SessionOfUser.h"

namespace zanbench {

/// A user whom a thread of his own serves: his session lives there, with its own connection.
class TUserThread {
 public:
  using TWork = std::function<std::string(TSessionOfUser&)>;

  /// Waits until the session is there. `work` is what each Start asks of it. The thread stays on one
  /// processor.
  TUserThread(const std::string& url, const std::string& login, int processor, TWork work)
      : FWork(std::move(work)), FThread([this, url, login, processor] {
          StayOn(processor);
          Serve(url, login);
        }) {
    FAnswered.acquire();
  }
  ~TUserThread() {
    FEnds = true;
    FStarted.release();
    FThread.join();
  }
  TUserThread(const TUserThread&) = delete;
  TUserThread& operator=(const TUserThread&) = delete;

  void Start() { FStarted.release(); }
  /// The answer to the last Start. REQUIRES: one call for each Start.
  std::string Wait() {
    FAnswered.acquire();
    return FAnswer;
  }

 private:
  void Serve(const std::string& url, const std::string& login) {
    TSessionOfUser session(url, login);
    FAnswered.release();
    for (FStarted.acquire(); !FEnds; FStarted.acquire()) {
      FAnswer = FWork(session);
      FAnswered.release();
    }
  }

  TWork FWork;
  std::binary_semaphore FStarted{0};
  std::binary_semaphore FAnswered{0};
  std::string FAnswer;
  bool FEnds = false;
  std::thread FThread;  ///< uses all above
};

}  // namespace zanbench
