#include "host/gateway/TemporaryFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <string>
#include <system_error>

namespace zanhost {

namespace fs = std::filesystem;

namespace {

constexpr char kPrefix[] = "zanrole-files-";
constexpr char kLockName[] = ".lock";
constexpr mode_t kOwnerOnly = 0600;
// A gateway that starts has made its folder, but may not have locked it yet.
constexpr std::chrono::minutes kYoung{1};

[[noreturn]] void Fail() {
  throw std::system_error(errno, std::generic_category(), "No folder for the sessions' files can be made");
}

// Takes the lock of a folder; negative when it has none or a living gateway holds it.
int TakeLock(const fs::path& folder, int flags) {
  const int lock = ::open((folder / kLockName).c_str(), flags | O_RDWR | O_CLOEXEC | O_NOFOLLOW, kOwnerOnly);
  if (lock < 0 || ::flock(lock, LOCK_EX | LOCK_NB) == 0) return lock;
  ::close(lock);
  return -1;
}

void RemoveLeftBehind(const fs::path& folder) {
  std::error_code ignored;
  const auto written = fs::last_write_time(folder, ignored);
  if (ignored || fs::file_time_type::clock::now() - written < kYoung) return;
  const int lock = TakeLock(folder, 0);
  if (lock < 0) return;
  fs::remove_all(folder, ignored);
  ::close(lock);
}

void RemoveAllLeftBehind(const fs::path& parent) {
  std::error_code ignored;
  for (const fs::directory_entry& entry : fs::directory_iterator(parent, ignored))
    if (entry.path().filename().string().starts_with(kPrefix)) RemoveLeftBehind(entry.path());
}

}  // namespace

TTemporaryFolder::TTemporaryFolder() {
  const fs::path parent = fs::temp_directory_path();
  RemoveAllLeftBehind(parent);
  std::string pattern = (parent / kPrefix).string() + "XXXXXX";
  if (::mkdtemp(pattern.data()) == nullptr) Fail();
  FPath = pattern;
  FLock = TakeLock(FPath, O_CREAT);
  if (FLock < 0) Fail();
}

TTemporaryFolder::~TTemporaryFolder() {
  std::error_code leftBehind;
  fs::remove_all(FPath, leftBehind);
  ::close(FLock);
}

}  // namespace zanhost
