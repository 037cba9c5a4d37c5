#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

#include "host/query/Adaptation.h"
#include "host/query/DataUrl.h"
#include "host/query/Database.h"
#include "host/query/MariaDb/Connection.h"
#include "host/query/MariaDb/Prepared.h"
#include "host/query/RecentlyUsed.h"

namespace zanhost {

/// Data and system database on a MariaDB server, which runs the texts for MySQL. One connection serves both:
/// a query brings its database into use before it runs. After a lost connection the next query connects anew.
class TMariaDbDatabase final : public TDatabase {
 public:
  /// Raises EDatabaseError with a text for a person when the server cannot be used, with what to set on it.
  /// MustExist wants the routines of the schema as well, CreateIfMissing makes databases that are missing.
  TMariaDbDatabase(const TMariaDbUrl& url, TOpenMode mode);

  const TDialectFamily& Family() const override;
  std::unique_ptr<zanrole::TZANQuery> GetQuery() override;
  std::unique_ptr<zanrole::TZANQuery> GetSysQuery() override;

  void SetTrace(TTrace* trace) override { FTrace = trace; }
  void Interrupt() noexcept override { FConnection->Interrupt(); }
  /// Begins in the data database; "use" changes it. The definitions of a script stay when it fails.
  void ExecScript(std::string_view script) override;
  void BackupTo(const std::string& file) override;

  /// When this session gives up; may be changed between two statements.
  void SetLimits(TMariaDbLimits limits);

 private:
  friend class TMariaDbQuery;

  /// One call of a query on its way through the engine.
  struct TRun {
    zanrole::TZANQuery& Query;
    bool OnSystem;
    std::string Text;
    /// Where the first result goes; null when none is wanted.
    zanrole::TDataSet* Result;
    bool HasResult = false;
    /// Rows that were changed.
    std::int64_t Changed = 0;
    /// What was sent; gathered only while a trace is on.
    std::string Sent;
  };

  /// Runs what the query holds. Raises EDatabaseError.
  void Run(zanrole::TZANQuery& query, bool onSystem, zanrole::TDataSet* result);

  void Execute(TRun& run);
  void UseDatabase(const std::string& database);
  void ExecuteBatch(TRun& run, TStatementTexts& texts);
  /// One statement: sent as it stands when it has no parameters, otherwise prepared; kept under `key`.
  void ExecuteStatement(TRun& run, TTokens& tokens, std::string key);
  void ExecuteText(TRun& run, const std::string& text);
  void ExecutePrepared(TRun& run, TMariaDbPrepared& statement);
  std::shared_ptr<TMariaDbPrepared> Prepare(std::string text, std::vector<std::string> paramNames);
  void ReadTextResult(TRun& run);
  void ReadPreparedResult(TRun& run, MYSQL_STMT* statement);
  void NoteSent(TRun& run, const std::string& text) const;
  void TraceRun(const TRun& run, std::chrono::steady_clock::time_point start, const TMariaDbFault* fault);

  // Prepared statements go before the connection that they belong to.
  std::unique_ptr<TMariaDbConnection> FConnection;
  TRecentlyUsed<TMariaDbPrepared> FCache;
  TTrace* FTrace = nullptr;
};

}  // namespace zanhost
