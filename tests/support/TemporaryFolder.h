#pragma once

#include <stdlib.h>

#include <filesystem>
#include <string>

namespace zantest {

/// A fresh folder that goes with the object.
class TTemporaryFolder {
 public:
  explicit TTemporaryFolder(const std::filesystem::path& parent = std::filesystem::temp_directory_path()) {
    std::string pattern = (parent / "zanXXXXXX").string();
    FPath = ::mkdtemp(pattern.data());
  }
  ~TTemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(FPath, ignored);
  }
  TTemporaryFolder(const TTemporaryFolder&) = delete;
  TTemporaryFolder& operator=(const TTemporaryFolder&) = delete;

  const std::filesystem::path& Path() const { return FPath; }
  std::filesystem::path operator/(std::string_view name) const { return FPath / name; }

 private:
  std::filesystem::path FPath;
};

}  // namespace zantest
