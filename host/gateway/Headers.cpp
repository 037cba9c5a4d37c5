#include "host/gateway/Headers.h"

#include <fmt/format.h>

namespace zanhost {

std::string_view SessionCookieName(bool isSecure) { return isSecure ? "__Host-zanrole" : "zanrole"; }

std::string SessionCookie(std::string_view secret, bool isSecure) {
  return fmt::format("{}={}; Path=/; HttpOnly; SameSite=Strict{}{}", SessionCookieName(isSecure), secret,
                     isSecure ? "; Secure" : "", secret.empty() ? "; Max-Age=0" : "");
}

}  // namespace zanhost
