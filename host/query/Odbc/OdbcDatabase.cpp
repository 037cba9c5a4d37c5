#include "host/query/Odbc/OdbcDatabase.h"

#include "host/query/Odbc/OdbcQuery.h"
#include "host/query/Redaction.h"

namespace zanhost {

using zanrole::EDatabaseError;

namespace {

// A server keeps prepared statements for all its sessions, and not without end.
constexpr std::size_t kCachedStatements = 64;

std::unique_ptr<TOdbcConnection> Connect(const TOdbcUrl& url, TOdbcConnector connector) {
  try {
    return std::make_unique<TOdbcConnection>(url, connector);
  } catch (const TOdbcError& error) {
    const TOdbcFaultContext context{url.Server(), url.User(), url.Password, {}, {}};
    throw EDatabaseError(DescribeOdbcFault(error, context).Message, {});
  }
}

}  // namespace

TOdbcDatabase::TOdbcDatabase(const TOdbcUrl& url, TOpenMode mode, TOdbcConnector connector)
    : FConnection(Connect(url, connector)), FCache(kCachedStatements) {
  const auto ask = [&](const std::string& statement) { return FConnection->Ask(statement); };
  try {
    FConnection->Server().Inspect(
        {ask, url.Server(), url.User(), {FConnection->Data(), FConnection->System()}, mode});
  } catch (const TOdbcError& error) {
    throw EDatabaseError(FConnection->Describe(error).Message, {});
  }
}

std::unique_ptr<zanrole::TZANQuery> TOdbcDatabase::GetQuery() {
  return std::make_unique<TOdbcQuery>(*this, /*onSystem*/ false);
}
std::unique_ptr<zanrole::TZANQuery> TOdbcDatabase::GetSysQuery() {
  return std::make_unique<TOdbcQuery>(*this, /*onSystem*/ true);
}

void TOdbcDatabase::SetLimits(TOdbcLimits limits) {
  // The driver's limit is an attribute of each statement.
  FCache.Clear();
  try {
    FConnection->SetLimits(limits);
  } catch (const TOdbcError& error) {
    throw EDatabaseError(FConnection->Describe(error).Message, {});
  }
}

void TOdbcDatabase::ExecScript(std::string_view script) {
  std::string_view running;
  try {
    FConnection->Telling([&] {
      UseDatabase(FConnection->Data());
      const TOdbcRun interruptible(*FConnection);
      TOdbcTransaction transaction(*FConnection);
      for (const std::string_view statement : FConnection->Server().SplitScript(script)) {
        running = statement;
        FConnection->Exec(std::string(statement));
      }
      transaction.Commit();
    });
    FConnection->ForgetDatabaseInUse();
  } catch (const TOdbcFault& fault) {
    FConnection->ForgetDatabaseInUse();
    throw EDatabaseError(fault.Message, RedactStatement(running));
  }
}

void TOdbcDatabase::BackupTo(const std::string&) {
  throw EDatabaseError(std::string(FConnection->Server().BackupAdvice), {});
}

}  // namespace zanhost
