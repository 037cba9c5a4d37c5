#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "host/query/Database.h"

namespace zantest {

/// One statement on its way to the engine.
struct TSentStatement {
  enum class TKind { Open, Exec, Script };
  bool OnSystem = false;
  TKind Kind = TKind::Exec;
  std::string Text;
  std::vector<std::pair<std::string, zanrole::TZanValue>> Params;

  /// Several statements in one call: "begin … end;" or a call of MySql_execute_MultiSql.
  bool IsBatch() const;
};

/// Sends a statement once more, as it was sent, to a database that makes nothing fail.
void SendAgain(zanhost::TDatabase& database, const TSentStatement& statement);

/// Stands before a real engine and notes every statement. One of them can be made to fail.
class TFaultyDatabase final : public zanhost::TDatabase {
 public:
  enum class TPlace {
    /// The statement never reaches the engine.
    BeforeTheEngine,
    /// The engine gets a batch whose last statement it refuses. REQUIRES: the statement is a batch.
    InsideTheBatch
  };
  /// The message of a statement that never reached the engine.
  static constexpr char kMessage[] = "The engine was made to fail.";

  /// `engine` must outlive the object.
  explicit TFaultyDatabase(zanhost::TDatabase& engine) : FEngine(&engine) {}

  /// The n-th statement from now fails (1 is the next); 0 for none.
  void FailAt(int n, TPlace place = TPlace::BeforeTheEngine);
  /// Runs `meanwhile` just before the next statement that contains `part`, once.
  void Before(std::string part, std::function<void()> meanwhile);
  /// The statements since the last FailAt, with the one that failed.
  const std::vector<TSentStatement>& Sent() const { return FSent; }

  const zanhost::TDialectFamily& Family() const override { return FEngine->Family(); }
  zanhost::TServerKind Server() const override { return FEngine->Server(); }
  std::unique_ptr<zanrole::TZANQuery> GetQuery() override;
  std::unique_ptr<zanrole::TZANQuery> GetSysQuery() override;
  void SetTrace(zanhost::TTrace* trace) override { FEngine->SetTrace(trace); }
  void Interrupt() noexcept override { FEngine->Interrupt(); }
  void ExecScript(std::string_view script) override;
  void BackupTo(const std::string& file) override { FEngine->BackupTo(file); }

 private:
  friend class TFaultyQuery;
  /// Notes the statement and gives the text to send. Raises EDatabaseError when it is the one that fails.
  std::string Pass(TSentStatement statement);

  zanhost::TDatabase* FEngine;
  std::vector<TSentStatement> FSent;
  std::size_t FFailAt = 0;
  TPlace FPlace = TPlace::BeforeTheEngine;
  std::string FAwaited;
  std::function<void()> FMeanwhile;
};

}  // namespace zantest
