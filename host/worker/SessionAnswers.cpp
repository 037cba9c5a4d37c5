#include <boost/json/serialize.hpp>
#include <utility>

#include "host/platform/Log.h"
#include "host/worker/SessionLoop.h"

// What the session tells its client.

namespace zanhost {

namespace json = boost::json;

void TSessionLoop::Answer(TOccasion occasion) {
  if (!FAttached) return;
  if (FSnapshotDue) FWindows.Reset();
  json::array changes = CollectChanges();
  const bool owes = FOwesAnswer && occasion == TOccasion::Waiting;
  if (changes.empty() && !owes && !FSnapshotDue) return;
  if (occasion == TOccasion::Waiting) {
    FAcknowledged = FReceived;
    FOwesAnswer = false;
  }
  json::object message{{"seq", ++FSeq}, {"ack", FAcknowledged}};
  if (std::exchange(FSnapshotDue, false)) message["snapshot"] = true;
  message["changes"] = std::move(changes);
  Send(message);
}

json::array TSessionLoop::CollectChanges() {
  json::array changes;
  for (const int gone : FWindows.TakeGone()) changes.push_back(json::object{{"close", gone}});
  for (const auto& window : FWindows.All()) AppendWindow(*window, changes);
  for (const zanrole::TForm* const form : std::exchange(FToFront, {})) {
    if (const TWindowView* const window = FWindows.Find(*form))
      changes.push_back(json::object{{"focus", window->Number()}});
  }
  return changes;
}

/// A window whose rules or rows fail is noted, and nothing of it is sent.
void TSessionLoop::AppendWindow(TWindowView& window, json::array& changes) {
  if (FBroken.contains(window.Number())) return;
  const std::size_t before = changes.size();
  try {
    window.AppendChanges(changes);
  } catch (const std::exception& fault) {
    changes.resize(before);
    FBroken.insert(window.Number());
    FUnpresentable.push_back({window.Number(), OutcomeOf(fault)});
    if (OnOperation) OnOperation({window.Form().ClassName(), &fault, {}});
  }
}

/// Closes the windows that cannot be presented, and says why.
void TSessionLoop::DropUnpresentable() {
  for (const TUnpresentable& dropped : std::exchange(FUnpresentable, {})) {
    if (const TWindowView* const window = FWindows.Find(dropped.Window)) Hide(window->Form());
    ShowFault(dropped.Text);
  }
}

void TSessionLoop::Refuse(const EProtocolError& fault) {
  json::object message{{"error", fault.what()}};
  if (fault.Number()) message["n"] = *fault.Number();
  Send(message);
}

void TSessionLoop::Send(const json::object& message) {
  if (!FAttached) return;
  FChannel->Write(json::serialize(message));
  FLastSent = std::chrono::steady_clock::now();
}

}  // namespace zanhost
