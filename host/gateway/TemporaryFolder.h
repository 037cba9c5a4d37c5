#pragma once

#include <filesystem>

namespace zanhost {

/// A folder for the sessions' files that only this user can enter, removed with the object. A lock in it
/// tells that its gateway lives; one that a killed gateway left behind is removed by the next that starts.
class TTemporaryFolder {
 public:
  /// Raises std::system_error.
  TTemporaryFolder();
  ~TTemporaryFolder();
  TTemporaryFolder(const TTemporaryFolder&) = delete;
  TTemporaryFolder& operator=(const TTemporaryFolder&) = delete;

  const std::filesystem::path& Path() const { return FPath; }

 private:
  std::filesystem::path FPath;
  int FLock = -1;
};

}  // namespace zanhost
