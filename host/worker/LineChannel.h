#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace zanhost {

enum class TReading {
  Line,
  /// A line longer than the limit was passed over.
  TooLong,
  /// Nothing is there yet.
  Nothing,
  /// The other side is gone; every later reading says so too.
  Closed
};

/// Gets the number of the line that asks to cancel.
using TOnCancel = std::function<void(std::int64_t number)>;

/// Lines to and from whoever drives a session. Used by one thread.
class TLineChannel {
 public:
  virtual ~TLineChannel() = default;
  /// Waits until Read(wait) has something to report, but no longer than `time`; false when that has passed.
  virtual bool Wait(std::chrono::milliseconds time) = 0;
  /// The next line without its line break. `wait` waits until there is something to report.
  virtual TReading Read(std::string& line, bool wait) = 0;
  /// Sends one line. What cannot be sent is dropped: the next reading finds the channel closed.
  virtual void Write(std::string_view line) = 0;
  /// What runs as soon as a line asks to cancel what is running, on a thread of the channel; null for
  /// nothing. After the return nothing that was set before runs. A channel that does not read ahead never
  /// runs it.
  // NOLINTNEXTLINE(performance-unnecessary-value-param): a channel that runs it keeps it.
  virtual void SetOnCancel(TOnCancel /*onCancel*/) {}
};

/// A channel over two file descriptors, which it does not own.
class TDescriptorChannel final : public TLineChannel {
 public:
  /// `maxLine`: bytes of the longest line that is accepted.
  TDescriptorChannel(int input, int output, std::size_t maxLine)
      : FInput(input), FOutput(output), FMaxLine(maxLine) {}
  bool Wait(std::chrono::milliseconds time) override;
  TReading Read(std::string& line, bool wait) override;
  void Write(std::string_view line) override;

 private:
  /// A negative time has no end.
  bool HasInput(int milliseconds) const;
  bool TakeLine(std::string& line, TReading& reading);
  void DropOverlong();
  void FillBuffer();

  int FInput;
  int FOutput;
  std::size_t FMaxLine;
  std::string FBuffer;
  /// What stands before it in the buffer holds no line break.
  std::size_t FSearched = 0;
  /// The rest of a line that is too long is still to come.
  bool FSkipping = false;
  bool FClosed = false;
};

}  // namespace zanhost
