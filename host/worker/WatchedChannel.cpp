#include "host/worker/WatchedChannel.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <optional>
#include <system_error>

#include "host/worker/Event.h"

namespace zanhost {

namespace {

/// Lines beyond these wait in the channel itself.
constexpr std::size_t kMostLinesAhead = 1000;

/// The number of a line that asks to cancel; nothing for all others.
std::optional<std::int64_t> CancelIn(const std::string& line) {
  // Most lines are told apart without being parsed twice.
  if (line.find("\"cancel\"") == std::string::npos) return std::nullopt;
  try {
    const TEvent event = ParseEvent(line);
    return event.Do == TDo::Cancel ? std::optional(event.Number) : std::nullopt;
  } catch (const EProtocolError&) {
    return std::nullopt;
  }
}

}  // namespace

TWatchedChannel::TWatchedChannel(int input, int output, std::size_t maxLine)
    : FIn(input, -1, maxLine), FOut(-1, output, maxLine), FInput(input) {
  std::array<int, 2> stop{};
  if (pipe2(stop.data(), O_CLOEXEC) != 0)
    throw std::system_error(errno, std::generic_category(), "A channel cannot be watched");
  FStopRead = stop[0];
  FStopWrite = stop[1];
  FWatcher = std::thread([this] { Watch(); });
}

TWatchedChannel::~TWatchedChannel() {
  {
    const std::lock_guard lock(FMutex);
    FStopping = true;
  }
  FChanged.notify_all();
  close(FStopWrite);
  FWatcher.join();
  close(FStopRead);
}

bool TWatchedChannel::Wait(std::chrono::milliseconds time) {
  std::unique_lock lock(FMutex);
  return FChanged.wait_for(lock, time, [this] { return !FAhead.empty(); });
}

TReading TWatchedChannel::Read(std::string& line, bool wait) {
  // What could not be written has closed the channel.
  if (FOut.Read(line, /*wait*/ false) == TReading::Closed) return TReading::Closed;
  std::unique_lock lock(FMutex);
  if (wait) FChanged.wait(lock, [this] { return !FAhead.empty(); });
  if (FAhead.empty()) return TReading::Nothing;
  const TReading reading = FAhead.front().Reading;
  // The end stays at the front: every later reading finds it too.
  if (reading == TReading::Closed) return reading;
  line = std::move(FAhead.front().Line);
  FAhead.pop_front();
  FChanged.notify_all();
  return reading;
}

void TWatchedChannel::SetOnCancel(TOnCancel onCancel) {
  const std::lock_guard lock(FCancelMutex);
  FOnCancel = std::move(onCancel);
}

void TWatchedChannel::Watch() {
  while (HasRoom()) {
    TItem item{TReading::Nothing, {}};
    item.Reading = FIn.Read(item.Line, /*wait*/ false);
    const bool isEnd = item.Reading == TReading::Closed;
    if (item.Reading != TReading::Nothing) Pass(std::move(item));
    if (isEnd) return;
    if (item.Reading == TReading::Nothing && !WaitForInput()) return;
  }
}

/// Waits until there is room for a line; false when the channel is to stop.
bool TWatchedChannel::HasRoom() {
  std::unique_lock lock(FMutex);
  FChanged.wait(lock, [this] { return FStopping || FAhead.size() < kMostLinesAhead; });
  return !FStopping;
}

/// False when the channel is to stop.
bool TWatchedChannel::WaitForInput() const {
  std::array<pollfd, 2> waiting{{{FInput, POLLIN, 0}, {FStopRead, POLLIN, 0}}};
  while (poll(waiting.data(), waiting.size(), -1) < 0 && errno == EINTR) {
  }
  return waiting[1].revents == 0;
}

void TWatchedChannel::Pass(TItem item) {
  const auto cancel = item.Reading == TReading::Line ? CancelIn(item.Line) : std::nullopt;
  {
    const std::lock_guard lock(FMutex);
    FAhead.push_back(std::move(item));
  }
  FChanged.notify_all();
  if (!cancel) return;
  const std::lock_guard lock(FCancelMutex);
  if (FOnCancel) FOnCancel(*cancel);
}

}  // namespace zanhost
