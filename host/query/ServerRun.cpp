#include "host/query/ServerRun.h"

#include "host/query/Redaction.h"
#include "host/query/Trace.h"

namespace zanhost {

namespace {

constexpr char kHiddenMessage[] = "The server refused a statement about passwords: ";

std::string ShownMessage(const TServerRefusal& refusal, std::string_view text) {
  return refusal.QuotesValues && TouchesPasswords(text) ? kHiddenMessage + refusal.Kind : refusal.Message;
}

TTraceEntry EntryOf(const TServerRun& run, std::int64_t roundTrips) {
  const auto time = std::chrono::steady_clock::now() - run.Start;
  TTraceEntry entry;
  entry.Database = run.OnSystem ? "system" : "data";
  entry.Text = run.Text;
  if (run.Sent != run.Text) entry.Sent = run.Sent;
  entry.Params = &run.Query.Params();
  entry.RoundTrips = roundTrips - run.RoundTripsBefore;
  entry.Time = std::chrono::duration_cast<std::chrono::microseconds>(time);
  return entry;
}

}  // namespace

void NoteSent(TServerRun& run, std::string_view text) {
  if (!run.Sent.empty()) run.Sent += ";\n";
  run.Sent += text;
}

void EndRun(const TServerRun& run, TTrace* trace, std::int64_t roundTrips) {
  if (trace == nullptr) return;
  TTraceEntry entry = EntryOf(run, roundTrips);
  entry.Rows = run.HasResult ? run.Result->RowCount() : run.Changed;
  trace->Write(entry);
}

void FailRun(TServerRun& run, TTrace* trace, std::int64_t roundTrips, const TServerRefusal& refusal) {
  if (trace != nullptr) {
    TTraceEntry entry = EntryOf(run, roundTrips);
    entry.Error = refusal.Message;
    entry.ErrorKind = refusal.Kind;
    trace->Write(entry);
  }
  run.Query.Close();
  throw zanrole::EDatabaseError(ShownMessage(refusal, run.Text), RedactStatement(run.Text));
}

}  // namespace zanhost
