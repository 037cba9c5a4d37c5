#include "tests/conformance/engines/MariaDbEngine.h"
#include "tests/support/MariaDbServer.h"

namespace zantest {

namespace {

/// The server in its Oracle mode, running the texts for Oracle.
class TMariaDbOracleEngine final : public TMariaDbEngine {
 public:
  TMariaDbOracleEngine() : TMariaDbEngine("&dialect=oracle", zanhost::MariaDbOracleSchemaFiles()) {}

  std::string TextType(int length) const override { return "nvarchar2(" + std::to_string(length) + ")"; }
  std::string LongTextType() const override { return "nclob"; }
  std::string BooleanType() const override { return "number(1)"; }
  std::string DateTimeType() const override { return "date"; }
  bool EmptyTextIsNull() const override { return true; }

  /// In this mode 10.11.18 takes the selects of a union for selects within each other; 10.11.19 does not.
  std::string WhyNoUnions() override {
    const auto session = OpenSession();
    const auto query = session->GetQuery();
    query->SQL().SetText("select 1, 1 from dual union all select 1, 2 from dual");
    try {
      query->Open();
      return {};
    } catch (const zanrole::EDatabaseError& fault) {
      return "this server, in Oracle mode, nests the selects of a union: " + fault.Message();
    }
  }
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(MariaDbOracle, Conformance,
                         testing::Values(TEngineDeclaration{"MariaDbOracle", WhyNoMariaDbServer,
                                                            []() -> std::unique_ptr<TEngine> {
                                                              return std::make_unique<TMariaDbOracleEngine>();
                                                            }}),
                         [](const auto& declared) { return declared.param.Name; });

}  // namespace zantest
