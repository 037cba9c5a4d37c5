#pragma once

#include <sys/types.h>
#include <time.h>

#include <filesystem>
#include <optional>

namespace zanhost {

/// Tells whether a file is still the one that was read: it differs once the file was replaced, written, or
/// given to other owners.
struct TFileStamp {
  ::dev_t Device;
  ::ino_t Node;
  ::off_t Size;
  ::timespec Written;
  ::timespec Changed;

  bool operator==(const TFileStamp& other) const;
};

/// Nothing when there is no such file. Raises std::filesystem::filesystem_error.
std::optional<TFileStamp> StampOf(const std::filesystem::path& file);

/// False for a file that was written so recently that the next writing may give it the same stamp: clocks of
/// file systems go on in ticks of some milliseconds.
bool IsSettled(const TFileStamp& stamp);

}  // namespace zanhost
