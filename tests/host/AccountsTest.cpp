#include "host/platform/Accounts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <vector>

#include "host/platform/Cipher.h"
#include "host/platform/Schema.h"
#include "host/query/DataUrl.h"
#include "tests/support/TemporaryFolder.h"

using zanhost::TLoginVerdict;

namespace {

class Accounts : public testing::Test {
 protected:
  Accounts()
      : FDatabase(
            zanhost::OpenDatabase("sqlite:" + FFolder.Path().string(), zanhost::TOpenMode::CreateIfMissing)) {
    zanhost::InstallSchema(*FDatabase);
  }

  void AddUser(int oid, const std::string& login, const std::string& stored, int administrator = 0,
               int unused = 0, int group = 0) {
    const auto query = FDatabase->GetQuery();
    query->SQL().SetText(
        "insert into STUsers (OID, UserID, UserName, Password, uGroup, UnUsed, IsAdministrator) "
        "values (:OID, :UserID, :UserName, :Password, :uGroup, :UnUsed, :IsAdministrator)");
    query->ParamByName("OID").AsInteger(oid);
    query->ParamByName("UserID").AsString(login);
    query->ParamByName("UserName").AsString("名 " + login);
    query->ParamByName("Password").AsString(stored);
    query->ParamByName("uGroup").AsInteger(group);
    query->ParamByName("UnUsed").AsInteger(unused);
    query->ParamByName("IsAdministrator").AsInteger(administrator);
    query->ExecSQL();
  }

  void AddPolicy(const std::string& login, bool needReset, bool canModify) {
    const auto query = FDatabase->GetQuery();
    query->SQL().SetText(
        "insert into STUserPasswordStrategy (UserID, NeedReset, CanModify, NeverExpires) "
        "values (:UserID, :NeedReset, :CanModify, 0)");
    query->ParamByName("UserID").AsString(login);
    query->ParamByName("NeedReset").AsInteger(needReset ? 1 : 0);
    query->ParamByName("CanModify").AsInteger(canModify ? 1 : 0);
    query->ExecSQL();
  }

  std::string Enciphered(const std::string& login, const std::string& password) {
    return FCipher.Encrypt(login + ":" + password);
  }

  TLoginVerdict Try(const std::string& login, const std::string& password) {
    return zanhost::CheckLogin(*FDatabase, FCipher, login, password).Verdict;
  }

  zantest::TTemporaryFolder FFolder;
  zanhost::TSivCipher FCipher{zanhost::TSivCipher::TKey{}};
  std::unique_ptr<zanhost::TDatabase> FDatabase;
};

}  // namespace

TEST_F(Accounts, RightPasswordIsAcceptedAndTellsWhoItIs) {
  AddUser(7, "admin", Enciphered("admin", "p'w\"\\ 密\U0001F511"), 1);
  const auto outcome = zanhost::CheckLogin(*FDatabase, FCipher, "admin", "p'w\"\\ 密\U0001F511");
  EXPECT_EQ(outcome.Verdict, TLoginVerdict::Accepted);
  EXPECT_EQ(outcome.Account.OID, 7);
  EXPECT_EQ(outcome.Account.Login, "admin");
  EXPECT_EQ(outcome.Account.Name, "名 admin");
  EXPECT_TRUE(outcome.Account.IsSuperUser);
  EXPECT_TRUE(outcome.Account.CanModify);
}

TEST_F(Accounts, WrongPasswordTellsNothing) {
  AddUser(7, "admin", Enciphered("admin", "right"));
  for (const char* password : {"", "Right", "right ", "righ", "admin:right"}) {
    const auto outcome = zanhost::CheckLogin(*FDatabase, FCipher, "admin", password);
    EXPECT_EQ(outcome.Verdict, TLoginVerdict::Wrong) << password;
    EXPECT_EQ(outcome.Account.OID, 0);
  }
}

TEST_F(Accounts, UnknownLoginIsWrong) {
  EXPECT_EQ(Try("nobody", ""), TLoginVerdict::Wrong);
  EXPECT_EQ(Try("nobody", "x"), TLoginVerdict::Wrong);
  EXPECT_EQ(Try("", ""), TLoginVerdict::Wrong);
  EXPECT_EQ(Try("x' or '1'='1", "x"), TLoginVerdict::Wrong);
}

TEST_F(Accounts, LoginComparesExactly) {
  AddUser(7, "admin", Enciphered("admin", "x"));
  EXPECT_EQ(Try("Admin", "x"), TLoginVerdict::Wrong);
  EXPECT_EQ(Try("admin ", "x"), TLoginVerdict::Wrong);
}

TEST_F(Accounts, StoredValueCopiedOntoAnotherAccountDoesNotUnlockIt) {
  AddUser(7, "eve", Enciphered("eve", "known"));
  AddUser(8, "admin", Enciphered("eve", "known"), 1);
  EXPECT_EQ(Try("eve", "known"), TLoginVerdict::Accepted);
  EXPECT_EQ(Try("admin", "known"), TLoginVerdict::Wrong);
  EXPECT_EQ(Try("admin", "eve:known"), TLoginVerdict::Wrong);
}

