#include "host/worker/SessionLoop.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "host/platform/Log.h"
#include "host/worker/Input.h"

namespace zanhost {

/// Marks an event's handlers as running.
class TSessionLoop::TFrameGuard {
 public:
  TFrameGuard(TSessionLoop& loop, int window) : FLoop(&loop) {
    FLoop->FFrames.push_back({window, FLoop->FWindows.NextNumber()});
  }
  ~TFrameGuard() { FLoop->FFrames.pop_back(); }
  TFrameGuard(const TFrameGuard&) = delete;
  TFrameGuard& operator=(const TFrameGuard&) = delete;

 private:
  TSessionLoop* FLoop;
};

void TSessionLoop::Attach() {
  FAttached = true;
  FSnapshotDue = true;
  FSeq = 0;
  FReceived = 0;
  FAcknowledged = 0;
  // What still waits was numbered by another connection.
  for (TEvent& event : FPostponed) event.Number = 0;
}

void TSessionLoop::Run() {
  try {
    Loop([] { return false; });
  } catch (const TSessionClosing&) {
    if (FQuit) Send({{"bye", "ended"}});
  }
}

void TSessionLoop::RefreshCaptions() {
  for (const auto& window : FWindows.All()) window->Form().InitLngResources();
}

void TSessionLoop::Loop(const std::function<bool()>& isDone) {
  while (!isDone()) {
    Answer(TOccasion::Waiting);
    if (!FUnpresentable.empty()) {
      DropUnpresentable();
      continue;
    }
    const std::optional<TEvent> event = NextEvent();
    if (!event) continue;
    FReceived = std::max(FReceived, event->Number);
    FOwesAnswer = true;
    Handle(*event);
  }
}

/// Waits for a line; nothing when it was no event.
std::optional<TEvent> TSessionLoop::NextEvent() {
  if (FClosing) throw TSessionClosing{};
  if (!FPostponed.empty()) {
    TEvent event = std::move(FPostponed.front());
    FPostponed.pop_front();
    return event;
  }
  if (OnIdle && !FChannel->Wait(IdleAfter)) OnIdle();
  std::string line;
  const TReading reading = FChannel->Read(line, /*wait*/ true);
  return TakeLine(reading, line);
}

std::optional<TEvent> TSessionLoop::TakeLine(TReading reading, const std::string& line) {
  if (reading == TReading::Closed) FClosing = true;
  try {
    if (reading == TReading::TooLong) throw EProtocolError("The message is too long");
    if (reading != TReading::Line) return std::nullopt;
    const TControl control = HasGateway ? ParseControl(line) : TControl::None;
    if (control == TControl::None) return ParseEvent(line);
    Control(control);
  } catch (const EProtocolError& fault) {
    Refuse(fault);
  }
  return std::nullopt;
}

void TSessionLoop::Control(TControl control) {
  if (control == TControl::Attach) Attach();
  if (control == TControl::Detach) FAttached = false;
}

void TSessionLoop::Handle(const TEvent& event) {
  const auto start = std::chrono::steady_clock::now();
  const std::string name = OperationName(event);
  const auto report = [&](const std::exception* fault) {
    const auto took = std::chrono::steady_clock::now() - start;
    if (OnOperation && (fault != nullptr || !name.empty()))
      OnOperation({name, fault, std::chrono::duration_cast<std::chrono::milliseconds>(took)});
  };
  try {
    Perform(event);
    report(nullptr);
  } catch (const EProtocolError& fault) {
    CountAsAnswered(event);
    Refuse(EProtocolError(fault.what(), event.Number));
  } catch (const std::exception& fault) {
    report(&fault);
    Fail(event, fault);
  }
}

void TSessionLoop::Perform(const TEvent& event) {
  {
    const TFrameGuard frame(*this, event.Window);
    Dispatch(event);
  }
  RunHides();
}

/// A person is shown what went wrong, of a failed statement the engine's words alone; a script that called a
/// function is answered.
void TSessionLoop::Fail(const TEvent& event, const std::exception& fault) {
  if (event.Do != TDo::Call) {
    ShowFault(OutcomeOf(fault));
    return;
  }
  CountAsAnswered(event);
  Refuse(EProtocolError(fault.what(), event.Number));
}

/// The name by which the log tells an operation; empty for what is typing and looking.
std::string TSessionLoop::OperationName(const TEvent& event) const {
  if (event.Do == TDo::Menu) return "menu " + event.Function;
  if (event.Do == TDo::Call) return "call " + event.Function;
  constexpr std::array kTold{TDo::Act, TDo::Activate, TDo::Mark, TDo::Edit, TDo::Drop, TDo::Close};
  if (std::find(kTold.begin(), kTold.end(), event.Do) == kTold.end()) return {};
  const TWindowView* const window = FWindows.Find(event.Window);
  if (window == nullptr) return {};
  return fmt::format("{}.{}", window->Form().ClassName(), event.Do == TDo::Close ? "Close" : event.Name);
}

void TSessionLoop::Dispatch(const TEvent& event) {
  switch (event.Do) {
    case TDo::Snapshot:
      FSnapshotDue = true;
      return;
    case TDo::Quit:
      FQuit = true;
      FClosing = true;
      return;
    case TDo::Cancel:
      // The channel has seen to it when the event came: what it was meant for has ended.
      return;
    case TDo::Menu:
    case TDo::Call:
    case TDo::Language:
      Command(event);
      return;
    default:
      break;
  }
  if (TWindowView* const window = FWindows.Find(event.Window)) DispatchToWindow(event, *window);
}

void TSessionLoop::DispatchToWindow(const TEvent& event, TWindowView& window) {
  zanrole::TComponent* const part = window.Form().FindComponent(event.Name);
  if (event.Do == TDo::View) {
    if (part != nullptr) ApplyView(event, {FWindows, window, *part});
    return;
  }
  if (!FWindows.IsReachable(window)) return;
  if (event.Do == TDo::Close) {
    window.Form().Close();
    return;
  }
  if (part == nullptr) return;
  for (zanrole::TComponent* above = part; above != nullptr; above = above->Container()) above->ApplyRules();
  if (part->Usable()) ApplyInput(event, {FWindows, window, *part});
}

void TSessionLoop::Command(const TEvent& event) {
  if (!OnCommand) throw EProtocolError("This session takes no commands");
  std::optional<boost::json::object> answer = OnCommand(event);
  if (!answer) return;
  (*answer)["n"] = event.Number;
  Send(*answer);
  CountAsAnswered(event);
}

void TSessionLoop::ShowFault(const std::string& text) {
  MessageBox({}, text, zanrole::TMsgDlgType::Error, zanrole::mbOK);
}

void TSessionLoop::ProcessMessages() {
  for (;;) {
    std::string line;
    const TReading reading = FClosing ? TReading::Closed : FChannel->Read(line, /*wait*/ false);
    if (std::optional<TEvent> event = TakeLine(reading, line)) HandleDuringWork(*event);
    if (reading == TReading::Nothing || reading == TReading::Closed) break;
  }
  if (std::chrono::steady_clock::now() - FLastSent >= kProgressInterval) Answer(TOccasion::LongWork);
}

void TSessionLoop::HandleDuringWork(const TEvent& event) {
  const bool isOfNewWindow = !FFrames.empty() && event.Window >= FFrames.back().FirstNewWindow;
  if (event.Do != TDo::View && !isOfNewWindow) {
    FPostponed.push_back(event);
    return;
  }
  Handle(event);
  // Acknowledged in its turn, after those that wait: as a look at no window, which does nothing.
  TEvent done;
  done.Number = event.Number;
  done.Do = TDo::View;
  FPostponed.push_back(done);
}

void TSessionLoop::CountAsAnswered(const TEvent& event) {
  if (FReceived == event.Number) FOwesAnswer = false;
}

}  // namespace zanhost
