#include "host/gateway/StaticFiles.h"

#include <array>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

namespace zanhost {

namespace fs = std::filesystem;

namespace {

constexpr char kPage[] = "index.html";

constexpr char kNotBuilt[] = R"(<!doctype html>
<html lang="en">
<head><meta charset="utf-8"><title>zanrole</title></head>
<body>
<h1>The browser client has not been built</h1>
<p>The server runs. To build the client, run <code>./zan build</code> in the source folder, then load this page
again. A client that was built elsewhere is named with <code>--web DIR</code>.</p>
<h1 lang="zh">浏览器客户端尚未构建</h1>
<p lang="zh">服务器已在运行。请在源代码目录中执行 <code>./zan build</code> 构建客户端,然后重新加载本页。
若客户端在其他目录,请用 <code>--web DIR</code> 指定。</p>
</body>
</html>
)";

std::string_view TypeOf(const fs::path& file) {
  static constexpr std::array<std::pair<std::string_view, std::string_view>, 14> kTypes{{
      {".css", "text/css; charset=utf-8"},
      {".gif", "image/gif"},
      {".html", "text/html; charset=utf-8"},
      {".ico", "image/x-icon"},
      {".jpg", "image/jpeg"},
      {".js", "text/javascript; charset=utf-8"},
      {".json", "application/json"},
      {".map", "application/json"},
      {".png", "image/png"},
      {".svg", "image/svg+xml"},
      {".txt", "text/plain; charset=utf-8"},
      {".webmanifest", "application/manifest+json"},
      {".webp", "image/webp"},
      {".woff2", "font/woff2"},
  }};
  const std::string extension = file.extension().string();
  for (const auto& [known, type] : kTypes)
    if (known == extension) return type;
  return "application/octet-stream";
}

// The names under assets/ carry a digest of what is in the file.
std::string_view CachingOf(std::string_view path) {
  return path.starts_with("/assets/") ? "public, max-age=31536000, immutable" : "no-cache";
}

TAnswer FileAnswer(const fs::path& file, std::string_view path) {
  std::ifstream stream(file, std::ios::binary);
  TAnswer answer;
  answer.Headers = {{"Content-Type", std::string(TypeOf(file))},
                    {"Cache-Control", std::string(CachingOf(path))}};
  answer.Body = std::make_shared<const std::string>(std::istreambuf_iterator<char>(stream),
                                                    std::istreambuf_iterator<char>());
  return answer;
}

TAnswer NotBuiltAnswer() {
  TAnswer answer;
  answer.Status = 503;
  answer.Headers = {{"Content-Type", "text/html; charset=utf-8"}, {"Cache-Control", "no-store"}};
  answer.Body = std::make_shared<const std::string>(kNotBuilt);
  return answer;
}

}  // namespace

TStaticFiles::TStaticFiles(fs::path folder) : FFolder(std::move(folder)) { ReadWhenChanged(); }

void TStaticFiles::ReadWhenChanged() {
  std::error_code missing;
  const fs::file_time_type time = fs::last_write_time(FFolder / kPage, missing);
  if (missing) {
    FFiles.clear();
    FPageTime = {};
  } else if (time != FPageTime) {
    ReadFolder();
    FPageTime = time;
  }
}

void TStaticFiles::ReadFolder() {
  FFiles.clear();
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(FFolder)) {
    // A link could lead out of the folder.
    if (!fs::is_regular_file(entry.symlink_status())) continue;
    const std::string path = "/" + entry.path().lexically_relative(FFolder).generic_string();
    FFiles.emplace(path, FileAnswer(entry.path(), path));
  }
  FFiles["/"] = FFiles["/" + std::string(kPage)];
}

TAnswer TStaticFiles::Answer(std::string_view path) {
  const bool isPage = path == "/" || path == "/index.html";
  if (isPage) ReadWhenChanged();
  const auto found = FFiles.find(path);
  if (found != FFiles.end()) return found->second;
  return isPage ? NotBuiltAnswer() : ProblemAnswer(404, "There is no such page.");
}

}  // namespace zanhost
