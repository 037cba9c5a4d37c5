#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace zanhost {

/// The whole file. Raises std::filesystem::filesystem_error when it cannot be read.
std::string ReadFile(const std::filesystem::path& path);

/// Replaces the file as a whole: a reader sees the old text or the new one, never a part. The file is
/// readable by its owner alone; the folder must exist. Raises std::filesystem::filesystem_error.
void ReplacePrivateFile(const std::filesystem::path& path, std::string_view text);

/// Like ReplacePrivateFile, but leaves a file alone that is there already. False when there was one.
bool CreatePrivateFile(const std::filesystem::path& path, std::string_view text);

/// May anybody but the owner read or change the file? Raises std::filesystem::filesystem_error.
bool IsOpenToOthers(const std::filesystem::path& path);

}  // namespace zanhost
