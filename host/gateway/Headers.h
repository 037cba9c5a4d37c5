#pragma once

#include <array>
#include <string>
#include <string_view>
#include <utility>

namespace zanhost {

using THeader = std::pair<std::string_view, std::string_view>;

/// What every response carries, whatever it answers.
///
/// The policy lets a page load from this server alone. Scripts and styles inside a page are refused; what
/// a script of ours sets on an element is no such style. The referrer policy is not `no-referrer`, with which
/// browsers may send `Origin: null`.
inline constexpr std::array kSecurityHeaders{
    THeader{"Content-Security-Policy",
            "default-src 'none'; script-src 'self'; style-src 'self'; "
            "img-src 'self' data:; font-src 'self' data:; connect-src 'self'; "
            "form-action 'self'; base-uri 'none'; frame-ancestors 'none'"},
    THeader{"X-Content-Type-Options", "nosniff"},
    THeader{"X-Frame-Options", "DENY"},
    THeader{"Referrer-Policy", "same-origin"},
    THeader{"Cross-Origin-Opener-Policy", "same-origin"},
    THeader{"Cross-Origin-Resource-Policy", "same-origin"},
    THeader{"Permissions-Policy", "camera=(), geolocation=(), microphone=()"},
};

/// The name of the session's cookie. Under TLS the prefix makes browsers refuse one that another host or a
/// plain connection has set.
std::string_view SessionCookieName(bool isSecure);
/// The Set-Cookie value that gives a session's secret to the browser, or takes it away when it is empty.
std::string SessionCookie(std::string_view secret, bool isSecure);

}  // namespace zanhost
