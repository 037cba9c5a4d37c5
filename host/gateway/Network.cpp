#include "host/gateway/Network.h"

#include <algorithm>
#include <boost/asio/ip/address.hpp>
#include <boost/asio/ip/network_v6.hpp>

namespace zanhost {

namespace ip = boost::asio::ip;

namespace {

constexpr unsigned short kNetworkBits = 64;

// Without port and brackets.
std::string_view NameOf(std::string_view host) {
  if (host.starts_with('[')) return host.substr(1, host.find(']') - 1);
  return host.substr(0, host.find(':'));
}

}  // namespace

std::string NetworkOf(const std::string& address) {
  boost::system::error_code fault;
  const ip::address known = ip::make_address(address, fault);
  if (fault || !known.is_v6()) return address;
  return ip::make_network_v6(known.to_v6(), kNetworkBits).canonical().to_string();
}

bool NamesThisMachine(std::string_view host) {
  std::string name(NameOf(host));
  std::transform(name.begin(), name.end(), name.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  // Browsers take names below it for this machine without asking anybody.
  if (name == "localhost" || name.ends_with(".localhost")) return true;
  boost::system::error_code fault;
  const ip::address address = ip::make_address(name, fault);
  return !fault && address.is_loopback();
}

}  // namespace zanhost
