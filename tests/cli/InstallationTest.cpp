#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "host/platform/Accounts.h"
#include "host/platform/Cipher.h"
#include "host/platform/Files.h"
#include "host/platform/FirstLogin.h"
#include "host/query/DataUrl.h"
#include "tests/cli/Program.h"

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using zanhost::TLoginVerdict;
using zantest::RunProgram;
using zantest::TRan;
using zantest::TSampleInstallation;

namespace {

TLoginVerdict TryLogin(const TSampleInstallation& sample, const std::string& login,
                       const std::string& password) {
  const auto database = zanhost::OpenDatabase(sample.Url(), zanhost::TOpenMode::MustExist);
  zanhost::TSivCipher cipher(zanhost::KeyFileOf(sample.Folder()));
  return zanhost::CheckLogin(*database, cipher, login, password).Verdict;
}

std::string StoredPassword(const TSampleInstallation& sample, const std::string& login) {
  const auto database = zanhost::OpenDatabase(sample.Url(), zanhost::TOpenMode::MustExist);
  const auto query = database->GetQuery();
  query->SQL().SetText("select Password from STUsers where uGroup = 0 and UserID = :UserID");
  query->ParamByName("UserID").AsString(login);
  query->Open();
  return query->FieldByName("Password").AsString();
}

void AskForReset(const TSampleInstallation& sample, const std::string& login) {
  const auto database = zanhost::OpenDatabase(sample.Url(), zanhost::TOpenMode::MustExist);
  const auto query = database->GetQuery();
  query->SQL().SetText("update STUserPasswordStrategy set NeedReset = 1 where UserID = :UserID");
  query->ParamByName("UserID").AsString(login);
  query->ExecSQL();
}

}  // namespace

TEST(SampleCommand, TellsTheAdministratorsPasswordAndKeepsItForItsOwner) {
  const TSampleInstallation sample;
  ASSERT_EQ(sample.Made().Status, 0) << sample.Made().Err;
  const auto first = zanhost::ReadFirstLogin(sample.Folder());
  ASSERT_TRUE(first.has_value());
  EXPECT_EQ(first->Login, "admin");
  EXPECT_THAT(sample.Made().Out, HasSubstr(first->Password));
  EXPECT_FALSE(zanhost::IsOpenToOthers(sample.Folder() / "first-login.txt"));
  EXPECT_EQ(TryLogin(sample, "admin", first->Password), TLoginVerdict::Accepted);
}

TEST(SampleCommand, WhatIsMadeIsTheOwnersAloneWhateverTheUmask) {
  const ::mode_t before = ::umask(0);
  const TSampleInstallation sample;
  ::umask(before);
  for (const auto& entry : std::filesystem::recursive_directory_iterator(sample.Folder()))
    EXPECT_FALSE(zanhost::IsOpenToOthers(entry.path())) << entry.path();
  EXPECT_FALSE(zanhost::IsOpenToOthers(sample.Folder()));
}

TEST(SampleCommand, PasswordIsInNoLogAndNotPlainInTheData) {
  const TSampleInstallation sample;
  const auto first = zanhost::ReadFirstLogin(sample.Folder());
  ASSERT_TRUE(first.has_value());
  EXPECT_THAT(zanhost::ReadFile(sample.Folder() / "log/zanhost.log"), Not(HasSubstr(first->Password)));
  EXPECT_THAT(zanhost::ReadFile(sample.Folder() / "zanrole.db"), Not(HasSubstr(first->Password)));
  EXPECT_THAT(StoredPassword(sample, "admin"), testing::StartsWith("zs1:"));
}

TEST(SampleCommand, EachInstallationHasItsOwnPassword) {
  const TSampleInstallation one;
  const TSampleInstallation other;
  EXPECT_NE(zanhost::ReadFirstLogin(one.Folder())->Password,
            zanhost::ReadFirstLogin(other.Folder())->Password);
}

TEST(SampleCommand, QuietKeepsThePasswordFromTheOutput) {
  const zantest::TTemporaryFolder parent;
  const TRan ran =
      RunProgram({"sample", "--quiet", "--people", "20", "--data", "sqlite:" + (parent / "d").string()});
  EXPECT_EQ(ran.Status, 0) << ran.Err;
  EXPECT_THAT(ran.Out, Not(HasSubstr(zanhost::ReadFirstLogin(parent / "d")->Password)));
}

TEST(SampleCommand, DataThatIsThereIsNotTouched) {
  const TSampleInstallation sample;
  const auto before = zanhost::ReadFirstLogin(sample.Folder());
  const TRan again = sample.Run({"sample", "--people", "20"});
  EXPECT_EQ(again.Status, 1);
  EXPECT_THAT(again.Out, IsEmpty());
  EXPECT_THAT(again.Err, testing::StartsWith("zanhost: "));
  EXPECT_EQ(zanhost::ReadFirstLogin(sample.Folder())->Password, before->Password);
  EXPECT_EQ(TryLogin(sample, "admin", before->Password), TLoginVerdict::Accepted);
}

TEST(SchemaCommand, InstallsAndMayRunAgain) {
  const zantest::TTemporaryFolder parent;
  const std::string url = "sqlite:" + (parent / "d").string();
  for (int i = 0; i < 2; ++i) {
    const TRan ran = RunProgram({"schema", "--data", url});
    EXPECT_EQ(ran.Status, 0) << ran.Err;
    EXPECT_THAT(ran.Out, HasSubstr("version"));
  }
}

