#include "tests/conformance/engines/MariaDbEngine.h"

#include "host/platform/Schema.h"
#include "host/query/MariaDb/MariaDbDatabase.h"
#include "tests/support/MariaDbServer.h"

namespace zantest {

TMariaDbEngine::TMariaDbEngine(std::string options, std::span<const zanhost::TSchemaFile> routines)
    : FOptions(std::move(options)) {
  const auto session = OpenSession();
  for (const zanhost::TSchemaFile& file : routines)
    if (file.Name.find("routines") != std::string_view::npos) session->ExecScript(file.Text);
}

TMariaDbEngine::~TMariaDbEngine() {
  const auto session = OpenSession();
  const auto query = session->GetQuery();
  for (const std::string& database : {FData, FSystem}) {
    query->SQL().SetText("drop database " + database);
    query->ExecSQL();
  }
}

std::string TMariaDbEngine::Url() const { return TMariaDbServer::Instance().Url(FData, FSystem) + FOptions; }

std::unique_ptr<zanhost::TDatabase> TMariaDbEngine::OpenSession() {
  return zanhost::OpenDatabase(Url(), zanhost::TOpenMode::CreateIfMissing);
}

void TMariaDbEngine::InstallSchema() { zanhost::InstallSchema(*OpenSession()); }

void TMariaDbEngine::WaitAtMostMilliseconds(zanhost::TDatabase& session, int milliseconds) {
  // The server counts whole seconds.
  zanhost::TMariaDbLimits limits;
  limits.Busy = std::chrono::ceil<std::chrono::seconds>(std::chrono::milliseconds(milliseconds));
  dynamic_cast<zanhost::TMariaDbDatabase&>(session).SetLimits(limits);
}

INSTANTIATE_TEST_SUITE_P(MariaDb, Conformance,
                         testing::Values(TEngineDeclaration{"MariaDb", WhyNoMariaDbServer,
                                                            []() -> std::unique_ptr<TEngine> {
                                                              return std::make_unique<TMariaDbEngine>(
                                                                  "", zanhost::MySqlSchemaFiles());
                                                            }}),
                         [](const auto& declared) { return declared.param.Name; });

}  // namespace zantest
