#pragma once

#include <string>
#include <string_view>

namespace zanhost {

/// Whom limits count as one: an IPv4 address, or the first half of an IPv6 address, since anybody who has one
/// of these has 2^64 of them. What is no address stands for itself.
std::string NetworkOf(const std::string& address);

/// Does a Host header name this very machine: "localhost", or a loopback address, with or without a port?
bool NamesThisMachine(std::string_view host);

}  // namespace zanhost
