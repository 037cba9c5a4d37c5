#pragma once

#include <memory>
#include <mutex>
#include <string>

#include "host/query/Odbc/Fault.h"
#include "host/query/Odbc/Link.h"
#include "host/query/Odbc/Server.h"
#include "host/query/Odbc/Url.h"

namespace zanhost {

/// A connection by an ODBC driver to a server whose record it knows, set up as the host uses it. All members
/// but Interrupt belong to one thread and throw TOdbcError or TOdbcFault.
class TOdbcConnection {
 public:
  /// Connects and recognises the server. Raises EDatabaseError for one that is not known.
  TOdbcConnection(TOdbcUrl url, TOdbcConnector connector);
  TOdbcConnection(const TOdbcConnection&) = delete;
  TOdbcConnection& operator=(const TOdbcConnection&) = delete;

  const TOdbcServer& Server() const { return *FServer; }
  const TOdbcUrl& Url() const { return FUrl; }
  /// The databases by name, also when the URL names none.
  const std::string& Data() const { return FData; }
  const std::string& System() const { return FSystem; }

  /// True after the connection was lost. What was prepared on it is of no more use and must go before Use.
  bool IsLost() const { return FLost; }
  void NoteLost() { FLost = true; }
  /// Connects anew when the connection was lost, and brings the database into use.
  void Use(const std::string& database);
  /// A script has brought another database into use.
  void ForgetDatabaseInUse() { FDatabase.clear(); }

  const TOdbcLimits& Limits() const { return FLimits; }
  void SetLimits(TOdbcLimits limits);

  // A transaction by the driver, for servers without a statement that begins one.
  void BeginTransaction();
  void EndTransaction(bool keep);
  /// How often the server was waited for, connecting aside.
  std::int64_t RoundTrips() const { return FRoundTrips; }
  /// A statement with the limits of the session.
  std::unique_ptr<TOdbcStatement> NewStatement();
  /// Runs a statement and throws its answers away.
  void Exec(const std::string& text);
  /// Runs a statement that Interrupt does not end.
  void ExecToTheEnd(std::string_view text);
  /// Runs a statement and gives its rows.
  TTextRows Ask(const std::string& text);

  /// Runs `call`, which waits for the server with the statement and which Interrupt may end.
  template <typename TCall>
  void Running(TOdbcStatement& statement, TCall call) {
    const TRunning running(*this, statement);
    call();
  }

  /// The error as it is told; notes a lost connection.
  TOdbcFault Describe(const TOdbcError& error);
  /// Does the work; a TOdbcError in it becomes the TOdbcFault that tells it.
  template <typename TWork>
  void Telling(TWork work) {
    try {
      work();
    } catch (const TOdbcError& error) {
      throw Describe(error);
    }
  }

  /// Ends what runs between BeginRun and EndRun. From any thread.
  void Interrupt() noexcept;
  void BeginRun();
  void EndRun() noexcept;

 private:
  /// The statement that is at the server while one of these lives.
  class TRunning {
   public:
    TRunning(TOdbcConnection& connection, TOdbcStatement& statement);
    ~TRunning();
    TRunning(const TRunning&) = delete;
    TRunning& operator=(const TRunning&) = delete;

   private:
    TOdbcConnection& FConnection;
  };

  void Connect();
  void Configure();

  TOdbcUrl FUrl;
  TOdbcConnector FConnector;
  TOdbcLimits FLimits;
  const TOdbcServer* FServer = nullptr;
  std::unique_ptr<TOdbcLink> FLink;
  bool FLost = false;
  std::int64_t FRoundTrips = 0;
  std::string FDatabase;
  std::string FData;
  std::string FSystem;

  std::mutex FRunMutex;  ///< guards the members below
  bool FInRun = false;
  bool FInterrupted = false;
  TOdbcStatement* FAtServer = nullptr;
};

/// Interrupt() means what runs while one of these lives.
class TOdbcRun {
 public:
  explicit TOdbcRun(TOdbcConnection& connection) : FConnection(connection) { FConnection.BeginRun(); }
  ~TOdbcRun() { FConnection.EndRun(); }
  TOdbcRun(const TOdbcRun&) = delete;
  TOdbcRun& operator=(const TOdbcRun&) = delete;

 private:
  TOdbcConnection& FConnection;
};

/// A transaction; taken back when the block is left without Commit.
class TOdbcTransaction {
 public:
  explicit TOdbcTransaction(TOdbcConnection& connection);
  ~TOdbcTransaction();
  TOdbcTransaction(const TOdbcTransaction&) = delete;
  TOdbcTransaction& operator=(const TOdbcTransaction&) = delete;
  void Commit();

 private:
  void End(bool keep);

  TOdbcConnection& FConnection;
  bool FOpen = true;
};

}  // namespace zanhost
