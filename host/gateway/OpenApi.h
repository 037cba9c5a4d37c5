#pragma once

#include <string_view>

namespace zanhost {

/// The OpenAPI 3.1 document of the interface for services, openapi.json as it stood at build time. It lives
/// as long as the program.
std::string_view OpenApiDocument();

}  // namespace zanhost
