#include "host/platform/FirstLogin.h"

#include <gtest/gtest.h>

#include <set>

#include "host/platform/Files.h"
#include "tests/support/TemporaryFolder.h"

using namespace zanhost;

TEST(FirstLogin, PasswordsAreLongAndNeverTheSame) {
  std::set<std::string> passwords;
  for (int i = 0; i < 100; ++i) passwords.insert(MakeFirstPassword());
  EXPECT_EQ(passwords.size(), 100U);
  for (const std::string& password : passwords) EXPECT_EQ(password.size(), 20U);
}

TEST(FirstLogin, IsKeptForItsOwnerAlone) {
  const zantest::TTemporaryFolder folder;
  WriteFirstLogin(folder.Path(), {"ad\"min\\", "p"});
  EXPECT_FALSE(IsOpenToOthers(folder / "first-login.txt"));
  const auto first = ReadFirstLogin(folder.Path());
  ASSERT_TRUE(first.has_value());
  EXPECT_EQ(first->Login, "ad\"min\\");
  EXPECT_EQ(first->Password, "p");
}

TEST(FirstLogin, IsForgottenWhenItsPasswordChangesAndOnlyThen) {
  const zantest::TTemporaryFolder folder;
  ForgetFirstLogin(folder.Path(), "admin");
  WriteFirstLogin(folder.Path(), {"admin", "p"});
  ForgetFirstLogin(folder.Path(), "Admin");
  EXPECT_TRUE(ReadFirstLogin(folder.Path()).has_value());
  ForgetFirstLogin(folder.Path(), "admin");
  EXPECT_FALSE(ReadFirstLogin(folder.Path()).has_value());
}

TEST(FirstLogin, DamagedFileReadsAsNone) {
  const zantest::TTemporaryFolder folder;
  ReplacePrivateFile(folder / "first-login.txt", "admin p");
  EXPECT_FALSE(ReadFirstLogin(folder.Path()).has_value());
}
