#include "host/answers/AnswerProcess.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>

#include "host/answers/AnswerDesk.h"
#include "host/worker/EndWithGateway.h"
#include "host/worker/WatchedChannel.h"

namespace zanhost {

namespace {

constexpr std::size_t kLongestLine = std::size_t{1024} * 1024;
constexpr std::chrono::seconds kIdle{60};
constexpr std::string_view kCancelLine = R"({"do":"cancel"})";

/// A body of one line; JSON never has a line break outside of its texts.
std::string OnOneLine(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
  return text;
}

void AnswerLine(TAnswerDesk& desk, TLineChannel& channel, const std::string& line) {
  if (line == kCancelLine) return;
  const TQuestion question = ParseQuestion(line);
  const TReply reply = desk.Answer(question);
  channel.Write(fmt::format("{} {} {}", question.Number, reply.Status, OnOneLine(reply.Body)));
}

/// Ends the cancelling of statements before the desk does.
class TCancelling {
 public:
  TCancelling(TLineChannel& channel, TAnswerDesk& desk) : FChannel(channel) {
    FChannel.SetOnCancel([&desk] { desk.Interrupt(); });
  }
  ~TCancelling() { FChannel.SetOnCancel(nullptr); }
  TCancelling(const TCancelling&) = delete;
  TCancelling& operator=(const TCancelling&) = delete;

 private:
  TLineChannel& FChannel;
};

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
  const TCancelling cancelling(channel, desk);
  std::string line;
  for (;;) {
    if (!channel.Wait(kIdle)) desk.ReleaseIdle();
    const TReading reading = channel.Read(line, /*wait*/ true);
    if (reading == TReading::Closed) return 0;
    if (reading == TReading::Line) AnswerLine(desk, channel, line);
  }
}

}  // namespace zanhost
