#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "Frame/Host/Zandbs.h"

namespace zanhost {

/// What driver manager or driver say of a failed call: the first of its diagnostic records.
struct TOdbcError {
  std::string State;  ///< SQLSTATE
  long Number = 0;    ///< the server's own number
  std::string Text;   ///< without the names of driver and server in front
  bool Dead = false;  ///< the driver holds the connection for dead
};

/// One answer of a statement: a result, or a count of rows that were changed.
struct TOdbcAnswer {
  std::vector<std::string> Columns;  ///< empty for a count
  zanrole::TZanCells Cells;
  std::int64_t Changed = 0;
};

/// A statement of a driver. All members but Cancel belong to one thread; failing ones throw TOdbcError.
class TOdbcStatement {
 public:
  virtual ~TOdbcStatement() = default;

  /// How long it may run; a driver that cannot do that lets it run.
  virtual void SetTimeLimit(std::chrono::seconds limit) = 0;
  /// Runs a text and stands on its first answer.
  virtual void Execute(const std::string& text) = 0;
  virtual void Prepare(const std::string& text) = 0;
  /// Runs what was prepared with one value for each "?"; they must outlive the call.
  virtual void Execute(const std::vector<const zanrole::TZanValue*>& values) = 0;
  /// Reads the answer that the statement stands on; the rows only when they are wanted.
  virtual TOdbcAnswer ReadAnswer(bool wanted) = 0;
  /// Stands on the next answer; false when there is none.
  virtual bool NextAnswer() = 0;
  /// Throws away what was not read, so that the connection is free for other statements.
  virtual void Close() noexcept = 0;
  /// Ends the run, from any thread.
  virtual void Cancel() noexcept = 0;
};

/// A connection of a driver: all that the engine asks of ODBC. Statements must not outlive it.
class TOdbcLink {
 public:
  virtual ~TOdbcLink() = default;

  /// The name that the driver gives to the product behind it.
  virtual std::string ProductName() = 0;
  virtual std::unique_ptr<TOdbcStatement> NewStatement() = 0;
  /// A transaction for servers without a statement that begins one.
  virtual void BeginTransaction() = 0;
  virtual void EndTransaction(bool keep) = 0;
};

/// Connects by the driver manager of this machine. `connection` is a connection string. Throws TOdbcError.
std::unique_ptr<TOdbcLink> ConnectOdbc(const std::string& connection);

/// How an engine connects; other than ConnectOdbc only in tests.
using TOdbcConnector = std::unique_ptr<TOdbcLink> (*)(const std::string& connection);

}  // namespace zanhost
