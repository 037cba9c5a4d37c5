#pragma once

#include <boost/asio/ssl/context.hpp>
#include <memory>
#include <string>

#include "host/gateway/Api.h"
#include "host/gateway/Stream.h"

namespace zanhost {

/// How connections are taken.
struct TConnectionRules {
  /// Null without TLS. Replaced when the certificate was renewed.
  std::shared_ptr<asio::ssl::context> Tls;
  /// Empty when there is no proxy.
  std::string ProxyAddress;
};

/// Serves the requests of one connection until it is closed or becomes a WebSocket. What is passed by
/// reference must outlive the task.
TTask<> RunHttpSession(TStream stream, std::string address, const TConnectionRules& rules, TApi& api);

}  // namespace zanhost
