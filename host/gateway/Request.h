#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace zanhost {

/// The head of an HTTP request, taken apart.
struct TRequest {
  std::string Method;
  /// Without the query; still percent-encoded.
  std::string Path;
  /// Decoded; of a name that comes twice the first value.
  std::map<std::string, std::string, std::less<>> Query;
  /// By name in small letters; of a name that comes twice the values joined by commas.
  std::map<std::string, std::string, std::less<>> Headers;
  /// Who asks, as the proxy tells when there is a trusted one.
  std::string Address;
  /// The person's browser speaks TLS, to this gateway or to the trusted proxy.
  bool IsSecure = false;
  std::string Body;

  /// Empty when it is missing.
  std::string_view Header(std::string_view name) const;
  std::string_view QueryValue(std::string_view name) const;
};

/// Fills Path and Query from a request's target.
void ReadTarget(TRequest& request, std::string_view target);

/// Fills Address and IsSecure from what a trusted proxy says of the person behind it: the last address that
/// it noted, since anybody may write the ones before.
void BelieveProxy(TRequest& request);

/// Decodes %XX; nothing for a broken escape.
std::optional<std::string> PercentDecoded(std::string_view text);
/// Encodes everything but letters, digits, '-', '_' and '.'.
std::string PercentEncoded(std::string_view text);

/// The value of a cookie, empty when the request has none.
std::string_view CookieOf(const TRequest& request, std::string_view name);

/// Does the request come from a page of this very server? A request without an Origin does not: every browser
/// sends one with a POST and with a WebSocket.
bool IsSameOrigin(const TRequest& request);

}  // namespace zanhost
