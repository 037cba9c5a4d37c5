#pragma once

#include <gtest/gtest.h>

#include "host/query/DataUrl.h"
#include "tests/host/Rows.h"
#include "tests/support/MariaDbServer.h"

namespace zantest {

using zanhost::TOpenMode;
using zanrole::EDatabaseError;

inline std::string Cell(zanhost::TDatabase& database, std::string_view text) {
  const auto query = database.GetQuery();
  query->SQL().SetText(std::string(text));
  query->Open();
  return query->Eof() ? "(none)" : query->Fields(0).AsString();
}

/// The sentence with which the work fails.
template <typename TWork>
std::string FaultOf(TWork work) {
  try {
    work();
  } catch (const EDatabaseError& error) {
    return error.Message();
  }
  return "(no fault)";
}

inline testing::AssertionResult Holds(const std::string& text, std::string_view part) {
  if (text.find(part) != std::string::npos) return testing::AssertionSuccess();
  return testing::AssertionFailure() << '"' << text << "\" lacks \"" << part << '"';
}

/// Databases of its own on the server of this program.
class MariaDb : public testing::Test {
 protected:
  /// What stands behind the URL.
  explicit MariaDb(std::string options = {}) : FOptions(std::move(options)) {}

  void SetUp() override {
    const std::string whyNot = WhyNoMariaDbServer();
    if (!whyNot.empty()) GTEST_SKIP() << whyNot;
    FDatabase = Open();
  }
  void TearDown() override {
    if (FDatabase == nullptr) return;
    Execute(*FDatabase, "drop database " + FData);
    Execute(*Open(), "drop database " + FSystem);
  }

  std::string Url() const { return TMariaDbServer::Instance().Url(FData, FSystem) + FOptions; }
  std::unique_ptr<zanhost::TDatabase> Open(TOpenMode mode = TOpenMode::CreateIfMissing) {
    return zanhost::OpenDatabase(Url(), mode);
  }
  zanhost::TDatabase& Database() { return *FDatabase; }

 private:
  static inline int FMade = 0;
  std::string FOptions;
  std::string FData = "host_data_" + std::to_string(++FMade);
  std::string FSystem = "host_system_" + std::to_string(FMade);
  std::unique_ptr<zanhost::TDatabase> FDatabase;
};

}  // namespace zantest
