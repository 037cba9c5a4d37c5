#include "host/gateway/WebSocketSession.h"

#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/websocket/stream.hpp>
#include <deque>
#include <string>
#include <utility>

namespace zanhost {

namespace websocket = beast::websocket;

namespace {

constexpr std::size_t kLongestMessage = 256UL * 1024;
// A page that is this far behind gets a snapshot instead of what it missed.
constexpr std::size_t kMostQueued = 4UL * 1024 * 1024;
constexpr std::chrono::seconds kSilence{30};
constexpr std::chrono::seconds kHandshakeTime{10};

websocket::stream_base::timeout TimeLimits() {
  websocket::stream_base::timeout limits{};
  limits.handshake_timeout = kHandshakeTime;
  limits.idle_timeout = kSilence;
  limits.keep_alive_pings = true;
  return limits;
}

// A page's connection. Its tasks keep it alive until the connection is closed.
class TWebSocketSession final : public TPeer, public std::enable_shared_from_this<TWebSocketSession> {
 public:
  TWebSocketSession(TStream stream, std::shared_ptr<TLoginSession> session)
      : FSocket(std::move(stream)), FSession(std::move(session)), FChanged(FSocket.get_executor()) {}

  TTask<> Run(beast::http::request<beast::http::empty_body> upgrade);
  void Deliver(std::string line) override;
  void Finish(std::string line) override;

 private:
  TTask<> WriteLines();
  TTask<> ReadMessages();
  void Queue(std::string line);

  websocket::stream<TStream, false> FSocket;
  std::shared_ptr<TLoginSession> FSession;
  TWakeup FChanged;
  std::deque<std::string> FQueue;
  std::size_t FQueued = 0;
  bool FLostLines = false;
  bool FFinishing = false;
  bool FClosed = false;
};

TTask<> TWebSocketSession::Run(beast::http::request<beast::http::empty_body> upgrade) {
  const auto self = shared_from_this();
  beast::get_lowest_layer(FSocket).expires_never();
  FSocket.set_option(TimeLimits());
  FSocket.read_message_max(kLongestMessage);
  FSocket.text(true);
  const auto [fault] = co_await FSocket.async_accept(upgrade, kWithError);
  if (fault) co_return;
  Spawn(FSocket.get_executor(), "lines to a page", WriteLines());
  FSession->Attach(self);
  co_await ReadMessages();
  FClosed = true;
  FChanged.Notify();
  FSession->Detach(*this);
}

TTask<> TWebSocketSession::ReadMessages() {
  beast::flat_buffer buffer;
  for (;;) {
    const auto [fault, size] = co_await FSocket.async_read(buffer, kWithError);
    if (fault) co_return;
    FSession->OnMessage(*this, {static_cast<const char*>(buffer.data().data()), buffer.size()});
    buffer.consume(buffer.size());
    co_await FSession->Uncongested();
  }
}

TTask<> TWebSocketSession::WriteLines() {
  const auto self = shared_from_this();
  while (!FClosed) {
    if (std::exchange(FLostLines, false)) FSession->Refresh(*this);
    if (FQueue.empty() && FFinishing) break;
    if (FQueue.empty()) {
      co_await FChanged.Wait();
      continue;
    }
    const std::string line = std::move(FQueue.front());
    FQueue.pop_front();
    const auto [fault, size] = co_await FSocket.async_write(asio::buffer(line), kWithError);
    if (fault) co_return;
    FQueued -= line.size();
  }
  if (!FClosed) co_await FSocket.async_close(websocket::close_code::normal, kWithError);
}

void TWebSocketSession::Queue(std::string line) {
  FQueued += line.size();
  FQueue.push_back(std::move(line));
  FChanged.Notify();
}

void TWebSocketSession::Deliver(std::string line) {
  if (FLostLines || FFinishing || FClosed) return;
  Queue(std::move(line));
  // A single line is never too much: it may be the snapshot itself.
  if (FQueued <= kMostQueued || FQueue.size() == 1) return;
  for (const std::string& dropped : FQueue) FQueued -= dropped.size();
  FQueue.clear();
  FLostLines = true;
}

void TWebSocketSession::Finish(std::string line) {
  if (FFinishing || FClosed) return;
  FFinishing = true;
  Queue(std::move(line));
}

}  // namespace

TTask<> RunWebSocket(TStream stream, beast::http::request<beast::http::empty_body> upgrade,
                     std::shared_ptr<TLoginSession> session) {
  const auto page = std::make_shared<TWebSocketSession>(std::move(stream), std::move(session));
  co_await page->Run(std::move(upgrade));
}

}  // namespace zanhost
