#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

#include "host/worker/SessionLoop.h"
#include "tests/support/ClientModel.h"
#include "tests/support/PlainTexts.h"

namespace zantest {

/// A channel whose other end is a test on another thread.
class TQueueChannel final : public zanhost::TLineChannel {
 public:
  bool Wait(std::chrono::milliseconds time) override;
  zanhost::TReading Read(std::string& line, bool wait) override;
  void Write(std::string_view line) override;

  /// The test's end.
  void Push(std::string line);
  void Close();
  /// Waits for the next line of the session. Empty when none comes within ten seconds.
  std::string Next();
  /// Nothing more will come from the session.
  void EndOutput();

 private:
  std::mutex FMutex;
  std::condition_variable FChanged;
  std::deque<std::string> FIn;
  std::deque<std::string> FOut;
  bool FClosed = false;
  bool FOutputEnded = false;
};

/// A session on a thread of its own, driven as a client drives it: each operation is one event, and returns
/// when the session has answered it.
class TSessionDriver {
 public:
  /// `session` runs on the thread until it returns. It attaches its loop, shows forms and runs the loop.
  explicit TSessionDriver(std::function<void(zanhost::TLineChannel& channel)> session);
  /// Closes the channel and waits for the session's end.
  ~TSessionDriver();
  TSessionDriver(const TSessionDriver&) = delete;
  TSessionDriver& operator=(const TSessionDriver&) = delete;

  /// Waits for the first snapshot.
  void Start();
  /// Numbers the event, sends it, and gives the message that answered it (an acknowledgement, an error or the
  /// answer of a call). All messages up to it are taken into Client.
  boost::json::object Send(boost::json::object event);
  /// Sends a line as it stands and gives the next message.
  boost::json::object SendRaw(const std::string& line);
  /// Takes messages until one comes that satisfies `isWanted`.
  boost::json::object Await(const std::function<bool(const boost::json::object& message)>& isWanted);
  void Close() { FChannel.Close(); }
  /// Waits for the end of the session's thread.
  void Join();
  void Push(std::string line) { FChannel.Push(std::move(line)); }

  // The commonest events.
  boost::json::object Act(int window, const std::string& name);
  boost::json::object Set(int window, const std::string& name, boost::json::value value);
  boost::json::object View(int window, const std::string& name, int first, int last);
  boost::json::object CloseWindow(int window);
  /// Asks for a snapshot.
  boost::json::object Snapshot();

  TClientModel Client;
  /// Number of the last event.
  std::int64_t Number = 0;

 private:
  TQueueChannel FChannel;
  std::thread FThread;
};

}  // namespace zantest
