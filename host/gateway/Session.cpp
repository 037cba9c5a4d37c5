#include "host/gateway/Session.h"

#include <exception>
#include <system_error>
#include <utility>

namespace zanhost {

TLoginSession::TLoginSession(asio::any_io_executor executor, const TSessionSettings& settings, TLog& log,
                             std::string id, TOperator who, std::filesystem::path files)
    : FExecutor(std::move(executor)),
      FSettings(settings),
      FLog(log),
      FId(std::move(id)),
      FOperator(std::move(who)),
      FFiles(std::move(files)) {
  std::filesystem::create_directory(FFiles);
}

TLoginSession::~TLoginSession() {
  std::error_code leftBehind;
  std::filesystem::remove_all(FFiles, leftBehind);
}

void TLoginSession::Attach(std::shared_ptr<TPeer> peer) {
  if (FHasEnded) return peer->Finish(ByeLine("ended", {}));
  if (FPeer) FPeer->Finish(ByeLine("taken", {}));
  FPeer = std::move(peer);
  Touch();
  try {
    if (!FWorker) StartWorker();
    AskForSnapshot();
  } catch (const std::exception& fault) {
    LogLine("worker start", fault.what());
    End("crashed", "The session's process cannot be started.");
  }
}

TCommand TLoginSession::WorkerCommand() const {
  // In one word with its option, a login that begins with a dash is no option of its own.
  TCommand command{
      FSettings.WorkerProgram,
      {"worker", "--user=" + FOperator.Login, "--files", FFiles.string(), "--language", FOperator.Language},
      FSettings.Data};
  if (!FSettings.Trace.empty())
    command.Arguments.insert(command.Arguments.end(), {"--trace", FSettings.Trace.string()});
  return command;
}

void TLoginSession::StartWorker() {
  FWorker = TWorker::Start(FExecutor, WorkerCommand(), FSettings.EndLimit, shared_from_this());
  NoteQuestion();
  FAwaitsReady = true;
}

void TLoginSession::AskForSnapshot() {
  NoteQuestion();
  FAwaitsSnapshot = true;
  FLastEvent = FAcknowledged = 0;
  FWorker->Send(std::string(kAttachLine));
}

void TLoginSession::Detach(const TPeer& peer) {
  if (FPeer.get() != &peer) return;
  FPeer.reset();
  if (!FHasEnded) FWorker->Send(std::string(kDetachLine));
}

void TLoginSession::Refresh(const TPeer& peer) {
  if (FPeer.get() == &peer && !FHasEnded) AskForSnapshot();
}

void TLoginSession::OnMessage(const TPeer& peer, std::string_view message) {
  if (FPeer.get() != &peer || FHasEnded) return;
  Touch();
  const TClientEvent event = CheckClientEvent(message);
  if (event.Refusal.empty())
    SendEvent(event);
  else
    FPeer->Deliver(event.Refusal);
}

void TLoginSession::SendEvent(const TClientEvent& event) {
  if (event.Number) {
    NoteQuestion();
    FLastEvent = *event.Number;
  }
  // A reload starts in the language that was chosen last.
  if (event.Language == "zh" || event.Language == "en") FOperator.Language = event.Language;
  FWorker->Send(event.Line);
}

TTask<> TLoginSession::Uncongested() {
  const std::shared_ptr<TWorker> worker = FWorker;
  if (worker) co_await worker->Uncongested();
}

void TLoginSession::OnUploaded(std::int64_t window, const std::filesystem::path& file) {
  Touch();
  if (FWorker && !FHasEnded) FWorker->Send(UploadedLine(window, file.string()));
}

void TLoginSession::NoteQuestion() {
  if (!OwesAnswer()) FHeard = TClock::now();
}

void TLoginSession::NoteAnswer(const TLineHead& head) {
  FHeard = TClock::now();
  if (head.IsReady) FAwaitsReady = false;
  if (FAwaitsSnapshot) {
    FAwaitsSnapshot = !(head.IsSnapshot && head.Seq == 1);
    return;
  }
  if (head.Ack) FAcknowledged = *head.Ack;
  if (head.Event == FLastEvent) FAcknowledged = FLastEvent;
}

void TLoginSession::OnWorkerLine(std::string line) {
  if (FHasEnded) return;
  const std::optional<TLineHead> head = ReadLineHead(line);
  if (!head) return LogLine("worker line", "not a JSON object, dropped");
  NoteAnswer(*head);
  if (head->Failed) {
    LogLine("worker start", *head->Failed);
    return End("crashed", *head->Failed);
  }
  if (FPeer && !head->IsReady && !FAwaitsSnapshot) FPeer->Deliver(std::move(line));
}

void TLoginSession::OnWorkerComplaint(std::string line) { LogLine("worker says", line); }

void TLoginSession::OnWorkerEnd(int status) {
  LogLine("worker end", DescribeStatus(status));
  FWorker.reset();
  End(status == 0 ? "ended" : "crashed");
}

void TLoginSession::Tick() {
  if (FHasEnded) return;
  const TClock::time_point now = TClock::now();
  const bool isBusy = FWorker && OwesAnswer();
  if (isBusy && now - FHeard > FSettings.Stuck) {
    Kill();
    End("stuck");
  } else if (!isBusy && now - FTouched > FSettings.Idle) {
    End("idle");
  }
}

void TLoginSession::End(std::string_view reason, std::string_view detail) {
  if (FHasEnded) return;
  FHasEnded = true;
  LogLine("logout", reason);
  if (FPeer) FPeer->Finish(ByeLine(reason, detail));
  FPeer.reset();
  if (FWorker) FWorker->Close();
}

void TLoginSession::Kill() {
  if (FWorker) FWorker->Kill();
}

void TLoginSession::LogLine(std::string_view operation, std::string_view outcome) {
  FLog.Write({FId, FOperator.Login, std::string(operation), std::string(outcome), {}});
}

}  // namespace zanhost
