#pragma once

#include <chrono>
#include <deque>
#include <memory>
#include <string>

#include "host/gateway/ChildProcess.h"
#include "host/gateway/Coroutines.h"

namespace zanhost {

/// Hears what a worker says. Called on the I/O thread.
class TWorkerOwner {
 public:
  virtual ~TWorkerOwner() = default;
  virtual void OnWorkerLine(std::string line) = 0;
  /// A line of standard error.
  virtual void OnWorkerComplaint(std::string line) = 0;
  /// The process is gone; `status` as waitpid gives it. Nothing is called afterwards.
  virtual void OnWorkerEnd(int status) = 0;
};

/// The worker process of one login and the lines to and from it. Owner and worker live at least until
/// OnWorkerEnd.
class TWorker : public std::enable_shared_from_this<TWorker> {
 public:
  /// Starts the process. `endLimit` is how long it may take to end after Close. Raises std::system_error.
  static std::shared_ptr<TWorker> Start(const asio::any_io_executor& executor, const TCommand& command,
                                        std::chrono::seconds endLimit, std::shared_ptr<TWorkerOwner> owner);
  TWorker(const asio::any_io_executor& executor, const TCommand& command, std::chrono::seconds endLimit);

  /// Queues one line without its line break. Ignored after Close.
  void Send(std::string line);
  /// Returns when so little is queued that more may be sent.
  TTask<> Uncongested();
  /// Ends the worker's input after what is queued, and kills it when it does not end in time.
  void Close();
  void Kill() { FChild.Kill(); }

 private:
  TTask<> Run(std::shared_ptr<TWorkerOwner> owner);
  TTask<> WriteLines();
  TTask<> ReadComplaints(std::shared_ptr<TWorkerOwner> owner);
  TTask<> KillWhenLate();

  TChildProcess FChild;
  std::chrono::seconds FEndLimit;
  std::deque<std::string> FQueue;
  std::size_t FQueued = 0;
  bool FClosing = false;
  bool FEnded = false;
  TWakeup FQueueChanged;
  TWakeup FDrained;
  asio::steady_timer FEndTimer;
};

}  // namespace zanhost
