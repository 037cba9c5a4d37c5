#pragma once

#include <string>

#include "host/query/Sqlite/Handles.h"

namespace zanhost {

/// A failed call of SQLite, on its way to become an EDatabaseError. Never leaves the engine.
struct TSqliteFault {
  std::string Message;  ///< a sentence for a person, or the engine's own message
  std::string Kind;     ///< the engine's name for this kind of error, free of values
};

/// What a fault is told with: the file it happened on, how long a busy file was waited for.
struct TFaultContext {
  std::string File;
  double BusySeconds = 0;
  double StatementSeconds = 0;
  bool Interrupted = false;  ///< Interrupt() was called
  bool OutOfTime = false;    ///< the limit for one statement was reached
  std::string Refusal;  ///< why the restriction of the connection refused something; empty when it did not
};

/// The fault for the code that a call on `connection` gave (null when there is no connection).
TSqliteFault DescribeFault(sqlite3* connection, int code, const TFaultContext& context);

}  // namespace zanhost
