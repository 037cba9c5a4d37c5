#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "Frame/Host/Forms.h"
#include "Frame/Host/VeshMessageDlg.h"
#include "Frame/Host/Veshpublics.h"
#include "host/worker/Event.h"
#include "host/worker/LineChannel.h"
#include "host/worker/Windows.h"

namespace zanhost {

/// Thrown out of every wait for a person once the session is to end, and again out of each further wait, so
/// that open dialogs unwind. No std::exception on purpose: what swallows faults must not swallow it.
struct TSessionClosing {};

/// What an operation was, and how it ended.
struct TOperationReport {
  /// "TFormDomains.ActDomainNew", "menu 域管理".
  std::string Name;
  /// Null when it went well. Lives during the call.
  const std::exception* Fault;
  std::chrono::milliseconds Took;
};

/// Presents the forms of one session over a channel of lines and hands a person's events to them. Everything
/// happens on the thread that calls Run: a modal dialog runs a loop of its own inside ShowModal. After each
/// event the client is sent what has changed.
class TSessionLoop final : public zanrole::TFormHost, public zanrole::TMessageDialogs {
 public:
  /// Runs a command that is not about a component (menu, call, language). The answer's members, or nothing
  /// when there is none beyond the changes. Raises EProtocolError for a command that is refused.
  using TOnCommand = std::function<std::optional<boost::json::object>(const TEvent& event)>;
  /// Called when a person has done nothing for IdleAfter; once in each wait.
  using TOnIdle = std::function<void()>;
  using TOnOperation = std::function<void(const TOperationReport& report)>;

  /// Long work is shown at most this often.
  static constexpr std::chrono::milliseconds kProgressInterval{50};

  /// Both must outlive the loop; the loop outlives its forms.
  TSessionLoop(TLineChannel& channel, zanrole::TResourceStrings& resources)
      : FChannel(&channel), FResources(&resources) {}

  /// To be set before Run. Without the first, commands are refused.
  TOnCommand OnCommand;
  TOnOperation OnOperation;
  TOnIdle OnIdle;
  std::chrono::milliseconds IdleAfter{60'000};
  /// Lines with the member "gateway" are the gateway's own; otherwise they are events like all others.
  bool HasGateway = false;

  /// From now on the client is told; numbering starts anew, with a snapshot at the next wait.
  void Attach();
  /// Handles events until the session is to end. Faults of operations are shown to the person.
  void Run();
  /// Every form that is open sets its captions anew.
  void RefreshCaptions();

  void Show(zanrole::TForm& form) override;
  /// Raises EZanError for a form that is presented already.
  int ShowModal(zanrole::TForm& form) override;
  void Hide(zanrole::TForm& form) override;
  void Forget(zanrole::TForm& form) noexcept override;
  /// Events of windows that came up since the operation began are handled; all others wait for its end.
  void ProcessMessages() override;
  /// Does nothing: a client shows by itself that an event is not acknowledged yet.
  void SetBusy(bool /*busy*/) override {}
  zanrole::TMsgDlgBtn MessageBox(std::string_view title, std::string_view text, zanrole::TMsgDlgType kind,
                                 unsigned buttons) override;

 private:
  /// An event whose handlers are running.
  struct TFrame {
    int Window;
    /// Windows from this number on came up since.
    int FirstNewWindow;
  };
  class TFrameGuard;
  class TWindowGuard;

  void Loop(const std::function<bool()>& isDone);
  std::optional<TEvent> NextEvent();
  /// Nothing when the line was the gateway's, or was answered with an error.
  std::optional<TEvent> TakeLine(TReading reading, const std::string& line);
  void Control(TControl control);
  void Handle(const TEvent& event);
  void HandleDuringWork(const TEvent& event);
  void Perform(const TEvent& event);
  void Fail(const TEvent& event, const std::exception& fault);
  void Dispatch(const TEvent& event);
  void DispatchToWindow(const TEvent& event, TWindowView& window);
  void Command(const TEvent& event);
  std::string OperationName(const TEvent& event) const;
  void ShowFault(const std::string& text);
  void RunHides();
  bool IsRunning(int window) const;

  enum class TOccasion { Waiting, LongWork };
  void Answer(TOccasion occasion);
  boost::json::array CollectChanges();
  void AppendWindow(TWindowView& window, boost::json::array& changes);
  void DropUnpresentable();
  void Refuse(const EProtocolError& fault);
  /// The event was answered otherwise: its acknowledgement comes with the next message that has to be sent.
  void CountAsAnswered(const TEvent& event);
  void Send(const boost::json::object& message);

  struct THide {
    zanrole::TForm* Form;
    int Window;
  };
  struct TUnpresentable {
    int Window;
    std::string Text;
  };

  TLineChannel* FChannel;
  zanrole::TResourceStrings* FResources;
  TWindows FWindows;
  std::vector<TFrame> FFrames;
  /// Forms that have left the screen and still have to be told.
  std::vector<THide> FHides;
  std::vector<zanrole::TForm*> FToFront;
  std::vector<TUnpresentable> FUnpresentable;
  /// Windows whose rules or rows have failed: nothing more of them is sent.
  std::set<int> FBroken;
  std::deque<TEvent> FPostponed;
  std::chrono::steady_clock::time_point FLastSent;
  std::int64_t FSeq = 0;
  std::int64_t FReceived = 0;
  std::int64_t FAcknowledged = 0;
  bool FAttached = false;
  bool FSnapshotDue = false;
  bool FOwesAnswer = false;
  bool FClosing = false;
  bool FQuit = false;
};

}  // namespace zanhost
