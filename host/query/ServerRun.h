#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

#include "Frame/Host/Zandbs.h"

namespace zanhost {

class TTrace;

/// One call of a query on its way through an engine whose statements run on a server.
struct TServerRun {
  zanrole::TZANQuery& Query;
  bool OnSystem;
  const std::string& Text;
  /// Where the first result goes; null when none is wanted.
  zanrole::TDataSet* Result;
  std::int64_t RoundTripsBefore;
  bool HasResult = false;
  /// Rows that were changed.
  std::int64_t Changed = 0;
  /// What was sent; gathered only while a trace is on.
  std::string Sent;
  std::chrono::steady_clock::time_point Start = std::chrono::steady_clock::now();
};

/// Why a run failed. The message is a sentence for a person or the server's own, which may quote a piece of
/// the statement; the kind is free of values.
struct TServerRefusal {
  std::string Message;
  std::string Kind;
  bool QuotesValues;
};

/// Adds a text to what was sent.
void NoteSent(TServerRun& run, std::string_view text);

/// Ends a run that went well: writes its line when there is a trace. `roundTrips` of the connection until
/// now.
void EndRun(const TServerRun& run, TTrace* trace, std::int64_t roundTrips);

/// Ends a run that failed: writes its line, closes the query and raises EDatabaseError, in which no password
/// stands.
[[noreturn]] void FailRun(TServerRun& run, TTrace* trace, std::int64_t roundTrips,
                          const TServerRefusal& refusal);

}  // namespace zanhost
