#include "host/gateway/Options.h"

#include <array>
#include <system_error>

namespace zanhost {

namespace fs = std::filesystem;

fs::path OwnProgram() { return fs::read_symlink("/proc/self/exe"); }

fs::path ClientFolder(const fs::path& chosen) {
  if (!chosen.empty()) return chosen;
  const fs::path folder = OwnProgram().parent_path();
  const std::array candidates{folder / "web", folder.parent_path().parent_path() / "web" / "dist"};
  for (const fs::path& candidate : candidates) {
    std::error_code ignored;
    if (fs::is_regular_file(candidate / "index.html", ignored)) return candidate;
  }
  return candidates.front();
}

}  // namespace zanhost
