#include "host/gateway/AnswerWorker.h"

#include <fmt/format.h>

#include <charconv>
#include <exception>
#include <utility>

namespace zanhost {

namespace {

/// A statement that was told to end may take so long until it has.
constexpr std::chrono::seconds kCancelTime{5};
constexpr int kMostEndsInRow = 3;
/// A process that cannot start is not tried again for so long.
constexpr std::chrono::seconds kRest{1};

const TReply kTookTooLong{503, "The answer took too long."};
const TReply kProcessEnded{503, "The process that was to answer has ended. Ask again."};
const TReply kStopped{503, "The server stops."};

/// Takes a number and the blank behind it off the front of `text`; nothing when none is there.
template <typename TNumber>
std::optional<TNumber> TakeNumber(std::string_view& text) {
  TNumber number{};
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
  const auto length = static_cast<std::size_t>(end - text.data());
  if (fault != std::errc() || length == text.size() || text[length] != ' ') return std::nullopt;
  text.remove_prefix(length + 1);
  return number;
}

}  // namespace

void TAnswerWorker::Ask(std::shared_ptr<TAsked> asked) {
  if (FIsClosed) {
    asked->Reply = kStopped;
    return;
  }
  if (!FWorker && Rests()) {
    asked->Reply = kProcessEnded;
    return;
  }
  if (FWaiting.empty()) FSince = TClock::now();
  FWaiting.push_back(std::move(asked));
  if (FWorker)
    Send(*FWaiting.back());
  else
    StartForWaiting();
}

bool TAnswerWorker::Rests() const { return FEndsInRow >= kMostEndsInRow && TClock::now() - FEnded < kRest; }

void TAnswerWorker::StartForWaiting() {
  try {
    Start();
    for (const auto& asked : FWaiting) Send(*asked);
  } catch (const std::exception& fault) {
    LogLine("answer process start", fault.what());
    NoteEnd();
    AnswerAll(kProcessEnded);
  }
}

void TAnswerWorker::NoteEnd() {
  ++FEndsInRow;
  FEnded = TClock::now();
}

void TAnswerWorker::Start() {
  TCommand command{FSettings.Program, {"answer"}, FSettings.Data};
  if (!FSettings.Trace.empty())
    command.Arguments.insert(command.Arguments.end(), {"--trace", FSettings.Trace.string()});
  command.RestrictedData = FSettings.RestrictedData;
  FWorker = TWorker::Start(FExecutor, command, FSettings.EndLimit, shared_from_this());
}

void TAnswerWorker::AnswerFirst(TReply reply) {
  const std::shared_ptr<TAsked> asked = std::move(FWaiting.front());
  FWaiting.pop_front();
  FSince = TClock::now();
  asked->Reply = std::move(reply);
  if (asked->WasCancelled) asked->Reply = kTookTooLong;
  asked->Answered.Notify();
}

void TAnswerWorker::AnswerAll(const TReply& reply) {
  while (!FWaiting.empty()) AnswerFirst(reply);
}

void TAnswerWorker::OnWorkerLine(std::string line) {
  std::string_view rest = line;
  const auto number = TakeNumber<std::int64_t>(rest);
  const auto status = TakeNumber<unsigned>(rest);
  const bool isExpected =
      number && status && !FWaiting.empty() && FWaiting.front()->Question.Number == *number;
  if (!isExpected) return LogLine("answer process line", "not the answer that was expected, dropped");
  FEndsInRow = 0;
  AnswerFirst({*status, std::string(rest)});
}

void TAnswerWorker::OnWorkerComplaint(std::string line) { LogLine("answer process says", line); }

// The question that was being answered may be what ended the process; the others are asked again.
void TAnswerWorker::OnWorkerEnd(int status) {
  FWorker.reset();
  if (FIsClosed) return AnswerAll(kStopped);
  LogLine("answer process end", DescribeStatus(status));
  if (FWaiting.empty()) return;
  AnswerFirst(kProcessEnded);
  NoteEnd();
  // One that never gets to answering is not started for each of them.
  if (FEndsInRow >= kMostEndsInRow) AnswerAll(kProcessEnded);
  if (!FWaiting.empty()) StartForWaiting();
}

void TAnswerWorker::Tick() {
  if (FWaiting.empty() || !FWorker) return;
  const auto took = TClock::now() - FSince;
  TAsked& first = *FWaiting.front();
  if (took > FSettings.Limit && !first.WasCancelled) {
    LogLine("answer process", "a question took too long");
    first.WasCancelled = true;
    FWorker->Send(fmt::format(R"({{"n":{},"do":"cancel"}})", first.Question.Number));
  } else if (took > FSettings.Limit + kCancelTime) {
    FWorker->Kill();
  }
}

void TAnswerWorker::Close() {
  FIsClosed = true;
  if (FWorker) FWorker->Close();
}

void TAnswerWorker::LogLine(std::string_view operation, std::string_view outcome) {
  FLog.Write({{}, {}, std::string(operation), std::string(outcome), {}});
}

}  // namespace zanhost
