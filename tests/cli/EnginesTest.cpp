#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/platform/Accounts.h"
#include "host/platform/Cipher.h"
#include "host/platform/FirstLogin.h"
#include "host/query/DataUrl.h"
#include "tests/cli/Program.h"
#include "tests/support/MariaDbServer.h"
#include "tests/support/OdbcDriver.h"

using testing::HasSubstr;
using testing::Not;
using zanhost::TLoginVerdict;
using zantest::RunProgram;
using zantest::TRan;

namespace {

/// Where the data of a test lies. Each engine has a name of its own for its databases.
struct TEngineUrl {
  std::string Name;
  /// Why the engine cannot be used on this machine; empty when it can.
  std::string (*WhyNot)();
  std::string (*UrlFor)(const std::string& folder);
};

std::string MariaDbUrl(const std::string& folder) {
  static int made = 0;
  const std::string number = std::to_string(++made);
  return "mysql://root@localhost/cli_data_" + number + "?system=cli_system_" + number +
         "&socket=" + zantest::TMariaDbServer::Instance().Socket() + "&folder=" + folder;
}

std::string MariaDbOverOdbc(const std::string& folder) {
  static int made = 0;
  const std::string number = std::to_string(++made);
  return zantest::OdbcUrl("cli_odbc_data_" + number, "cli_odbc_system_" + number, folder);
}

const TEngineUrl kSqlite{"Sqlite", [] { return std::string(); },
                         [](const std::string& folder) { return "sqlite:" + folder; }};
const TEngineUrl kMariaDb{"MariaDb", zantest::WhyNoMariaDbServer, MariaDbUrl};
const TEngineUrl kOdbc{"MariaDbOdbc", zantest::WhyNoOdbcDriver, MariaDbOverOdbc};

/// What a person does with the commands has the same effect wherever the data lies.
class CommandsOnEngine : public testing::TestWithParam<TEngineUrl> {
 protected:
  void SetUp() override {
    if (const std::string whyNot = GetParam().WhyNot(); !whyNot.empty()) GTEST_SKIP() << whyNot;
    FUrl = GetParam().UrlFor((FParent / "data").string());
  }

  TRan Run(std::vector<std::string> words, const std::string& input = {}) const {
    words.insert(words.begin() + 1, {"--data", FUrl});
    return RunProgram(words, input);
  }

  TRan MakeSample() const { return Run({"sample", "--people", "20"}); }

  TLoginVerdict TryLogin(const std::string& password) const {
    const auto database = zanhost::OpenDatabase(FUrl, zanhost::TOpenMode::MustExist);
    zanhost::TSivCipher cipher(zanhost::KeyFileOf(Folder()));
    return zanhost::CheckLogin(*database, cipher, "admin", password).Verdict;
  }

  std::string IdsOfDomains() const {
    const auto database = zanhost::OpenDatabase(FUrl, zanhost::TOpenMode::MustExist);
    const auto query = database->GetQuery();
    query->SQL().SetText("select ID from STDomains order by ID");
    query->Open();
    std::string ids;
    for (; !query->Eof(); query->Next()) ids += (ids.empty() ? "" : ",") + query->Fields(0).AsString();
    return ids;
  }

  std::filesystem::path Folder() const { return zanhost::FolderOfData(FUrl); }

  std::string FUrl;

 private:
  zantest::TTemporaryFolder FParent;
};

INSTANTIATE_TEST_SUITE_P(Engines, CommandsOnEngine, testing::Values(kSqlite, kMariaDb, kOdbc),
                         [](const auto& engine) { return engine.param.Name; });

}  // namespace

TEST_P(CommandsOnEngine, SampleIsMadeOnceAndItsAdministratorMayLogIn) {
  ASSERT_EQ(MakeSample().Status, 0);
  const auto first = zanhost::ReadFirstLogin(Folder());
  ASSERT_TRUE(first.has_value());
  EXPECT_EQ(TryLogin(first->Password), TLoginVerdict::Accepted);
  EXPECT_EQ(TryLogin("another"), TLoginVerdict::Wrong);
  const TRan again = MakeSample();
  EXPECT_EQ(again.Status, 1);
  EXPECT_EQ(TryLogin(first->Password), TLoginVerdict::Accepted);
}

TEST_P(CommandsOnEngine, SchemaIsBroughtUpToDateAgainAndAgain) {
  for (int i = 0; i < 2; ++i) {
    const TRan ran = Run({"schema"});
    EXPECT_EQ(ran.Status, 0) << ran.Err;
    EXPECT_THAT(ran.Out, HasSubstr("version"));
  }
}

TEST_P(CommandsOnEngine, CommandsAreToldTheDataByTheEnvironment) {
  ASSERT_EQ(MakeSample().Status, 0);
  ::setenv(zanhost::kDataVariable, FUrl.c_str(), 1);
  const TRan ran = RunProgram({"call", "GetCurDomainID", "--builder", "--domain", "1"});
  ::unsetenv(zanhost::kDataVariable);
  EXPECT_EQ(ran.Status, 0) << ran.Err;
  EXPECT_EQ(ran.Out, "{\"result\":true,\"out\":{\"Result\":\"1\"}}\n");
}

TEST_P(CommandsOnEngine, FunctionsAnswerFromTheSample) {
  ASSERT_EQ(MakeSample().Status, 0);
  const TRan ran = Run({"call", "GetDomains", "返回内容=ID", "查询范围=Current", "是否包含下级域=true",
                        "--builder", "--domain", "1"});
  EXPECT_EQ(ran.Status, 0) << ran.Err;
  // Everything lies below the first domain.
  EXPECT_EQ(ran.Out, "{\"result\":true,\"out\":{\"Result\":\"" + IdsOfDomains() + "\"}}\n");
}

TEST_P(CommandsOnEngine, ConsoleOpensInAScript) {
  ASSERT_EQ(MakeSample().Status, 0);
  const TRan ran = Run({"script", "--user", "admin"},
                       "{\"n\":1,\"do\":\"menu\",\"function\":\"域管理\",\"style\":0,\"params\":{}}\n");
  EXPECT_EQ(ran.Status, 0) << ran.Err;
  EXPECT_THAT(ran.Out, HasSubstr("\"class\":\"TFormDomains\""));
}

TEST_P(CommandsOnEngine, PasswordIsChangedAndTheFirstOneForgotten) {
  ASSERT_EQ(MakeSample().Status, 0);
  const std::string password = "new 'p' \"w\" \\ 密\U0001F511";
  const TRan ran = Run({"passwd", "admin"}, password + "\n");
  EXPECT_EQ(ran.Status, 0) << ran.Err;
  EXPECT_THAT(ran.Out + ran.Err, Not(HasSubstr(password)));
  EXPECT_EQ(TryLogin(password), TLoginVerdict::Accepted);
  EXPECT_FALSE(zanhost::ReadFirstLogin(Folder()).has_value());
}

TEST_P(CommandsOnEngine, BackupIsMadeOrItsMeansAreNamed) {
  ASSERT_EQ(MakeSample().Status, 0);
  const zantest::TTemporaryFolder target;
  const TRan ran = Run({"backup", (target / "copy").string()});
  if (ran.Status == 0)
    EXPECT_TRUE(std::filesystem::exists(target / "copy"));
  else
    EXPECT_THAT(ran.Err, HasSubstr("mariadb-dump"));
}
