#include "host/platform/Files.h"

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <iterator>
#include <system_error>

namespace zanhost {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void RaiseLastError(const std::string& what, const fs::path& path) {
  throw fs::filesystem_error(what, path, std::error_code(errno, std::generic_category()));
}

// A complete file under a name of its own, so that it can take its final name in one step.
class TCompleteFile {
 public:
  TCompleteFile(const fs::path& target, std::string_view text) : FPath(target.string() + ".XXXXXX") {
    // Made new, with a name that nobody has, and readable by the owner alone.
    FHandle = ::mkostemp(FPath.data(), O_CLOEXEC);
    if (FHandle < 0) RaiseLastError("cannot be written", target);
    Write(text);
  }
  ~TCompleteFile() {
    ::close(FHandle);
    ::unlink(FPath.c_str());
  }
  TCompleteFile(const TCompleteFile&) = delete;
  TCompleteFile& operator=(const TCompleteFile&) = delete;

  const char* Path() const { return FPath.c_str(); }

 private:
  void Write(std::string_view text) {
    while (!text.empty()) {
      const ::ssize_t written = ::write(FHandle, text.data(), text.size());
      if (written < 0 && errno != EINTR) RaiseLastError("cannot be written", FPath);
      if (written > 0) text.remove_prefix(static_cast<std::size_t>(written));
    }
    if (::fsync(FHandle) != 0) RaiseLastError("cannot be written", FPath);
  }

  std::string FPath;
  int FHandle = -1;
};

}  // namespace

std::string ReadFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) RaiseLastError("cannot be read", path);
  std::string text{std::istreambuf_iterator<char>(file), {}};
  if (file.bad()) RaiseLastError("cannot be read", path);
  return text;
}

void ReplacePrivateFile(const fs::path& path, std::string_view text) {
  const TCompleteFile complete(path, text);
  if (::rename(complete.Path(), path.c_str()) != 0) RaiseLastError("cannot be written", path);
}

bool CreatePrivateFile(const fs::path& path, std::string_view text) {
  const TCompleteFile complete(path, text);
  if (::link(complete.Path(), path.c_str()) == 0) return true;
  if (errno != EEXIST) RaiseLastError("cannot be written", path);
  return false;
}

bool IsOpenToOthers(const fs::path& path) {
  constexpr auto others = fs::perms::group_all | fs::perms::others_all;
  return (fs::status(path).permissions() & others) != fs::perms::none;
}

}  // namespace zanhost
