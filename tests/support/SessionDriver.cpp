#include "tests/support/SessionDriver.h"

#include <gtest/gtest.h>

namespace zantest {

namespace json = boost::json;
using zanhost::TReading;

bool TQueueChannel::Wait(std::chrono::milliseconds time) {
  std::unique_lock lock(FMutex);
  return FChanged.wait_for(lock, time, [&] { return FClosed || !FIn.empty(); });
}

TReading TQueueChannel::Read(std::string& line, bool wait) {
  std::unique_lock lock(FMutex);
  if (wait) FChanged.wait(lock, [&] { return FClosed || !FIn.empty(); });
  if (FIn.empty()) return FClosed ? TReading::Closed : TReading::Nothing;
  line = std::move(FIn.front());
  FIn.pop_front();
  return TReading::Line;
}

void TQueueChannel::Write(std::string_view line) {
  const std::lock_guard lock(FMutex);
  FOut.emplace_back(line);
  FChanged.notify_all();
}

void TQueueChannel::Push(std::string line) {
  const std::lock_guard lock(FMutex);
  FIn.push_back(std::move(line));
  FChanged.notify_all();
}

void TQueueChannel::Close() {
  const std::lock_guard lock(FMutex);
  FClosed = true;
  FChanged.notify_all();
}

std::string TQueueChannel::Next() {
  std::unique_lock lock(FMutex);
  FChanged.wait_for(lock, std::chrono::seconds(10), [&] { return !FOut.empty() || FOutputEnded; });
  if (FOut.empty()) return {};
  std::string line = std::move(FOut.front());
  FOut.pop_front();
  return line;
}

void TQueueChannel::EndOutput() {
  const std::lock_guard lock(FMutex);
  FOutputEnded = true;
  FChanged.notify_all();
}

TSessionDriver::TSessionDriver(std::function<void(zanhost::TLineChannel& channel)> session)
    : FThread([this, run = std::move(session)] {
        run(FChannel);
        FChannel.EndOutput();
      }) {}

TSessionDriver::~TSessionDriver() {
  Close();
  Join();
}

void TSessionDriver::Join() {
  if (FThread.joinable()) FThread.join();
}

void TSessionDriver::Start() {
  Await([](const json::object& message) { return message.contains("snapshot"); });
}

json::object TSessionDriver::Await(const std::function<bool(const json::object& message)>& isWanted) {
  for (;;) {
    const std::string line = FChannel.Next();
    if (line.empty()) {
      ADD_FAILURE() << "the session said nothing more";
      return {};
    }
    json::object message = json::parse(line).as_object();
    Client.Apply(message);
    if (isWanted(message)) return message;
  }
}

json::object TSessionDriver::Send(json::object event) {
  event["n"] = ++Number;
  FChannel.Push(json::serialize(event));
  return Await([&](const json::object& message) {
    const json::value* const acknowledged = message.if_contains("ack");
    const json::value* const answered = message.if_contains("n");
    return (acknowledged != nullptr && acknowledged->as_int64() >= Number) ||
           (answered != nullptr && answered->as_int64() == Number);
  });
}

json::object TSessionDriver::SendRaw(const std::string& line) {
  FChannel.Push(line);
  return Await([](const json::object&) { return true; });
}

json::object TSessionDriver::Act(int window, const std::string& name) {
  return Send({{"do", "act"}, {"window", window}, {"name", name}});
}

json::object TSessionDriver::Set(int window, const std::string& name, json::value value) {
  return Send({{"do", "set"}, {"window", window}, {"name", name}, {"value", std::move(value)}});
}

json::object TSessionDriver::View(int window, const std::string& name, int first, int last) {
  Client.Look(window, name, first, last);
  return Send({{"do", "view"}, {"window", window}, {"name", name}, {"first", first}, {"last", last}});
}

json::object TSessionDriver::CloseWindow(int window) { return Send({{"do", "close"}, {"window", window}}); }

json::object TSessionDriver::Snapshot() { return Send({{"do", "snapshot"}}); }

}  // namespace zantest
