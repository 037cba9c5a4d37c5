#include "host/gateway/ListenRules.h"

#include <fmt/format.h>

#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>

namespace zanhost {

using asio::ip::tcp;

namespace {

std::optional<asio::ip::address> ReadAddress(std::string_view text) {
  const bool isBracketed = text.size() > 2 && text.front() == '[' && text.back() == ']';
  if (isBracketed) text = text.substr(1, text.size() - 2);
  boost::system::error_code fault;
  const asio::ip::address address = asio::ip::make_address(text, fault);
  if (fault || address.is_v6() != isBracketed) return std::nullopt;
  return address;
}

std::optional<std::uint16_t> ReadPort(std::string_view text) {
  std::uint16_t port = 0;
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), port);
  if (text.empty() || fault != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return port;
}

}  // namespace

tcp::endpoint ListenEndpoint(const TServeOptions& options) {
  const std::string_view text = options.Listen;
  const auto colon = text.rfind(':');
  const auto address = colon == std::string_view::npos ? std::nullopt : ReadAddress(text.substr(0, colon));
  const auto port = colon == std::string_view::npos ? std::nullopt : ReadPort(text.substr(colon + 1));
  if (!address || !port)
    throw EBadOption(
        fmt::format("'{}' is no address to listen on. Write --listen ADDR:PORT, for instance 127.0.0.1:8700 "
                    "or [::1]:8700.",
                    text));
  if (!address->is_loopback() && options.TlsCertificate.empty() && options.BehindProxy.empty())
    throw EBadOption(fmt::format(
        "{} can be reached from other machines, and passwords must not cross a network in plain text. Name a "
        "certificate (--tls-cert FILE --tls-key FILE), or the reverse proxy that speaks TLS (--behind-proxy "
        "ADDR).",
        text));
  return {*address, *port};
}

std::string ProxyAddress(const TServeOptions& options) {
  if (options.BehindProxy.empty()) return {};
  boost::system::error_code fault;
  const asio::ip::address address = asio::ip::make_address(options.BehindProxy, fault);
  if (fault)
    throw EBadOption(fmt::format("--behind-proxy takes an IP address, not '{}'.", options.BehindProxy));
  return address.to_string();
}

std::shared_ptr<asio::ssl::context> ReadTlsFiles(const TServeOptions& options) {
  if (options.TlsCertificate.empty() && options.TlsKey.empty()) return nullptr;
  if (options.TlsCertificate.empty() || options.TlsKey.empty())
    throw EBadOption("TLS takes both --tls-cert and --tls-key.");
  auto context = std::make_shared<asio::ssl::context>(asio::ssl::context::tls_server);
  context->set_options(asio::ssl::context::default_workarounds | asio::ssl::context::no_tlsv1 |
                       asio::ssl::context::no_tlsv1_1);
  boost::system::error_code fault;
  context->use_certificate_chain_file(options.TlsCertificate.string(), fault);
  if (fault)
    throw EBadOption(fmt::format("The certificate '{}' cannot be read: {}.", options.TlsCertificate.string(),
                                 fault.message()));
  context->use_private_key_file(options.TlsKey.string(), asio::ssl::context::pem, fault);
  if (fault)
    throw EBadOption(fmt::format("The key '{}' cannot be read or belongs to another certificate: {}.",
                                 options.TlsKey.string(), fault.message()));
  return context;
}

}  // namespace zanhost
