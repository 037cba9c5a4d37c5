#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/gateway/AnswerWorker.h"

namespace zanhost {

/// A bounded number of answer processes. Questions about one login are answered in turn, and by the process
/// that keeps its session unless that is busy with others.
class TAnswerPool {
 public:
  /// `log` must outlive the object.
  TAnswerPool(asio::any_io_executor executor, TAnswerSettings settings, TLog& log);

  /// The reply; at once with status 503 when too many wait.
  TTask<TReply> Ask(TQuestion question);
  /// Watches for questions that take too long. Never ends by itself.
  TTask<> Watch();
  /// Ends the processes. Returns when none is left.
  TTask<> EndAll();

 private:
  /// The process that answers a login's questions, and how many of them wait.
  struct TTurn {
    TAnswerWorker* Worker = nullptr;
    std::size_t Waiting = 0;
  };

  TAnswerWorker& WorkerFor(const std::string& login);

  asio::any_io_executor FExecutor;
  TAnswerSettings FSettings;
  std::vector<std::shared_ptr<TAnswerWorker>> FWorkers;
  /// Only logins with a question that waits.
  std::map<std::string, TTurn> FTurns;
  std::size_t FWaiting = 0;
  std::int64_t FAsked = 0;
};

}  // namespace zanhost
