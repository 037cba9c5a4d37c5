#pragma once

#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/ssl/context.hpp>
#include <memory>
#include <stdexcept>

#include "host/gateway/Coroutines.h"
#include "host/gateway/Options.h"

namespace zanhost {

/// An option that cannot be obeyed, with a sentence that says what to do.
class EBadOption : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Where to listen. Raises EBadOption for an address that is none, and for one off loopback when neither TLS
/// nor a proxy is named.
asio::ip::tcp::endpoint ListenEndpoint(const TServeOptions& options);

/// The proxy's address as connections show it, empty without one. Raises EBadOption.
std::string ProxyAddress(const TServeOptions& options);

/// Reads certificate and key; null when none are named. Raises EBadOption.
std::shared_ptr<asio::ssl::context> ReadTlsFiles(const TServeOptions& options);

}  // namespace zanhost
