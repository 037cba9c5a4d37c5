#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

namespace zanhost {

/// The environment variable that names the data for statements with texts of callers, as kDataVariable names
/// the data.
inline constexpr char kRestrictedDataVariable[] = "ZANHOST_RESTRICTED_DATA";

/// What `zanhost serve` is told. A field's comment names its command line option.
struct TServeOptions {
  /// --data: where the tables are, for instance `sqlite:FOLDER`.
  std::string Data;
  /// The folder of the installation, which --data names: its key and its log are there.
  std::filesystem::path Folder;
  /// --trace: every process adds the statements that it runs. Empty for none.
  std::filesystem::path Trace;
  /// --listen ADDR:PORT, `[ADDR]:PORT` for IPv6. Port 0 takes any free one.
  std::string Listen = "127.0.0.1:8700";
  /// --tls-cert and --tls-key: PEM files, both or none.
  std::filesystem::path TlsCertificate;
  std::filesystem::path TlsKey;
  /// --behind-proxy ADDR: the reverse proxy whose X-Forwarded-For and X-Forwarded-Proto are believed.
  std::string BehindProxy;
  /// --web DIR: the built client. Empty looks beside the program, then in the source tree.
  std::filesystem::path Web;
  /// --idle: a login without any event or request for so long ends.
  std::chrono::seconds Idle{30 * 60};
  /// --stuck: a worker that owes an answer and says nothing for so long is killed.
  std::chrono::seconds Stuck{120};
  /// --end-limit: how long a worker may take to end after it was told to.
  std::chrono::seconds EndLimit{10};
  /// --max-sessions: logins at the same time.
  std::size_t MaxSessions = 500;
  /// --max-connections: open connections of one address. The named proxy is exempt.
  std::size_t MaxConnectionsPerAddress = 64;
  /// --max-upload: bytes of one uploaded file.
  std::uint64_t MaxUpload = 64ULL * 1024 * 1024;
  /// --answer-processes: how many answer the questions of other services at the same time.
  std::size_t AnswerProcesses = 2;
  /// --answer-limit: how long one of these questions may take.
  std::chrono::seconds AnswerLimit{30};
  /// --restricted-data: the data as an account sees it that may only read, and no passwords. For functions
  /// that put texts of the caller into statements; empty where they are not answered.
  std::string RestrictedData;
  /// --worker-program: started instead of this program's own `worker` command, with the same arguments. For
  /// the tests of the gateway.
  std::filesystem::path WorkerProgram;
};

/// The program that runs now, so that a child is of the same build.
std::filesystem::path OwnProgram();

/// `chosen`, or when that is empty the first folder with an index.html among: `web` beside the program,
/// `web/dist` of the source tree that the program was built in. The first of them when there is none.
std::filesystem::path ClientFolder(const std::filesystem::path& chosen);

}  // namespace zanhost
