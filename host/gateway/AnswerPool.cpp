#include "host/gateway/AnswerPool.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace zanhost {

namespace {

constexpr std::size_t kMostWaiting = 512;
/// Of one login, so that it does not take the room of all others.
constexpr std::size_t kMostOfLogin = 128;
constexpr auto kWatchInterval = std::chrono::milliseconds(250);
constexpr auto kEndInterval = std::chrono::milliseconds(20);

}  // namespace

TAnswerPool::TAnswerPool(asio::any_io_executor executor, TAnswerSettings settings, TLog& log)
    : FExecutor(std::move(executor)), FSettings(std::move(settings)) {
  for (std::size_t i = 0; i < FSettings.Processes; ++i)
    FWorkers.push_back(std::make_shared<TAnswerWorker>(FExecutor, FSettings, log));
}

TAnswerWorker& TAnswerPool::WorkerFor(const std::string& login) {
  TAnswerWorker& home = *FWorkers[std::hash<std::string>()(login) % FWorkers.size()];
  if (home.Waiting() == 0) return home;
  const auto idle = std::find_if(FWorkers.begin(), FWorkers.end(),
                                 [](const auto& worker) { return worker->Waiting() == 0; });
  return idle != FWorkers.end() ? **idle : home;
}

TTask<TReply> TAnswerPool::Ask(TQuestion question) {
  const std::string login = question.Login;
  const auto known = FTurns.find(login);
  if (FWaiting >= kMostWaiting || (known != FTurns.end() && known->second.Waiting >= kMostOfLogin))
    co_return TReply{503, "Too many questions wait for an answer. Ask again in a moment."};
  TTurn& turn = FTurns[login];
  if (turn.Worker == nullptr) turn.Worker = &WorkerFor(login);
  question.Number = ++FAsked;
  const auto asked = std::make_shared<TAsked>(FExecutor, std::move(question));
  ++FWaiting;
  ++turn.Waiting;
  turn.Worker->Ask(asked);
  while (!asked->Reply) co_await asked->Answered.Wait();
  --FWaiting;
  if (--turn.Waiting == 0) FTurns.erase(login);
  co_return std::move(*asked->Reply);
}

TTask<> TAnswerPool::Watch() {
  asio::steady_timer timer(FExecutor);
  for (;;) {
    for (const auto& worker : FWorkers) worker->Tick();
    timer.expires_after(kWatchInterval);
    co_await timer.async_wait(kWithError);
  }
}

TTask<> TAnswerPool::EndAll() {
  for (const auto& worker : FWorkers) worker->Close();
  asio::steady_timer timer(FExecutor);
  const auto isGone = [](const auto& worker) { return worker->IsGone(); };
  while (!std::all_of(FWorkers.begin(), FWorkers.end(), isGone)) {
    timer.expires_after(kEndInterval);
    co_await timer.async_wait(kWithError);
  }
}

}  // namespace zanhost
