#pragma once

#include <chrono>
#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>

#include "host/query/Access.h"
#include "host/query/Inspection.h"
#include "host/query/MariaDb/Fault.h"
#include "host/query/MariaDb/Handles.h"
#include "host/query/MariaDb/Url.h"

namespace zanhost {

/// When to give up.
struct TMariaDbLimits {
  /// How long a session waits for another one that writes to the same rows.
  std::chrono::seconds Busy{5};
  /// How long one statement may run.
  std::chrono::seconds Statement{30};
  /// How long a connection that was not used is believed to be there; then the server is asked first.
  std::chrono::seconds Believed{5};
};

/// A connection to a MariaDB server, set up as the host uses it, with one database at a time in use. All
/// members but Interrupt belong to one thread and raise TMariaDbFault.
class TMariaDbConnection {
 public:
  /// Connects, with no database in use. A restricted connection takes one statement at a time, only reads,
  /// and gives up early.
  explicit TMariaDbConnection(TMariaDbUrl url, TAccess access = TAccess::Full);
  TMariaDbConnection(const TMariaDbConnection&) = delete;
  TMariaDbConnection& operator=(const TMariaDbConnection&) = delete;

  const TMariaDbUrl& Url() const { return FUrl; }
  bool IsRestricted() const { return FAccess == TAccess::Restricted; }
  MYSQL* Handle() { return FHandle.get(); }

  /// True after the connection was lost or given back: what was prepared on it is of no more use.
  bool IsLost() const { return FHandle == nullptr; }
  /// Connects anew when the connection was lost, and brings the database into use.
  void Use(const std::string& database);
  /// A script has brought another database into use.
  void ForgetDatabaseInUse() { FDatabase.clear(); }

  const TMariaDbLimits& Limits() const { return FLimits; }
  void SetLimits(TMariaDbLimits limits);

  /// Connects anew when the connection was lost or given back.
  void EnsureConnected();
  /// Closes a connection that has been idle for long, without an open transaction, and is no longer there:
  /// the server may have ended it meanwhile, or was started anew.
  void DropIfGone();
  /// Gives the connection back to the server, unless a transaction is open.
  void Release() noexcept;
  /// The longest text that the server takes, in bytes.
  std::size_t GreatestText();

  /// Sends a text of one statement, or of several with semicolons between them, and waits for the first
  /// answer.
  void Send(std::string_view text);
  /// Runs a statement and throws its results away.
  void Exec(std::string_view text);
  /// Runs a statement and gives its rows.
  TTextRows Ask(const std::string& statement);
  /// Stands on the next answer of what was sent; false when there is none.
  bool NextResult();

  TMySqlStatementHandle Prepare(std::string_view text);
  /// Runs a prepared statement with what is bound to it, and waits for its first answer.
  void Execute(MYSQL_STMT* statement);

  /// How often the server has been waited for.
  std::int64_t RoundTrips() const { return FRoundTrips; }

  /// Raises the fault of a call that failed on the connection, or on a statement. A lost connection is
  /// closed.
  [[noreturn]] void Raise();
  [[noreturn]] void Raise(MYSQL_STMT* statement);

  /// Ends the statement that is running, by a connection of its own. From any thread.
  void Interrupt() noexcept;

 private:
  friend class TRunningStatement;

  TMySqlHandle Connect() const;
  void Configure();
  TMariaDbFault Describe(const TMariaDbError& error) const;
  [[noreturn]] void Raise(const TMariaDbError& error);
  bool IsInTransaction() const;
  void BeginStatement();
  void EndStatement() noexcept;

  TMariaDbUrl FUrl;
  TAccess FAccess;
  TMariaDbLimits FLimits;
  TMySqlHandle FHandle;
  std::string FDatabase;
  std::size_t FGreatestText = 0;  ///< 0 until it is asked for
  std::int64_t FRoundTrips = 0;
  std::chrono::steady_clock::time_point FLastUsed;

  std::mutex FRunningMutex;          ///< guards the members below
  unsigned long FRunningThread = 0;  ///< the server's number of this connection while a statement runs
  bool FInterruptSent = false;
};

/// Interrupt() means the statement that runs while one of these lives.
class TRunningStatement {
 public:
  explicit TRunningStatement(TMariaDbConnection& connection) : FConnection(connection) {
    FConnection.BeginStatement();
  }
  ~TRunningStatement() { FConnection.EndStatement(); }
  TRunningStatement(const TRunningStatement&) = delete;
  TRunningStatement& operator=(const TRunningStatement&) = delete;

 private:
  TMariaDbConnection& FConnection;
};

inline constexpr std::string_view kBeginTransaction = "start transaction";
inline constexpr std::string_view kCommitTransaction = "commit";

/// A transaction; taken back when the block is left without Commit.
class TMariaDbTransaction {
 public:
  explicit TMariaDbTransaction(TMariaDbConnection& connection);
  /// For a text that begins with kBeginTransaction, sent within the block.
  struct TBegunByText {};
  TMariaDbTransaction(TMariaDbConnection& connection, TBegunByText) : FConnection(connection) {}
  ~TMariaDbTransaction();
  TMariaDbTransaction(const TMariaDbTransaction&) = delete;
  TMariaDbTransaction& operator=(const TMariaDbTransaction&) = delete;
  void Commit();
  /// A text that ended with kCommitTransaction has run.
  void NoteCommit() { FOpen = false; }

 private:
  TMariaDbConnection& FConnection;
  bool FOpen = true;
};

}  // namespace zanhost
