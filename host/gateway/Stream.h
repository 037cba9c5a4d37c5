#pragma once

#include <boost/asio/ssl/context.hpp>
#include <boost/asio/ssl/stream.hpp>
#include <boost/beast/core/error.hpp>
#include <boost/beast/core/role.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/websocket/teardown.hpp>
#include <memory>
#include <optional>
#include <utility>

#include "host/gateway/Coroutines.h"

namespace zanhost {

namespace beast = boost::beast;

/// A person's connection, plain or under TLS. Which of the two is decided at the lowest read and write, so
/// that the HTTP and WebSocket code above is compiled once.
class TStream {
 public:
  using executor_type = beast::tcp_stream::executor_type;
  using next_layer_type = beast::tcp_stream;

  explicit TStream(asio::ip::tcp::socket socket) : FParts(std::make_unique<TParts>(std::move(socket))) {}

  executor_type get_executor() { return FParts->Tcp.get_executor(); }
  /// Below TLS: holds the time limits.
  beast::tcp_stream& next_layer() { return FParts->Tcp; }
  const beast::tcp_stream& next_layer() const { return FParts->Tcp; }
  bool IsTls() const { return FParts->Tls.has_value(); }

  /// Takes up TLS as the server. `context` must outlive the call only.
  TTask<boost::system::error_code> Handshake(asio::ssl::context& context);
  /// Tells the other side that nothing more comes.
  TTask<> Finish();

  template <typename TBuffers, typename TToken>
  auto async_read_some(const TBuffers& buffers, TToken&& token) {
    if (FParts->Tls) return FParts->Tls->async_read_some(buffers, std::forward<TToken>(token));
    return FParts->Tcp.async_read_some(buffers, std::forward<TToken>(token));
  }
  template <typename TBuffers, typename TToken>
  auto async_write_some(const TBuffers& buffers, TToken&& token) {
    if (FParts->Tls) return FParts->Tls->async_write_some(buffers, std::forward<TToken>(token));
    return FParts->Tcp.async_write_some(buffers, std::forward<TToken>(token));
  }

  /// Ends the connection under a WebSocket that was closed; found by Beast.
  template <typename THandler>
  friend void async_teardown(beast::role_type role, TStream& stream, THandler&& handler) {
    beast::websocket::async_teardown(role, stream.next_layer().socket(), std::forward<THandler>(handler));
  }

 private:
  struct TParts {
    explicit TParts(asio::ip::tcp::socket socket) : Tcp(std::move(socket)) {}
    beast::tcp_stream Tcp;
    std::optional<asio::ssl::stream<beast::tcp_stream&>> Tls;
  };

  std::unique_ptr<TParts> FParts;
};

}  // namespace zanhost
