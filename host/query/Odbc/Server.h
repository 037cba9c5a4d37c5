#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/query/Database.h"
#include "host/query/Inspection.h"
#include "host/query/Odbc/Fault.h"
#include "host/query/Tokens.h"

namespace zanhost {

/// How a batch reaches the server.
enum class TOdbcBatchWay {
  OneCall,              ///< the whole text at once
  StatementByStatement  ///< each of its statements
};

/// The statements of a transaction; all empty where only the driver can begin one.
struct TOdbcTransactionTexts {
  std::string_view Begin;
  std::string_view Keep;
  std::string_view Undo;
};

/// All in which the servers behind ODBC differ for the engine. One record for each server, in Servers/.
struct TOdbcServer {
  TServerKind Server;
  /// The names by which drivers know the product (SQL_DBMS_NAME).
  std::span<const std::string_view> ProductNames;
  const TDialectFamily& (*Family)();

  /// What is sent when a session connects, and when its limits change.
  std::vector<std::string> (*SessionSettings)(const TOdbcLimits& limits);
  /// Raises EDatabaseError that says what is wrong with server or databases and how to set it. Makes
  /// databases that are missing when the mode says so and the server has databases to make.
  void (*Inspect)(const TInspection& inspection);
  /// Gives the name of the database in use.
  std::string_view DatabaseInUse;
  std::string (*UseDatabase)(const std::string& name);

  /// The text of one statement, or of a batch that goes as one call, as it is sent.
  std::string (*Adapt)(TTokens& tokens);
  TOdbcBatchWay Batches;
  TOdbcTransactionTexts Transaction;
  /// May a statement that begins with this word have several answers? Others are not asked for more.
  bool (*MayHaveSeveralAnswers)(const TTokens& tokens);

  /// The driver limits the time of a statement; otherwise the session settings do.
  bool DriverLimitsTime;
  /// Takes an interrupt that came too late; empty where none can.
  std::string_view TakeLateInterrupt;

  std::vector<std::string_view> (*SplitScript)(std::string_view script);
  std::span<const TOdbcTroubleNumber> Troubles;
  /// How a copy of the databases is made.
  std::string_view BackupAdvice;
};

const TOdbcServer& MySqlOnOdbc();
const TOdbcServer& SqlServerOnOdbc();
const TOdbcServer& OracleOnOdbc();

/// The server of a product name. Raises EDatabaseError, naming what is known, for any other product.
const TOdbcServer& FindOdbcServer(const std::string& productName);

}  // namespace zanhost
