#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "host/query/Adaptation.h"
#include "host/query/DataUrl.h"
#include "host/query/Database.h"
#include "host/query/Odbc/Connection.h"
#include "host/query/RecentlyUsed.h"
#include "host/query/ServerRun.h"

namespace zanhost {

/// Data and system database behind an ODBC driver, in the dialect of the server that the driver leads to. One
/// connection serves both: a query brings its database into use before it runs. After a lost connection the
/// next query connects anew.
class TOdbcDatabase final : public TDatabase {
 public:
  /// Raises EDatabaseError with a text for a person when driver, server or databases cannot be used.
  /// MustExist wants the routines of the schema where the server's record looks for them; CreateIfMissing
  /// makes databases that are missing. `connector` is another one in tests.
  TOdbcDatabase(const TOdbcUrl& url, TOpenMode mode, TOdbcConnector connector = ConnectOdbc);

  const TDialectFamily& Family() const override { return FConnection->Server().Family(); }
  TServerKind Server() const override { return FConnection->Server().Server; }
  std::unique_ptr<zanrole::TZANQuery> GetQuery() override;
  std::unique_ptr<zanrole::TZANQuery> GetSysQuery() override;

  void SetTrace(TTrace* trace) override { FTrace = trace; }
  void Interrupt() noexcept override { FConnection->Interrupt(); }
  /// Begins in the data database; a statement may bring another into use. What the server cannot take back,
  /// stays when a script fails.
  void ExecScript(std::string_view script) override;
  void BackupTo(const std::string& file) override;

  /// When this session gives up; may be changed between two statements.
  void SetLimits(TOdbcLimits limits);

 private:
  friend class TOdbcQuery;

  /// A statement that the server has prepared, with what running it needs to know.
  struct TPrepared {
    std::unique_ptr<TOdbcStatement> Statement;
    std::string Sent;
    /// Names of the parameters, in the order of their places; a name may come several times.
    std::vector<std::string> ParamNames;
    bool MayHaveSeveralAnswers = false;
  };

  using TRun = TServerRun;

  /// Runs what the query holds. Raises EDatabaseError.
  void Run(zanrole::TZANQuery& query, bool onSystem, zanrole::TDataSet* result);
  void Execute(TRun& run);
  void UseDatabase(const std::string& database);
  void ExecuteBatch(TRun& run, TStatementTexts& texts);
  /// One statement: sent as it stands when it has no parameters, otherwise prepared; kept under `key`.
  void ExecuteStatement(TRun& run, TTokens& tokens, std::string key);
  void ExecuteText(TRun& run, const std::string& text, bool mayHaveSeveralAnswers);
  void ExecutePrepared(TRun& run, TPrepared& prepared);
  void ReadAnswers(TRun& run, TOdbcStatement& statement, bool mayBeSeveral);
  void NoteSent(TRun& run, const std::string& text) const;

  // Prepared statements go before the connection that they belong to.
  std::unique_ptr<TOdbcConnection> FConnection;
  TRecentlyUsed<std::shared_ptr<TPrepared>> FCache;
  TTrace* FTrace = nullptr;
};

}  // namespace zanhost
