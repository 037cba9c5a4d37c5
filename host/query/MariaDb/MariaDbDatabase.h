#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "host/query/DataUrl.h"
#include "host/query/Database.h"
#include "host/query/MariaDb/Connection.h"
#include "host/query/MariaDb/Flavour.h"
#include "host/query/MariaDb/Prepared.h"
#include "host/query/ServerRun.h"
#include "host/query/StatementCache.h"
#include "host/query/StatementReader.h"

namespace zanhost {

/// Data and system database on a MariaDB server, which runs the texts for MySQL or, in its Oracle mode, those
/// for Oracle. One connection serves both: a query brings its database into use before it runs. A connection
/// that was lost, given back, or ended by the server while nobody used it is made anew by the next query.
class TMariaDbDatabase final : public TDatabase {
 public:
  /// Raises EDatabaseError with a text for a person when the server cannot be used, with what to set on it.
  /// MustExist wants the routines of the schema as well, CreateIfMissing makes databases that are missing.
  /// Restricted wants an account that can neither write nor read passwords, and no routines.
  TMariaDbDatabase(const TMariaDbUrl& url, TOpenMode mode, TAccess access = TAccess::Full);

  const TDialectFamily& Family() const override { return FFlavour.Family(); }
  TServerKind Server() const override { return TServerKind::MariaDb; }
  std::unique_ptr<zanrole::TZANQuery> GetQuery() override;
  std::unique_ptr<zanrole::TZANQuery> GetSysQuery() override;

  void SetTrace(TTrace* trace) override { FTrace = trace; }
  void Interrupt() noexcept override { FConnection->Interrupt(); }
  /// So that more sessions than the server takes connections can live side by side.
  void ReleaseIdle() noexcept override;
  /// Begins in the data database; "use" changes it. A script for Oracle is adapted as its statements are. The
  /// definitions of a script stay when it fails.
  void ExecScript(std::string_view script) override;
  void BackupTo(const std::string& file) override;

  /// When this session gives up; may be changed between two statements.
  void SetLimits(TMariaDbLimits limits);

 private:
  friend class TMariaDbQuery;

  using TRun = TServerRun;

  /// Runs what the query holds. Raises EDatabaseError.
  void Run(zanrole::TZANQuery& query, bool onSystem, zanrole::TDataSet* result);

  void Execute(TRun& run);
  /// REQUIRES: restricted.
  static void CheckCallerText(const std::string& text);
  /// What was prepared goes with a connection that is no longer there.
  void EnsureConnected();
  void ForgetPrepared() noexcept;
  const std::string& DatabaseOf(const TRun& run) const;
  TStatementCache<TMariaDbPrepared>& CacheOf(const TRun& run);
  /// Brings the run's database into use. A prepared statement needs that only when it is prepared.
  void UseDatabase(const TRun& run);

  /// All statements in one transaction, by as few calls as the server takes them.
  void ExecuteBatch(TRun& run, std::string_view batch);
  /// One by one, as statements with parameters must be.
  void ExecuteStepByStep(TRun& run, std::string_view batch);
  /// As one statement of the server.
  void ExecuteBlock(TRun& run);
  /// The longest text to be sent for it.
  std::size_t GreatestTextFor(std::string_view batch);
  void ExecuteTransaction(TRun& run, const std::vector<std::string>& texts);
  static void CheckThatBatchGaveResult(const TRun& run);

  // The statement of FShape:
  void ExecuteSingle(TRun& run);
  /// Null when it is to be sent as a text.
  std::shared_ptr<TMariaDbPrepared> Prepare(const TRun& run, const TTokens& adapted);
  bool ComesAgain(const TRun& run, const TTokens& bound);
  void FillIn(TMariaDbPrepared& statement, TTokens& tokens, const TLiteralBinding& binding);
  void ExecutePrepared(TRun& run, TMariaDbPrepared& statement);

  void ExecuteText(TRun& run, const std::string& text);
  void ReadTextResult(TRun& run);
  zanrole::TZanCells ReadRowsWithinLimits(MYSQL_RES& result);
  void ReadPreparedResult(TRun& run, MYSQL_STMT* statement);
  void NoteSent(TRun& run, const std::string& text) const;

  const TMariaDbFlavour& FFlavour;
  // Prepared statements go before the connection that they belong to.
  std::unique_ptr<TMariaDbConnection> FConnection;
  /// Of the data and of the system database: what a name means depends on the database in which the statement
  /// was prepared.
  std::array<TStatementCache<TMariaDbPrepared>, 2> FCaches;
  /// Of each statement that was sent as a text, a hash; a later one takes the place of an earlier one.
  std::array<std::size_t, 256> FSentOnce{};
  TStatementShape FShape;  ///< of the statement that was read last
  TTrace* FTrace = nullptr;
};

}  // namespace zanhost