TEST(SchemaCommand, DatabaseWithoutTablesIsSaidByTheOthers) {
  const zantest::TTemporaryFolder parent;
  const std::string url = "sqlite:" + (parent / "d").string();
  zanhost::OpenDatabase(url, zanhost::TOpenMode::CreateIfMissing);
  const TRan ran = RunProgram({"backup", "--data", url, (parent / "copy").string()});
  EXPECT_EQ(ran.Status, 1);
  EXPECT_THAT(ran.Err, HasSubstr("zanhost schema"));
}

TEST(PasswdCommand, TakesOneLineOfStandardInput) {
  const TSampleInstallation sample;
  const std::string password = "new 'p' \"w\" \\ 密\U0001F511";
  const TRan ran = sample.Run({"passwd", "admin"}, password + "\nsecond line\n");
  EXPECT_EQ(ran.Status, 0) << ran.Err;
  EXPECT_THAT(ran.Out + ran.Err, Not(HasSubstr(password)));
  EXPECT_EQ(TryLogin(sample, "admin", password), TLoginVerdict::Accepted);
  EXPECT_THAT(StoredPassword(sample, "admin"), testing::StartsWith("zs1:"));
  EXPECT_THAT(zanhost::ReadFile(sample.Folder() / "log/zanhost.log"), Not(HasSubstr(password)));
}

TEST(PasswdCommand, NextLoginAsksForNoOther) {
  const TSampleInstallation sample;
  AskForReset(sample, "admin");
  EXPECT_EQ(sample.Run({"passwd", "admin"}, "x\n").Status, 0);
  EXPECT_EQ(TryLogin(sample, "admin", "x"), TLoginVerdict::Accepted);
}

TEST(PasswdCommand, FirstLoginIsForgotten) {
  const TSampleInstallation sample;
  EXPECT_TRUE(zanhost::ReadFirstLogin(sample.Folder()).has_value());
  EXPECT_EQ(sample.Run({"passwd", "admin"}, "x").Status, 0);
  EXPECT_FALSE(zanhost::ReadFirstLogin(sample.Folder()).has_value());
}

TEST(PasswdCommand, NothingAndAnEmptyLineAreRefused) {
  const TSampleInstallation sample;
  const std::string before = StoredPassword(sample, "admin");
  for (const std::string input : {"", "\n", "\r\n"}) {
    const TRan ran = sample.Run({"passwd", "admin"}, input);
    EXPECT_EQ(ran.Status, 1);
    EXPECT_THAT(ran.Err, testing::StartsWith("zanhost: "));
  }
  EXPECT_EQ(StoredPassword(sample, "admin"), before);
}

TEST(PasswdCommand, UnknownLoginIsSaidBeforeAPasswordIsAsked) {
  const TSampleInstallation sample;
  const TRan ran = sample.Run({"passwd", "serve"});
  EXPECT_EQ(ran.Status, 1);
  EXPECT_THAT(ran.Err, HasSubstr("'serve'"));
}

TEST(PasswdCommand, LoginThatLooksLikeAnOptionFollowsTwoDashes) {
  const TSampleInstallation sample;
  const TRan ran = sample.Run({"passwd", "--", "--help"}, "x\n");
  EXPECT_EQ(ran.Status, 1);
  EXPECT_THAT(ran.Err, HasSubstr("'--help'"));
}

TEST(PasswdCommand, AtATerminalThePasswordIsAskedTwiceAndNotShown) {
  const TSampleInstallation sample;
  const TRan ran = zantest::RunAtTerminal({"passwd", "admin", "--data", sample.Url()},
                                          {{"New password: ", "se密cret\n"}, {"Once more: ", "se密cret\n"}});
  EXPECT_EQ(ran.Status, 0) << ran.Out;
  EXPECT_THAT(ran.Out, Not(HasSubstr("cret")));
  EXPECT_EQ(TryLogin(sample, "admin", "se密cret"), TLoginVerdict::Accepted);
}

TEST(PasswdCommand, TwoEntriesThatDifferChangeNothing) {
  const TSampleInstallation sample;
  const std::string before = StoredPassword(sample, "admin");
  const TRan ran = zantest::RunAtTerminal({"passwd", "admin", "--data", sample.Url()},
                                          {{"New password: ", "one\n"}, {"Once more: ", "two\n"}});
  EXPECT_EQ(ran.Status, 1);
  EXPECT_THAT(ran.Out, HasSubstr("differ"));
  EXPECT_EQ(StoredPassword(sample, "admin"), before);
}

TEST(BackupCommand, CopyIsWholeWhileAnotherIsWriting) {
  const TSampleInstallation sample;
  const auto writer = zanhost::OpenDatabase(sample.Url(), zanhost::TOpenMode::MustExist);
  const auto query = writer->GetQuery();
  query->SQL().SetText("update STDomains set Remark = 'written'");
  query->ExecSQL();
  const zantest::TTemporaryFolder target;
  const TRan ran = sample.Run({"backup", (target / "zanrole.db").string()});
  ASSERT_EQ(ran.Status, 0) << ran.Err;
  const auto copy = zanhost::OpenDatabase("sqlite:" + target.Path().string(), zanhost::TOpenMode::MustExist);
  const auto count = copy->GetQuery();
  count->SQL().SetText("select count(*) N from STDomains where Remark = 'written'");
  count->Open();
  EXPECT_GT(count->FieldByName("N").AsInteger(), 0);
}

TEST(BackupCommand, FileThatIsThereIsNotOverwritten) {
  const TSampleInstallation sample;
  const zantest::TTemporaryFolder target;
  zanhost::ReplacePrivateFile(target / "copy", "precious");
  const TRan ran = sample.Run({"backup", (target / "copy").string()});
  EXPECT_EQ(ran.Status, 1);
  EXPECT_THAT(ran.Err, testing::StartsWith("zanhost: "));
  EXPECT_EQ(zanhost::ReadFile(target / "copy"), "precious");
}
