#pragma once

#include <atomic>
#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "host/query/Access.h"
#include "host/query/DataUrl.h"
#include "host/query/Sqlite/Fault.h"
#include "host/query/Sqlite/Handles.h"
#include "host/query/Sqlite/Restriction.h"

namespace zanhost {

/// When to give up.
struct TSqliteLimits {
  /// How long a session waits for another one that writes.
  std::chrono::milliseconds Busy{5000};
  /// How long one statement may run: a recursion over a loop in the data would never end.
  std::chrono::milliseconds Statement{30000};
  /// How many values a result may hold: such a recursion would fill the memory before its time is over.
  std::size_t ResultValues = 10'000'000;
  /// How long its texts may be together.
  std::size_t ResultBytes = std::size_t{4} << 30;
};

/// A connection to one SQLite file, set up as the host uses it. All members but Interrupt belong to one
/// thread.
class TSqliteConnection {
 public:
  /// Opens the file, or makes it. Raises EDatabaseError with a text for a person.
  TSqliteConnection(const std::string& file, TOpenMode mode, TAccess access = TAccess::Full);
  TSqliteConnection(const TSqliteConnection&) = delete;
  TSqliteConnection& operator=(const TSqliteConnection&) = delete;

  sqlite3* Handle() { return FHandle.get(); }
  const std::string& File() const { return FFile; }
  TSqliteLimits& Limits() { return FLimits; }

  /// Starts the clock of a statement and forgets an earlier Interrupt. Before each call of the members below.
  void BeginStatement() { BeginStatement(FLimits.Statement); }
  void BeginStatement(std::chrono::milliseconds limit);

  // All of these raise TSqliteFault.

  /// `persistent` for a statement that will be used again. A second statement behind the first is refused.
  TStatementHandle Prepare(std::string_view text, bool persistent);
  /// True when the statement stands on a row, false when it is done.
  bool Step(sqlite3_stmt* statement);
  void Exec(const char* text);
  /// Raises when `code` is a failure.
  void Check(int code);

  /// Ends what is running on this connection. From any thread.
  void Interrupt() noexcept;

 private:
  void Open(TOpenMode mode, TAccess access);
  void Configure();
  void Restrict();
  std::set<std::string> TableNames();
  void SwitchToWriteAheadLog();
  bool KeepWaiting(int tries);
  bool KeepRunning();
  TFaultContext Context() const;

  static int OnBusy(void* self, int tries) {
    return static_cast<TSqliteConnection*>(self)->KeepWaiting(tries) ? 1 : 0;
  }
  static int OnProgress(void* self) { return static_cast<TSqliteConnection*>(self)->KeepRunning() ? 0 : 1; }

  using TClock = std::chrono::steady_clock;

  std::string FFile;
  std::optional<TSqliteRestriction> FRestriction;
  TConnectionHandle FHandle;
  TSqliteLimits FLimits;
  std::chrono::milliseconds FStatementLimit{0};
  TClock::time_point FWaitingSince;
  TClock::time_point FRunningSince;
  bool FClockStarted = false;
  bool FOutOfTime = false;
  std::atomic<bool> FInterrupted = false;
};

/// A write transaction; taken back when the block is left without Commit.
class TSqliteTransaction {
 public:
  explicit TSqliteTransaction(TSqliteConnection& connection);
  ~TSqliteTransaction();
  TSqliteTransaction(const TSqliteTransaction&) = delete;
  TSqliteTransaction& operator=(const TSqliteTransaction&) = delete;
  void Commit();

 private:
  TSqliteConnection& FConnection;
  bool FOpen = true;
};

}  // namespace zanhost
