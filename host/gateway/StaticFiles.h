#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

#include "host/gateway/Answer.h"

namespace zanhost {

/// The built client, read into memory. A request's path is only ever looked up among the files that were
/// found in the folder; it never reaches the file system. A client that is built anew is taken at the next
/// request for its page.
class TStaticFiles {
 public:
  explicit TStaticFiles(std::filesystem::path folder);

  /// Answers a GET for a path: the file, the page at "/", a page that says what to do when the client is not
  /// built, or 404.
  TAnswer Answer(std::string_view path);

 private:
  void ReadWhenChanged();
  void ReadFolder();

  std::filesystem::path FFolder;
  std::filesystem::file_time_type FPageTime{};
  std::map<std::string, TAnswer, std::less<>> FFiles;
};

}  // namespace zanhost
