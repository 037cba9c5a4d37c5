#include "host/answers/AnswerProcess.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <mutex>

#include "host/answers/AnswerDesk.h"
#include "host/platform/Utf8.h"
#include "host/worker/EndWithGateway.h"
#include "host/worker/WatchedChannel.h"

namespace zanhost {

namespace {

constexpr std::size_t kLongestLine = std::size_t{1024} * 1024;
constexpr std::chrono::seconds kIdle{60};
/// What a caller is sent in one piece; the gateway takes no line that is much longer.
constexpr std::size_t kLongestBody = std::size_t{16} * 1024 * 1024;

/// A body of one line; JSON never has a line break outside of its texts.
std::string OnOneLine(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
  return text;
}

/// Lines that ask to cancel were heard when they came.
bool AsksToCancel(std::string_view line) { return line.starts_with(R"({"n":)"); }

/// Ends the statement of one question, and of no other one that has taken its place meanwhile.
class TCancelling {
 public:
  TCancelling(TLineChannel& channel, TAnswerDesk& desk) : FChannel(channel), FDesk(desk) {
    FChannel.SetOnCancel([this](std::int64_t number) { Cancel(number); });
  }
  ~TCancelling() { FChannel.SetOnCancel(nullptr); }
  TCancelling(const TCancelling&) = delete;
  TCancelling& operator=(const TCancelling&) = delete;

  /// Which question is being answered; 0 for none.
  void SetAnswering(std::int64_t number) {
    const std::lock_guard lock(FMutex);
    FAnswering = number;
  }

 private:
  void Cancel(std::int64_t number) {
    const std::lock_guard lock(FMutex);
    if (number == FAnswering) FDesk.Interrupt();
  }

  TLineChannel& FChannel;
  TAnswerDesk& FDesk;
  std::mutex FMutex;
  std::int64_t FAnswering = 0;
};

TReply Presentable(TReply reply) {
  if (reply.Body.size() > kLongestBody) return {422, "The answer is too large. Ask for less."};
  return {reply.Status, OnOneLine(ValidUtf8(std::move(reply.Body)))};
}

void AnswerLine(TAnswerDesk& desk, TCancelling& cancelling, TLineChannel& channel, const std::string& line) {
  const TQuestion question = ParseQuestion(line);
  cancelling.SetAnswering(question.Number);
  const TReply reply = Presentable(desk.Answer(question));
  cancelling.SetAnswering(0);
  channel.Write(fmt::format("{} {} {}", question.Number, reply.Status, reply.Body));
}

}  // namespace

int RunAnswers(const TSessionOptions& options, const std::string& restrictedData) {
  EndWithGateway();
  // A reader that has gone is found out at the next reading, not by a signal in the middle of an answer.
  std::signal(SIGPIPE, SIG_IGN);
  TWatchedChannel channel(STDIN_FILENO, STDOUT_FILENO, kLongestLine);
  return RunAnswers(options, restrictedData, channel);
}

int RunAnswers(const TSessionOptions& options, const std::string& restrictedData, TLineChannel& channel) {
  TAnswerDesk desk(options, restrictedData);
  TCancelling cancelling(channel, desk);
  std::string line;
  for (;;) {
    if (!channel.Wait(kIdle)) desk.ReleaseIdle();
    const TReading reading = channel.Read(line, /*wait*/ true);
    if (reading == TReading::Closed) return 0;
    if (reading == TReading::Line && !AsksToCancel(line)) AnswerLine(desk, cancelling, channel, line);
  }
}

}  // namespace zanhost