TEST_F(Accounts, ColonInLoginIsNotMistakenForTheSeparatorOfAnotherLogin) {
  AddUser(7, "a", Enciphered("a", "b:c"));
  AddUser(8, "a:b", Enciphered("a:b", "c"));
  EXPECT_EQ(Try("a", "b:c"), TLoginVerdict::Accepted);
  EXPECT_EQ(Try("a:b", "c"), TLoginVerdict::Accepted);
  EXPECT_EQ(Try("a", "c"), TLoginVerdict::Wrong);
}

TEST_F(Accounts, PasswordThatIsStoredPlainIsAccepted) {
  AddUser(7, "old", "plain");
  EXPECT_EQ(Try("old", "plain"), TLoginVerdict::Accepted);
  EXPECT_EQ(Try("old", "Plain"), TLoginVerdict::Wrong);
}

TEST_F(Accounts, CipherTextIsNoPassword) {
  const std::string stored = Enciphered("admin", "x");
  AddUser(7, "admin", stored);
  EXPECT_EQ(Try("admin", stored), TLoginVerdict::Wrong);
}

TEST_F(Accounts, AccountWithoutAPasswordLetsNobodyIn) {
  AddUser(7, "fresh", "");
  EXPECT_EQ(Try("fresh", ""), TLoginVerdict::Wrong);
}

TEST_F(Accounts, EmptyPasswordThatWasChosenIsAccepted) {
  AddUser(7, "lazy", Enciphered("lazy", ""));
  EXPECT_EQ(Try("lazy", ""), TLoginVerdict::Accepted);
}

TEST_F(Accounts, DisabledAccountDoesNotGetInWhateverItsState) {
  for (int state = 1; state <= 3; ++state) {
    const std::string login = "u" + std::to_string(state);
    AddUser(state, login, Enciphered(login, "x"), 1, state);
    EXPECT_EQ(Try(login, "x"), TLoginVerdict::Disabled);
    EXPECT_EQ(Try(login, "y"), TLoginVerdict::Wrong);
  }
}

TEST_F(Accounts, RoleIsNoAccount) {
  AddUser(7, "role", Enciphered("role", "x"), 0, 0, 1);
  EXPECT_EQ(Try("role", "x"), TLoginVerdict::Wrong);
  EXPECT_FALSE(zanhost::FindAccount(*FDatabase, "role").has_value());
}

TEST_F(Accounts, OnlyTheValueOneIsSuperUser) {
  for (int value = 0; value <= 3; ++value) {
    const std::string login = "u" + std::to_string(value);
    AddUser(value + 1, login, "x", value);
    EXPECT_EQ(zanhost::FindAccount(*FDatabase, login)->IsSuperUser, value == 1) << value;
  }
}

TEST_F(Accounts, NeedResetAsksForAnotherPasswordUntilItIsCleared) {
  AddUser(7, "new", Enciphered("new", "x"));
  AddUser(8, "other", Enciphered("other", "x"));
  AddPolicy("new", true, false);
  AddPolicy("other", true, true);
  EXPECT_EQ(Try("new", "x"), TLoginVerdict::NeedReset);
  EXPECT_EQ(Try("new", "y"), TLoginVerdict::Wrong);
  EXPECT_FALSE(zanhost::FindAccount(*FDatabase, "new")->CanModify);
  zanhost::ClearNeedReset(*FDatabase, "new");
  EXPECT_EQ(Try("new", "x"), TLoginVerdict::Accepted);
  EXPECT_EQ(Try("other", "x"), TLoginVerdict::NeedReset);
}

TEST_F(Accounts, AccountWithoutAPolicyRowHasTheDefaults) {
  AddUser(7, "u", "x");
  const auto account = zanhost::FindAccount(*FDatabase, "u");
  EXPECT_FALSE(account->NeedReset);
  EXPECT_TRUE(account->CanModify);
}

TEST_F(Accounts, UnknownLoginTakesAsLongAsAWrongPassword) {
  AddUser(7, "admin", Enciphered("admin", "right"));
  const auto fastest = [this](const std::string& login) {
    auto best = std::chrono::nanoseconds::max();
    for (int i = 0; i < 300; ++i) {
      const auto start = std::chrono::steady_clock::now();
      Try(login, "wrong");
      best = std::min(best, std::chrono::nanoseconds(std::chrono::steady_clock::now() - start));
    }
    return static_cast<double>(best.count());
  };
  Try("admin", "wrong");
  const double known = fastest("admin");
  const double unknown = fastest("nobody");
  EXPECT_LT(std::max(known, unknown) / std::min(known, unknown), 2.0) << known << " ns, " << unknown << " ns";
}
