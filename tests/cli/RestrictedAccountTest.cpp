#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "host/query/DataUrl.h"
#include "host/query/RestrictedDatabase.h"
#include "tests/cli/Program.h"
#include "tests/support/MariaDbServer.h"

using testing::HasSubstr;
using zantest::RunProgram;
using zantest::TRan;

namespace {

void Execute(zanhost::TDatabase& database, const std::string& statement) {
  const auto query = database.GetQuery();
  query->SQL().SetText(statement);
  query->ExecSQL();
}

}  // namespace

TEST(RestrictedAccountCommand, PrintsTheRightsOfAnAccountThatThenServes) {
  if (const std::string whyNot = zantest::WhyNoMariaDbServer(); !whyNot.empty()) GTEST_SKIP() << whyNot;
  const std::string url = zantest::TMariaDbServer::Instance().Url("cli_asked_data", "cli_asked_system");
  ASSERT_EQ(RunProgram({"schema", "--data", url}).Status, 0);
  const TRan printed = RunProgram({"restricted-account", "--data", url, "--account", "cli_asker@localhost"});
  ASSERT_EQ(printed.Status, 0) << printed.Err;

  const auto full = zanhost::OpenDatabase(url, zanhost::TOpenMode::MustExist);
  Execute(*full, "create user cli_asker@localhost identified by 'its own'");
  std::istringstream lines(printed.Out);
  for (std::string line; std::getline(lines, line);) Execute(*full, line);
  const auto restricted =
      zanhost::OpenRestricted(zanrole::StringReplace(url, "root@", "cli_asker:its%20own@"));
  EXPECT_THROW(Execute(*restricted, "delete from STDomains"), zanrole::EDatabaseError);
}

TEST(RestrictedAccountCommand, IsOfNoUseForTheEmbeddedDatabase) {
  const zantest::TSampleInstallation installation;
  const TRan ran = installation.Run({"restricted-account", "--account", "x"});
  EXPECT_EQ(ran.Status, 1);
  EXPECT_THAT(ran.Err, HasSubstr("needs no account"));
}
