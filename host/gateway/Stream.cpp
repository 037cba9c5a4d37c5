#include "host/gateway/Stream.h"

namespace zanhost {

TTask<boost::system::error_code> TStream::Handshake(asio::ssl::context& context) {
  FParts->Tls.emplace(FParts->Tcp, context);
  const auto [fault] = co_await FParts->Tls->async_handshake(asio::ssl::stream_base::server, kWithError);
  co_return fault;
}

TTask<> TStream::Finish() {
  if (FParts->Tls) co_await FParts->Tls->async_shutdown(kWithError);
  boost::system::error_code gone;
  FParts->Tcp.socket().shutdown(asio::ip::tcp::socket::shutdown_send, gone);
}

}  // namespace zanhost
