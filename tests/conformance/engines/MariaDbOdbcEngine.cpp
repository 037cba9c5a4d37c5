#include "host/platform/Schema.h"
#include "host/platform/SchemaFiles.h"
#include "host/query/Odbc/OdbcDatabase.h"
#include "tests/conformance/Conformance.h"
#include "tests/support/MariaDbServer.h"
#include "tests/support/OdbcDriver.h"
#include "tests/support/TemporaryFolder.h"

namespace zantest {

namespace {

/// Two databases on the server of this program, reached by an ODBC driver.
class TMariaDbOdbcEngine final : public TEngine {
 public:
  TMariaDbOdbcEngine() { MakeRoutines(); }
  ~TMariaDbOdbcEngine() override {
    const auto session = OpenSession();
    const auto query = session->GetQuery();
    for (const std::string& database : {FData, FSystem}) {
      query->SQL().SetText("drop database " + database);
      query->ExecSQL();
    }
  }

  std::string Url() const override { return OdbcUrl(FData, FSystem, FFolder.Path().string()); }
  std::unique_ptr<zanhost::TDatabase> OpenSession() override {
    return zanhost::OpenDatabase(Url(), zanhost::TOpenMode::CreateIfMissing);
  }
  void InstallSchema() override { zanhost::InstallSchema(*OpenSession()); }

  std::string TextType(int length) const override { return "varchar(" + std::to_string(length) + ")"; }
  std::string LongTextType() const override { return "longtext"; }
  std::string BooleanType() const override { return "tinyint"; }
  std::string DateTimeType() const override { return "datetime"; }

  bool HasServer() const override { return true; }
  void KillServer() override { TMariaDbServer::Instance().Kill(); }
  void StartServer() override { TMariaDbServer::Instance().Start(); }

  void WaitAtMostMilliseconds(zanhost::TDatabase& session, int milliseconds) override {
    // The server counts whole seconds.
    zanhost::TOdbcLimits limits;
    limits.Busy = std::chrono::ceil<std::chrono::seconds>(std::chrono::milliseconds(milliseconds));
    dynamic_cast<zanhost::TOdbcDatabase&>(session).SetLimits(limits);
  }

 private:
  /// Batches are run by a stored routine, also where a case needs no table of the product.
  void MakeRoutines() {
    const auto session = OpenSession();
    for (const zanhost::TSchemaFile& file : zanhost::MySqlSchemaFiles())
      if (file.Name.find("routines") != std::string_view::npos) session->ExecScript(file.Text);
  }

  TTemporaryFolder FFolder;
  static inline int FMade = 0;
  std::string FData = "zan_odbc_data_" + std::to_string(++FMade);
  std::string FSystem = "zan_odbc_system_" + std::to_string(FMade);
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(MariaDbOdbc, Conformance,
                         testing::Values(TEngineDeclaration{"MariaDbOdbc", WhyNoOdbcDriver,
                                                            []() -> std::unique_ptr<TEngine> {
                                                              return std::make_unique<TMariaDbOdbcEngine>();
                                                            }}),
                         [](const auto& declared) { return declared.param.Name; });

}  // namespace zantest
