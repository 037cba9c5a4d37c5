#include "host/gateway/SessionFiles.h"

#include <algorithm>
#include <string>
#include <system_error>

namespace zanhost {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kLongestName = 200;
constexpr int kMostUploads = 100;
constexpr char kUploads[] = "uploads";

bool IsUnsafe(char c) { return static_cast<unsigned char>(c) < ' ' || c == '/' || c == '\\' || c == '\x7f'; }

}  // namespace

std::optional<fs::path> SafeFileName(std::string_view name) {
  if (name.empty() || name.size() > kLongestName || name.front() == '.') return std::nullopt;
  if (std::any_of(name.begin(), name.end(), IsUnsafe)) return std::nullopt;
  return fs::path(name);
}

std::optional<fs::path> PlaceForUpload(const fs::path& sessionFolder, const fs::path& name) {
  const fs::path uploads = sessionFolder / kUploads;
  fs::create_directories(uploads);
  for (int number = 1; number <= kMostUploads; ++number) {
    const fs::path place = uploads / std::to_string(number);
    if (fs::create_directory(place)) return place / name;
  }
  return std::nullopt;
}

void DropUpload(const fs::path& place) {
  std::error_code leftBehind;
  fs::remove_all(place.parent_path(), leftBehind);
}

std::optional<fs::path> FindMadeFile(const fs::path& sessionFolder, const fs::path& name) {
  const fs::path file = sessionFolder / name;
  std::error_code missing;
  if (!fs::is_regular_file(fs::symlink_status(file, missing))) return std::nullopt;
  return file;
}

}  // namespace zanhost
