#include "host/worker/LineChannel.h"

#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace zanhost {

bool TDescriptorChannel::Wait(std::chrono::milliseconds time) {
  const bool hasLine = FBuffer.find('\n', FSearched) != std::string::npos;
  return hasLine || FClosed || HasInput(static_cast<int>(time.count()));
}

TReading TDescriptorChannel::Read(std::string& line, bool wait) {
  TReading reading = TReading::Nothing;
  while (!TakeLine(line, reading)) {
    if (FClosed) return TReading::Closed;
    if (!HasInput(wait ? -1 : 0)) return TReading::Nothing;
    FillBuffer();
  }
  return reading;
}

/// True when a line stands in the buffer: `line` and `reading` then tell what it is.
bool TDescriptorChannel::TakeLine(std::string& line, TReading& reading) {
  const std::size_t end = FBuffer.find('\n', FSearched);
  if (end == std::string::npos) {
    FSearched = FBuffer.size();
    if (FBuffer.size() > FMaxLine) DropOverlong();
    return false;
  }
  const bool isTooLong = FSkipping || end > FMaxLine;
  reading = isTooLong ? TReading::TooLong : TReading::Line;
  if (!isTooLong) line.assign(FBuffer, 0, end > 0 && FBuffer[end - 1] == '\r' ? end - 1 : end);
  FBuffer.erase(0, end + 1);
  FSearched = 0;
  FSkipping = false;
  return true;
}

void TDescriptorChannel::DropOverlong() {
  FSkipping = true;
  FBuffer.clear();
  FSearched = 0;
}

bool TDescriptorChannel::HasInput(int milliseconds) const {
  pollfd waiting{FInput, POLLIN, 0};
  for (;;) {
    const int ready = poll(&waiting, 1, milliseconds);
    if (ready >= 0) return ready > 0;
    if (errno != EINTR) return true;  // reading will tell what is wrong
  }
}

void TDescriptorChannel::FillBuffer() {
  std::array<char, 65536> piece;
  const ssize_t got = read(FInput, piece.data(), piece.size());
  if (got > 0) {
    FBuffer.append(piece.data(), static_cast<std::size_t>(got));
  } else if (got == 0 || errno != EINTR) {
    FClosed = true;
    // The last line of a script may lack its end.
    if (!FBuffer.empty()) FBuffer += '\n';
  }
}

void TDescriptorChannel::Write(std::string_view line) {
  std::string pending(line);
  pending += '\n';
  for (std::size_t sent = 0; sent < pending.size();) {
    const ssize_t written = write(FOutput, pending.data() + sent, pending.size() - sent);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) {
      FClosed = true;
      return;
    }
    sent += static_cast<std::size_t>(written);
  }
}

}  // namespace zanhost
