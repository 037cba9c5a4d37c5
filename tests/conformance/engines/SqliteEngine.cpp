#include "host/platform/Schema.h"
#include "host/query/Sqlite/SqliteDatabase.h"
#include "tests/conformance/Conformance.h"
#include "tests/support/TemporaryFolder.h"

namespace zantest {

namespace {

class TSqliteEngine final : public TEngine {
 public:
  std::string Url() const override { return "sqlite:" + FFolder.Path().string(); }
  std::unique_ptr<zanhost::TDatabase> OpenSession() override {
    return zanhost::OpenDatabase(Url(), zanhost::TOpenMode::CreateIfMissing);
  }
  void InstallSchema() override { zanhost::InstallSchema(*OpenSession()); }

  std::string TextType(int length) const override { return "nvarchar(" + std::to_string(length) + ")"; }
  std::string LongTextType() const override { return "text"; }
  std::string BooleanType() const override { return "bit"; }
  std::string DateTimeType() const override { return "datetime"; }

  std::string CatalogueStatement() const override {
    return "select m.name, c.name from sqlite_master m, pragma_table_info(m.name) c"
           " where m.type = 'table' and m.name not like 'sqlite_%'";
  }

  void WaitAtMostMilliseconds(zanhost::TDatabase& session, int milliseconds) override {
    dynamic_cast<zanhost::TSqliteDatabase&>(session).Limits().Busy = std::chrono::milliseconds(milliseconds);
  }

 private:
  TTemporaryFolder FFolder;
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Sqlite, Conformance,
                         testing::Values(TEngineDeclaration{
                             "Sqlite", [] { return std::string(); },
                             []() -> std::unique_ptr<TEngine> { return std::make_unique<TSqliteEngine>(); }}),
                         [](const auto& declared) { return declared.param.Name; });

}  // namespace zantest
