#include "host/gateway/Worker.h"

#include <boost/asio/buffer.hpp>
#include <boost/asio/error.hpp>
#include <boost/asio/read_until.hpp>
#include <boost/asio/write.hpp>
#include <utility>

namespace zanhost {

namespace {

constexpr std::size_t kLongestLine = 64UL * 1024 * 1024;
constexpr std::size_t kLongestComplaint = 64UL * 1024;
constexpr std::size_t kMuchQueued = 1024UL * 1024;

std::string TakeLine(std::string& buffer, std::size_t size) {
  std::string line = buffer.substr(0, size - 1);
  buffer.erase(0, size);
  return line;
}

}  // namespace

TWorker::TWorker(const asio::any_io_executor& executor, const TCommand& command,
                 std::chrono::seconds endLimit)
    : FChild(executor, command),
      FEndLimit(endLimit),
      FQueueChanged(executor),
      FDrained(executor),
      FEndTimer(executor) {}

std::shared_ptr<TWorker> TWorker::Start(const asio::any_io_executor& executor, const TCommand& command,
                                        std::chrono::seconds endLimit, std::shared_ptr<TWorkerOwner> owner) {
  auto worker = std::make_shared<TWorker>(executor, command, endLimit);
  Spawn(executor, "lines to a worker", worker->WriteLines());
  Spawn(executor, "complaints of a worker", worker->ReadComplaints(owner));
  Spawn(executor, "lines of a worker", worker->Run(std::move(owner)));
  return worker;
}

void TWorker::Send(std::string line) {
  if (FClosing || FEnded) return;
  line += '\n';
  FQueued += line.size();
  FQueue.push_back(std::move(line));
  FQueueChanged.Notify();
}

TTask<> TWorker::Uncongested() {
  const auto self = shared_from_this();
  while (FQueued > kMuchQueued && !FEnded) co_await FDrained.Wait();
}

void TWorker::Close() {
  if (FClosing || FEnded) return;
  FClosing = true;
  FQueueChanged.Notify();
  Spawn(FChild.Channel().get_executor(), "end of a worker", KillWhenLate());
}

TTask<> TWorker::Run(std::shared_ptr<TWorkerOwner> owner) {
  const auto self = shared_from_this();
  std::string buffer;
  for (;;) {
    const auto [fault, size] = co_await asio::async_read_until(
        FChild.Channel(), asio::dynamic_buffer(buffer, kLongestLine), '\n', kWithError);
    if (fault) break;
    owner->OnWorkerLine(TakeLine(buffer, size));
  }
  Close();
  const int status = co_await FChild.Ended();
  FEnded = true;
  FQueueChanged.Notify();
  FDrained.Notify();
  FEndTimer.cancel();
  owner->OnWorkerEnd(status);
}

TTask<> TWorker::WriteLines() {
  const auto self = shared_from_this();
  while (!FEnded && !(FClosing && FQueue.empty())) {
    if (FQueue.empty()) {
      co_await FQueueChanged.Wait();
      continue;
    }
    const std::string line = std::move(FQueue.front());
    FQueue.pop_front();
    const auto [fault, size] = co_await asio::async_write(FChild.Channel(), asio::buffer(line), kWithError);
    FQueued -= line.size();
    FDrained.Notify();
    if (fault) break;
  }
  boost::system::error_code gone;
  FChild.Channel().shutdown(asio::socket_base::shutdown_send, gone);
}

// What is no line, because it is too long or the last, is taken as one: a worker must never wait for somebody
// to read its complaints.
TTask<> TWorker::ReadComplaints(std::shared_ptr<TWorkerOwner> owner) {
  const auto self = shared_from_this();
  std::string buffer;
  for (;;) {
    const auto [fault, size] = co_await asio::async_read_until(
        FChild.Errors(), asio::dynamic_buffer(buffer, kLongestComplaint), '\n', kWithError);
    if (!fault) {
      owner->OnWorkerComplaint(TakeLine(buffer, size));
      continue;
    }
    if (!buffer.empty()) owner->OnWorkerComplaint(std::exchange(buffer, {}));
    if (fault != asio::error::not_found) break;
  }
}

TTask<> TWorker::KillWhenLate() {
  const auto self = shared_from_this();
  FEndTimer.expires_after(FEndLimit);
  co_await FEndTimer.async_wait(kWithError);
  FChild.Kill();
}

}  // namespace zanhost
