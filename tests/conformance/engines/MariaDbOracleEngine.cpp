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
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(MariaDbOracle, Conformance,
                         testing::Values(TEngineDeclaration{"MariaDbOracle", WhyNoMariaDbServer,
                                                            []() -> std::unique_ptr<TEngine> {
                                                              return std::make_unique<TMariaDbOracleEngine>();
                                                            }}),
                         [](const auto& declared) { return declared.param.Name; });

}  // namespace zantest
