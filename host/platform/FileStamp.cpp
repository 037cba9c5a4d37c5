#include "host/platform/FileStamp.h"

#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <system_error>

namespace zanhost {

namespace {

// Several of the longest ticks, 10 ms. Kernels before 6.13 know no finer times of files.
constexpr std::chrono::milliseconds kSettlingTime{100};

bool Same(const ::timespec& a, const ::timespec& b) { return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec; }

std::chrono::nanoseconds SinceEpoch(const ::timespec& time) {
  return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

}  // namespace

bool TFileStamp::operator==(const TFileStamp& other) const {
  return Device == other.Device && Node == other.Node && Size == other.Size && Same(Written, other.Written) &&
         Same(Changed, other.Changed);
}

std::optional<TFileStamp> StampOf(const std::filesystem::path& file) {
  struct ::stat status {};
  if (::stat(file.c_str(), &status) == 0)
    return TFileStamp{status.st_dev, status.st_ino, status.st_size, status.st_mtim, status.st_ctim};
  if (errno == ENOENT) return std::nullopt;
  throw std::filesystem::filesystem_error("cannot be read", file,
                                          std::error_code(errno, std::generic_category()));
}

bool IsSettled(const TFileStamp& stamp) {
  // The system sets this time itself; nobody can date it back.
  return std::chrono::system_clock::now().time_since_epoch() - SinceEpoch(stamp.Changed) > kSettlingTime;
}

}  // namespace zanhost
