#include "host/gateway/Listener.h"

#include <utility>

#include "host/gateway/Network.h"

namespace zanhost {

using asio::ip::tcp;

namespace {

constexpr std::chrono::milliseconds kPauseAfterFault{50};

// One connection in the counts, for as long as it lives.
class TCounted {
 public:
  TCounted(std::shared_ptr<TConnectionCounts> counts, std::string network)
      : FCounts(std::move(counts)), FNetwork(std::move(network)) {
    ++(*FCounts)[FNetwork];
  }
  ~TCounted() {
    const auto entry = FCounts->find(FNetwork);
    if (--entry->second == 0) FCounts->erase(entry);
  }
  TCounted(const TCounted&) = delete;
  TCounted& operator=(const TCounted&) = delete;

 private:
  std::shared_ptr<TConnectionCounts> FCounts;
  std::string FNetwork;
};

// An IPv4 address that came over an IPv6 socket is written as what it is.
std::string AddressText(const asio::ip::address& address) {
  if (address.is_v6() && address.to_v6().is_v4_mapped())
    return asio::ip::make_address_v4(asio::ip::v4_mapped, address.to_v6()).to_string();
  return address.to_string();
}

struct TCountedAs {
  std::shared_ptr<TConnectionCounts> Counts;
  std::string Network;
};

TTask<> ServeCounted(tcp::socket socket, std::string address, TCountedAs as, const TConnectionRules& rules,
                     TApi& api) {
  const TCounted counted(std::move(as.Counts), std::move(as.Network));
  co_await RunHttpSession(TStream(std::move(socket)), std::move(address), rules, api);
}

}  // namespace

TListener::TListener(const asio::any_io_executor& executor, const tcp::endpoint& endpoint,
                     const TConnectionRules& rules, TApi& api, std::size_t maxPerAddress)
    : FAcceptor(executor, endpoint), FRules(rules), FApi(api), FMaxPerAddress(maxPerAddress) {}

TTask<> TListener::Run() {
  asio::steady_timer pause(FAcceptor.get_executor());
  while (FAcceptor.is_open()) {
    auto [fault, socket] = co_await FAcceptor.async_accept(kWithError);
    if (!fault) {
      Take(std::move(socket));
      continue;
    }
    // For instance no descriptor left: others have to end first.
    pause.expires_after(kPauseAfterFault);
    co_await pause.async_wait(kWithError);
  }
}

void TListener::Take(tcp::socket socket) {
  boost::system::error_code gone;
  const tcp::endpoint peer = socket.remote_endpoint(gone);
  if (gone) return;
  std::string address = AddressText(peer.address());
  std::string network = NetworkOf(address);
  const auto open = FCounts->find(network);
  const bool isTooMany = open != FCounts->end() && open->second >= FMaxPerAddress;
  if (isTooMany && address != FRules.ProxyAddress) return;
  socket.set_option(tcp::no_delay(true), gone);
  const auto executor = socket.get_executor();
  Spawn(executor, "connection",
        ServeCounted(std::move(socket), std::move(address), {FCounts, std::move(network)}, FRules, FApi));
}

void TListener::Stop() {
  boost::system::error_code ignored;
  FAcceptor.close(ignored);
}

}  // namespace zanhost
