#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

#include "host/worker/LineChannel.h"

namespace zanhost {

/// A channel over two file descriptors, which it does not own, that is read ahead on a thread of its own: so
/// a person can cancel what is running. At a line that asks for it the action of SetOnCancel runs at once;
/// the line itself is passed on like all others.
class TWatchedChannel final : public TLineChannel {
 public:
  /// `maxLine`: bytes of the longest line that is accepted.
  TWatchedChannel(int input, int output, std::size_t maxLine);
  ~TWatchedChannel() override;
  TWatchedChannel(const TWatchedChannel&) = delete;
  TWatchedChannel& operator=(const TWatchedChannel&) = delete;

  bool Wait(std::chrono::milliseconds time) override;
  TReading Read(std::string& line, bool wait) override;
  void Write(std::string_view line) override { FOut.Write(line); }
  void SetOnCancel(TOnCancel onCancel) override;

 private:
  struct TItem {
    TReading Reading;
    std::string Line;
  };

  void Watch();
  bool HasRoom();
  bool WaitForInput() const;
  void Pass(TItem item);

  // Each is used by one thread: the first by the watching one, the second by the session's.
  TDescriptorChannel FIn;
  TDescriptorChannel FOut;
  int FInput;
  int FStopRead = -1;
  int FStopWrite = -1;

  std::mutex FMutex;  ///< guards the members below
  std::condition_variable FChanged;
  std::deque<TItem> FAhead;
  bool FStopping = false;

  std::mutex FCancelMutex;  ///< held while the action runs
  TOnCancel FOnCancel;

  std::thread FWatcher;
};

}  // namespace zanhost
