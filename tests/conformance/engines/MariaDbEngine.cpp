#include "host/platform/Schema.h"
#include "host/platform/SchemaFiles.h"
#include "host/query/MariaDb/MariaDbDatabase.h"
#include "tests/conformance/Conformance.h"
#include "tests/support/MariaDbServer.h"

namespace zantest {

namespace {

/// Two databases on the server of this program.
class TMariaDbEngine final : public TEngine {
 public:
  TMariaDbEngine() { MakeRoutines(); }
  ~TMariaDbEngine() override {
    const auto session = OpenSession();
    const auto query = session->GetQuery();
    for (const std::string& database : {FData, FSystem}) {
      query->SQL().SetText("drop database " + database);
      query->ExecSQL();
    }
  }

  std::unique_ptr<zanhost::TDatabase> OpenSession() override {
    return zanhost::OpenDatabase(TMariaDbServer::Instance().Url(FData, FSystem),
                                 zanhost::TOpenMode::CreateIfMissing);
  }
  void InstallSchema() override { zanhost::InstallSchema(*OpenSession()); }

  std::string TextType(int length) const override { return "varchar(" + std::to_string(length) + ")"; }
  std::string LongTextType() const override { return "longtext"; }
  std::string BooleanType() const override { return "tinyint"; }
  std::string DateTimeType() const override { return "datetime"; }

  void WaitAtMostMilliseconds(zanhost::TDatabase& session, int milliseconds) override {
    // The server counts whole seconds.
    zanhost::TMariaDbLimits limits;
    limits.Busy = std::chrono::ceil<std::chrono::seconds>(std::chrono::milliseconds(milliseconds));
    dynamic_cast<zanhost::TMariaDbDatabase&>(session).SetLimits(limits);
  }

 private:
  /// Batches are run by a stored routine, also where a case needs no table of the product.
  void MakeRoutines() {
    for (const zanhost::TSchemaFile& file : zanhost::MySqlSchemaFiles())
      if (file.Name.find("routines") != std::string_view::npos) OpenSession()->ExecScript(file.Text);
  }

  static inline int FMade = 0;
  std::string FData = "zan_data_" + std::to_string(++FMade);
  std::string FSystem = "zan_system_" + std::to_string(FMade);
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(MariaDb, Conformance,
                         testing::Values(TEngineDeclaration{"MariaDb", WhyNoMariaDbServer,
                                                            []() -> std::unique_ptr<TEngine> {
                                                              return std::make_unique<TMariaDbEngine>();
                                                            }}),
                         [](const auto& declared) { return declared.param.Name; });

}  // namespace zantest
