#pragma once

#include <chrono>
#include <deque>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "host/answers/Question.h"
#include "host/answers/Reply.h"
#include "host/gateway/Worker.h"
#include "host/platform/Log.h"

namespace zanhost {

/// What all answer processes of a gateway have in common.
struct TAnswerSettings {
  std::filesystem::path Program;
  std::string Data;
  /// The data URL of the account for statements that hold texts of callers; empty for none.
  std::string RestrictedData;
  /// Where processes add the statements that they run; empty for none.
  std::filesystem::path Trace;
  std::size_t Processes;
  /// How long one question may take.
  std::chrono::seconds Limit;
  std::chrono::seconds EndLimit;
};

/// A question on its way.
struct TAsked {
  TAsked(const asio::any_io_executor& executor, TQuestion question)
      : Question(std::move(question)), Answered(executor) {}

  TQuestion Question;
  std::optional<TReply> Reply;
  TWakeup Answered;
  /// Its statement was told to end.
  bool WasCancelled = false;
};

/// One answer process and the questions that wait for it, which it answers in turn. It starts with the first
/// question, and anew when it has ended.
class TAnswerWorker final : public TWorkerOwner, public std::enable_shared_from_this<TAnswerWorker> {
 public:
  using TClock = std::chrono::steady_clock;

  /// `settings` and `log` must outlive the object.
  TAnswerWorker(asio::any_io_executor executor, const TAnswerSettings& settings, TLog& log)
      : FExecutor(std::move(executor)), FSettings(settings), FLog(log) {}

  /// The reply comes into `asked`, whatever happens to the process.
  void Ask(std::shared_ptr<TAsked> asked);
  std::size_t Waiting() const { return FWaiting.size(); }

  /// Ends a question that takes too long.
  void Tick();
  /// Ends the process after what waits.
  void Close();
  bool IsGone() const { return !FWorker; }

 private:
  void OnWorkerLine(std::string line) override;
  void OnWorkerComplaint(std::string line) override;
  void OnWorkerEnd(int status) override;

  void Start();
  /// Starts the process and sends it all that waits.
  void StartForWaiting();
  void NoteEnd();
  /// The process could not start, and is not tried again yet.
  bool Rests() const;
  void Send(const TAsked& asked) { FWorker->Send(QuestionLine(asked.Question)); }
  /// Answers the question that has waited longest.
  void AnswerFirst(TReply reply);
  void AnswerAll(const TReply& reply);
  void LogLine(std::string_view operation, std::string_view outcome);

  asio::any_io_executor FExecutor;
  const TAnswerSettings& FSettings;
  TLog& FLog;
  std::shared_ptr<TWorker> FWorker;
  std::deque<std::shared_ptr<TAsked>> FWaiting;
  /// Since when the first of them is being answered.
  TClock::time_point FSince;
  /// How often the process has ended without an answer in between.
  int FEndsInRow = 0;
  TClock::time_point FEnded;
  bool FIsClosed = false;
};

}  // namespace zanhost
