#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "host/query/DataUrl.h"
#include "host/query/Database.h"
#include "host/query/Sqlite/Connection.h"
#include "host/query/Sqlite/KnownStatements.h"
#include "host/query/StatementCache.h"
#include "host/query/StatementReader.h"

namespace zanhost {

/// The embedded database: FOLDER/zanrole.db is data and system database, and runs the texts for SQL Server.
class TSqliteDatabase final : public TDatabase {
 public:
  /// Raises EDatabaseError with a text for a person.
  TSqliteDatabase(const std::string& folder, TOpenMode mode, TAccess access = TAccess::Full);

  const TDialectFamily& Family() const override;
  TServerKind Server() const override { return TServerKind::Sqlite; }
  std::unique_ptr<zanrole::TZANQuery> GetQuery() override;
  std::unique_ptr<zanrole::TZANQuery> GetSysQuery() override;

  void SetTrace(TTrace* trace) override { FTrace = trace; }
  void Interrupt() noexcept override { FConnection.Interrupt(); }
  void ExecScript(std::string_view script) override;
  void BackupTo(const std::string& file) override;

  /// When this connection gives up; may be changed at any time between two statements.
  TSqliteLimits& Limits() { return FConnection.Limits(); }

 private:
  friend class TSqliteQuery;

  /// One call of a query on its way through the engine.
  struct TRun {
    zanrole::TZANQuery& Query;
    std::string_view Database;
    const std::string& Text;
    /// Where the first result goes; null when none is wanted.
    zanrole::TDataSet* Result;
    bool HasResult = false;
    /// How many statements of the text have been started.
    std::size_t Started = 0;
  };

  /// Runs what the query holds. Raises EDatabaseError.
  void Run(zanrole::TZANQuery& query, std::string_view database, zanrole::TDataSet* result);

  void Execute(TRun& run);
  /// REQUIRES: restricted.
  static void CheckCallerText(const std::string& text);
  void ExecuteBatch(TRun& run, TStatementReader& reader, bool hasStatement);
  void ExecuteSingle(TRun& run, TSqlitePrepared& statement, const TTokens& literals);
  /// `literals` are those of the module's text.
  void ExecuteStatement(TRun& run, TSqlitePrepared& statement, const TTokens& literals);
  /// The statement of FShape, from the cache or prepared now.
  std::shared_ptr<TSqlitePrepared> FindStatement();
  std::shared_ptr<TSqlitePrepared> Prepare();
  void Bind(TSqlitePrepared& statement, zanrole::TZANQuery& query, const TTokens& literals);
  void ReadResult(TRun& run, TSqlitePrepared& statement);
  void TraceRun(const TRun& run, std::chrono::steady_clock::time_point start, sqlite3_int64 changesBefore,
                const TSqliteFault* fault);

  const TAccess FAccess;
  TSqliteConnection FConnection;
  TStatementCache<TSqlitePrepared> FCache;
  TKnownStatements FKnown;
  TStatementShape FShape;  ///< of the statement that was read last
  TTrace* FTrace = nullptr;
};

}  // namespace zanhost
