#include "host/answers/Places.h"

#include <algorithm>

#include "host/query/DataUrl.h"
#include "host/query/MariaDb/Url.h"

namespace zanhost {

std::vector<std::string> PlacesOf(const std::vector<std::string>& dataUrls) {
  std::vector<std::string> places;
  for (const std::string& url : dataUrls) {
    if (url.empty()) continue;
    places.push_back(std::filesystem::absolute(FolderOfData(url)).lexically_normal().string());
    if (IsMariaDbUrl(url)) places.push_back(ParseMariaDbUrl(url).Server());
  }
  return places;
}

bool NamesOneOf(const std::vector<std::string>& places, std::string_view message) {
  return std::any_of(places.begin(), places.end(), [message](const std::string& place) {
    return message.find(place) != std::string_view::npos;
  });
}

}  // namespace zanhost
