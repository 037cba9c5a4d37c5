#pragma once

#include "host/platform/SchemaFiles.h"
#include "tests/conformance/Conformance.h"
#include "tests/support/MariaDbServer.h"

namespace zantest {

/// Two databases on the server of this program.
class TMariaDbEngine : public TEngine {
 public:
  /// `options` go behind the URL; `routines` are the scripts that make what batches and statements call, also
  /// where a case needs no table of the product.
  TMariaDbEngine(std::string options, std::span<const zanhost::TSchemaFile> routines);
  ~TMariaDbEngine() override;

  std::string Url() const override;
  std::unique_ptr<zanhost::TDatabase> OpenSession() override;
  void InstallSchema() override;
  bool HasServer() const override { return true; }
  void KillServer() override { TMariaDbServer::Instance().Kill(); }
  void StartServer() override { TMariaDbServer::Instance().Start(); }

  std::string TextType(int length) const override { return "varchar(" + std::to_string(length) + ")"; }
  std::string LongTextType() const override { return "longtext"; }
  std::string BooleanType() const override { return "tinyint"; }
  std::string DateTimeType() const override { return "datetime"; }

  void WaitAtMostMilliseconds(zanhost::TDatabase& session, int milliseconds) override;

 private:
  static inline int FMade = 0;
  std::string FOptions;
  std::string FData = "zan_data_" + std::to_string(++FMade);
  std::string FSystem = "zan_system_" + std::to_string(FMade);
};

}  // namespace zantest
