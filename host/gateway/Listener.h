#pragma once

#include <boost/asio/ip/tcp.hpp>
#include <cstddef>
#include <map>
#include <memory>
#include <string>

#include "host/gateway/HttpSession.h"

namespace zanhost {

/// Open connections by network.
using TConnectionCounts = std::map<std::string, std::size_t>;

/// Takes connections and serves each beside the others.
class TListener {
 public:
  /// Listens. Raises boost::system::system_error, for instance when the port is in use. `rules` and `api`
  /// must outlive the listener and its connections.
  TListener(const asio::any_io_executor& executor, const asio::ip::tcp::endpoint& endpoint,
            const TConnectionRules& rules, TApi& api, std::size_t maxPerAddress);

  /// With the port that was taken when none was named.
  asio::ip::tcp::endpoint Endpoint() const { return FAcceptor.local_endpoint(); }
  /// Ends with Stop.
  TTask<> Run();
  void Stop();

 private:
  void Take(asio::ip::tcp::socket socket);

  asio::ip::tcp::acceptor FAcceptor;
  const TConnectionRules& FRules;
  TApi& FApi;
  std::size_t FMaxPerAddress;
  std::shared_ptr<TConnectionCounts> FCounts = std::make_shared<TConnectionCounts>();
};

}  // namespace zanhost
