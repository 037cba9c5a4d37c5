#include "host/query/MariaDb/MariaDbDatabase.h"

#include "host/query/MariaDb/Checks.h"
#include "host/query/MariaDb/MariaDbQuery.h"
#include "host/query/MariaDb/RestrictedAccount.h"
#include "host/query/Redaction.h"

namespace zanhost {

using zanrole::EDatabaseError;

namespace {

// A server keeps some 16,000 prepared statements for all its sessions.
constexpr std::size_t kCachedStatements = 48;

std::unique_ptr<TMariaDbConnection> ConnectAndCheck(const TMariaDbUrl& url, TOpenMode mode, TAccess access) {
  try {
    auto connection = std::make_unique<TMariaDbConnection>(url, access);
    const auto ask = [&](const std::string& statement) { return connection->Ask(statement); };
    const TInspection inspection{ask, url.Server(), url.User, {url.Data, url.System}, mode};
    if (access == TAccess::Restricted) {
      InspectMariaDb(inspection, {});
      InspectRestrictedAccount(inspection);
    } else {
      InspectMariaDb(inspection, MariaDbFlavourOf(url.Dialect).Routines);
    }
    return connection;
  } catch (const TMariaDbFault& fault) {
    throw EDatabaseError(fault.Message, {});
  }
}

}  // namespace

TMariaDbDatabase::TMariaDbDatabase(const TMariaDbUrl& url, TOpenMode mode, TAccess access)
    : FFlavour(MariaDbFlavourOf(url.Dialect)),
      FConnection(ConnectAndCheck(url, mode, access)),
      FCaches{TStatementCache<TMariaDbPrepared>(kCachedStatements),
              TStatementCache<TMariaDbPrepared>(kCachedStatements)} {}

std::unique_ptr<zanrole::TZANQuery> TMariaDbDatabase::GetQuery() {
  return std::make_unique<TMariaDbQuery>(*this, /*onSystem*/ false);
}
std::unique_ptr<zanrole::TZANQuery> TMariaDbDatabase::GetSysQuery() {
  return std::make_unique<TMariaDbQuery>(*this, /*onSystem*/ true);
}

void TMariaDbDatabase::SetLimits(TMariaDbLimits limits) {
  try {
    FConnection->SetLimits(limits);
  } catch (const TMariaDbFault& fault) {
    throw EDatabaseError(fault.Message, {});
  }
}

void TMariaDbDatabase::ForgetPrepared() noexcept {
  for (TStatementCache<TMariaDbPrepared>& cache : FCaches) cache.Clear();
}

void TMariaDbDatabase::ReleaseIdle() noexcept {
  FConnection->Release();
  if (FConnection->IsLost()) ForgetPrepared();
}

void TMariaDbDatabase::ExecScript(std::string_view script) {
  std::vector<std::string> statements;
  std::string_view running;
  try {
    statements = FFlavour.ScriptStatements(script);
    EnsureConnected();
    FConnection->Use(FConnection->Url().Data);
    const TRunningStatement interruptible(*FConnection);
    TMariaDbTransaction transaction(*FConnection);
    for (const std::string& statement : statements) {
      running = statement;
      FConnection->Exec(statement);
    }
    transaction.Commit();
    FConnection->ForgetDatabaseInUse();
  } catch (const TMariaDbFault& fault) {
    FConnection->ForgetDatabaseInUse();
    throw EDatabaseError(fault.Message, RedactStatement(running));
  }
}

void TMariaDbDatabase::BackupTo(const std::string&) {
  throw EDatabaseError(
      "A copy of databases on a MariaDB server is made with the server's own program: mariadb-dump "
      "--single-transaction --routines --databases DATA SYSTEM > FILE",
      {});
}

}  // namespace zanhost
