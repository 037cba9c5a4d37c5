#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zanhost {

/// How messages of the engines name where data is: the folder of the embedded database, the address or socket
/// of a MariaDB server. A message that names one tells of a trouble for the operator, and callers are not
/// told it. Empty URLs are passed over.
std::vector<std::string> PlacesOf(const std::vector<std::string>& dataUrls);

bool NamesOneOf(const std::vector<std::string>& places, std::string_view message);

}  // namespace zanhost
