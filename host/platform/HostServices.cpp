#include "host/platform/HostServices.h"

#include "host/platform/Base64.h"
#include "host/platform/JsonObject.h"

namespace zanhost {

std::string THostServicesImpl::StrToMIME64(std::string_view bytes) { return EncodeBase64(bytes); }

std::string THostServicesImpl::MIME64ToStr(std::string_view text) { return DecodeBase64(text); }

std::optional<TJsonMembers> THostServicesImpl::ParseJsonObject(std::string_view text) {
  return zanhost::ParseJsonObject(text);
}

}  // namespace zanhost
