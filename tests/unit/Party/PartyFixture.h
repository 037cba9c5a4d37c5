#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/support/RecordingHost.h"

namespace zantest {

/// What the tests of the organisation share: a recording host in each of the three dialects.
class TPartyTest : public testing::TestWithParam<TDialect> {
 protected:
  TRecordingHost FHost{GetParam()};

  /// Runs `act` and gives the squeezed texts of the statements that it sent, also when it raises.
  std::vector<std::string> StatementsOf(const std::function<void()>& act) {
    FHost.Statements.clear();
    act();
    return FHost.Texts();
  }
  /// The text of three that the dialect takes.
  std::string ByDialect(std::string sqlServer, std::string oracle, std::string mySql) const {
    if (GetParam() == TDialect::MySql) return mySql;
    return GetParam() == TDialect::Oracle ? oracle : sqlServer;
  }
  /// `statements` as one batch; `quoted` is the same text with its quotes doubled.
  std::string Batch(const std::string& statements, const std::string& quoted) const {
    const std::string block = "begin " + statements + " end;";
    return ByDialect(block, block, "call MySql_execute_MultiSql('" + quoted + "')");
  }
  std::string Batch(const std::string& statements) const { return Batch(statements, statements); }
};

inline std::string DialectName(const testing::TestParamInfo<TDialect>& dialect) {
  static constexpr const char* kNames[] = {"SqlServer", "Oracle", "MySql"};
  return kNames[static_cast<int>(dialect.param)];
}

/// Runs the tests of a fixture derived from TPartyTest in every dialect.
#define IN_EVERY_DIALECT(fixture)                                                                   \
  INSTANTIATE_TEST_SUITE_P(Dialects, fixture,                                                       \
                           testing::Values(TDialect::SqlServer, TDialect::Oracle, TDialect::MySql), \
                           DialectName)

}  // namespace zantest
