#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "host/gateway/ProtocolLines.h"
#include "host/gateway/Worker.h"
#include "host/platform/Log.h"

namespace zanhost {

/// One open page of the client. Called on the I/O thread; never answers by calling back at once.
class TPeer {
 public:
  virtual ~TPeer() = default;
  /// Queues a line. A peer that is too slow drops what it has queued and later asks the session to Refresh.
  virtual void Deliver(std::string line) = 0;
  /// The connection's last line; then it is closed.
  virtual void Finish(std::string line) = 0;
};

/// Who is logged in.
struct TOperator {
  std::string Login;
  std::string Name;
  /// "zh" or "en".
  std::string Language;
};

/// What all sessions of a gateway have in common.
struct TSessionSettings {
  std::filesystem::path WorkerProgram;
  std::string Data;
  /// Where workers add the statements that they run; empty for none.
  std::filesystem::path Trace;
  std::chrono::seconds Idle;
  std::chrono::seconds Stuck;
  std::chrono::seconds EndLimit;
};

/// One login: its worker, the page that looks at it, and its end. The worker starts with the first page and
/// outlives pages: a reload comes back to the same dialog. Ended by End, after which only the worker's end is
/// awaited.
class TLoginSession final : public TWorkerOwner, public std::enable_shared_from_this<TLoginSession> {
 public:
  using TClock = std::chrono::steady_clock;

  /// `settings` and `log` must outlive the session. `files` is the session's own folder, which is made here
  /// and removed with the worker.
  TLoginSession(asio::any_io_executor executor, const TSessionSettings& settings, TLog& log, std::string id,
                TOperator who, std::filesystem::path files);
  ~TLoginSession() override;

  /// Tells sessions apart in the log; it opens nothing.
  const std::string& Id() const { return FId; }
  const TOperator& Operator() const { return FOperator; }
  const std::filesystem::path& Files() const { return FFiles; }

  /// This page looks at the session from now on, with a snapshot; another one is told that it was taken over.
  void Attach(std::shared_ptr<TPeer> peer);
  void Detach(const TPeer& peer);
  /// Asks for a snapshot, because this page lost lines.
  void Refresh(const TPeer& peer);
  /// A message of a page. Only the page that looks is heard.
  void OnMessage(const TPeer& peer, std::string_view message);
  /// Returns when the worker's input can take more.
  TTask<> Uncongested();
  /// A file landed in the session's folder that the open dialog `window` asked for.
  void OnUploaded(std::int64_t window, const std::filesystem::path& file);

  /// A person was heard of.
  void Touch() { FTouched = TClock::now(); }
  /// Ends a session that is idle or whose worker is stuck.
  void Tick();
  /// Tells the page `{"bye":reason}`, with `detail` for the person, and ends the worker. The first call
  /// counts.
  void End(std::string_view reason, std::string_view detail = {});
  bool HasEnded() const { return FHasEnded; }
  /// Ended, and no worker is left.
  bool IsGone() const { return FHasEnded && !FWorker; }
  /// Ends the worker at once, when it did not end by itself.
  void Kill();

 private:
  void OnWorkerLine(std::string line) override;
  void OnWorkerComplaint(std::string line) override;
  void OnWorkerEnd(int status) override;

  TCommand WorkerCommand() const;
  void StartWorker();
  void AskForSnapshot();
  void SendEvent(const TClientEvent& event);
  void NoteAnswer(const TLineHead& head);
  bool OwesAnswer() const { return FAwaitsReady || FAwaitsSnapshot || FAcknowledged < FLastEvent; }
  void NoteQuestion();
  void LogLine(std::string_view operation, std::string_view outcome);

  asio::any_io_executor FExecutor;
  const TSessionSettings& FSettings;
  TLog& FLog;
  std::string FId;
  TOperator FOperator;
  std::filesystem::path FFiles;
  std::shared_ptr<TWorker> FWorker;
  std::shared_ptr<TPeer> FPeer;
  bool FHasEnded = false;
  bool FAwaitsReady = false;
  // Lines of the numbering before the last attach are not for the page that attached.
  bool FAwaitsSnapshot = false;
  std::int64_t FLastEvent = 0;
  std::int64_t FAcknowledged = 0;
  TClock::time_point FTouched = TClock::now();
  // When the worker last spoke, or was asked after it owed nothing.
  TClock::time_point FHeard = TClock::now();
};

}  // namespace zanhost
