#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace zanhost {

/// A name that can be a file's in a session's folder: no folder of its own, no control character, no leading
/// dot, not too long. Nothing when it cannot.
std::optional<std::filesystem::path> SafeFileName(std::string_view name);

/// A fresh place for an upload inside the session's folder; the file itself is not made. Nothing when the
/// session has uploaded too much already.
std::optional<std::filesystem::path> PlaceForUpload(const std::filesystem::path& sessionFolder,
                                                    const std::filesystem::path& name);

/// Removes what came of an upload that broke off, and gives its place back.
void DropUpload(const std::filesystem::path& place);

/// A file that the session made, by its name alone; nothing when there is none.
std::optional<std::filesystem::path> FindMadeFile(const std::filesystem::path& sessionFolder,
                                                  const std::filesystem::path& name);

}  // namespace zanhost
