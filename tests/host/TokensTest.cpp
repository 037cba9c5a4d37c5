#include "host/platform/Tokens.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <algorithm>
#include <fstream>
#include <thread>

#include "host/platform/Files.h"
#include "host/platform/TokenText.h"
#include "tests/host/TokenFixture.h"

using namespace zanhost;
using namespace std::chrono_literals;
using testing::HasSubstr;

namespace {

class Tokens : public zantest::TTokenFixture {
 protected:
  TTokenVerdict Check(const std::string& text, TTime now = kNow) { return FBook.Check(text, now, FFound); }

  /// What the book raises; nothing but that it is a fault that was told before when it was.
  std::string Fault() {
    try {
      Check("x");
      return "no fault";
    } catch (const ETokensUnreadable& fault) {
      return fault.IsNews() ? fault.what() : "told before";
    }
  }

  TTokenBook FBook{Folder()};
  TBearerToken FFound;
};

std::string WithOtherSecret(std::string text) {
  text.back() = text.back() == 'x' ? 'y' : 'x';
  return text;
}

}  // namespace

TEST(TokenScope, StarAllowsAllFunctionsThatPasteNothing) {
  const TTokenScope all{{"*"}, {}, {}};
  EXPECT_TRUE(all.AllowsFunction("GetDomains", /*pastes*/ false));
  EXPECT_FALSE(all.AllowsFunction("GetDomainInfo", /*pastes*/ true));
  const TTokenScope named{{"*", "GetDomainInfo"}, {}, {}};
  EXPECT_TRUE(named.AllowsFunction("GetDomainInfo", /*pastes*/ true));
  EXPECT_FALSE(named.AllowsFunction("GetOther", /*pastes*/ true));
}

TEST(TokenScope, NamesCompareExactly) {
  const TTokenScope scope{{"GetDomains"}, {"menus"}, {"li"}};
  EXPECT_TRUE(scope.AllowsFunction("GetDomains", false));
  EXPECT_FALSE(scope.AllowsFunction("getdomains", false));
  EXPECT_TRUE(scope.AllowsQuestion("menus"));
  EXPECT_FALSE(scope.AllowsQuestion("denied"));
  EXPECT_TRUE(scope.AllowsLogin("li"));
  for (const char* login : {"Li", "li ", "l", "", "*"}) EXPECT_FALSE(scope.AllowsLogin(login)) << login;
}

TEST(TokenScope, EmptyListsAllowNothing) {
  const TTokenScope none;
  EXPECT_FALSE(none.AllowsFunction("GetDomains", false));
  EXPECT_FALSE(none.AllowsQuestion("menus"));
  EXPECT_FALSE(none.AllowsLogin("li"));
  EXPECT_FALSE(none.AllowsAllLogins());
  EXPECT_EQ(none.OnlyLogin(), std::nullopt);
}

TEST(TokenScope, OnlyLoginIsTheOneThatIsNamed) {
  const auto of = [](std::vector<std::string> logins) { return TTokenScope{{}, {}, std::move(logins)}; };
  EXPECT_EQ(of({"li"}).OnlyLogin(), "li");
  EXPECT_EQ(of({"li", "wang"}).OnlyLogin(), std::nullopt);
  EXPECT_EQ(of({"*"}).OnlyLogin(), std::nullopt);
  EXPECT_EQ(of({"li", "*"}).OnlyLogin(), std::nullopt);
  EXPECT_TRUE(of({"li", "*"}).AllowsAllLogins());
  EXPECT_TRUE(of({"li", "*"}).AllowsLogin("wang"));
}

TEST_F(Tokens, ValidOneTellsWhatItMayAsk) {
  const TNewToken made = Add("a");
  ASSERT_EQ(Check(made.Text), TTokenVerdict::Valid);
  EXPECT_EQ(FFound.Id, made.Token.Id);
  EXPECT_EQ(FFound.Name, "a");
  EXPECT_EQ(FFound.Scope.OnlyLogin(), "li");
  EXPECT_EQ(FFound.PerSecond, 100U);
}

TEST_F(Tokens, ExpireAtTheirMomentAndNotBefore) {
  const TNewToken made = Add("a");
  EXPECT_EQ(Check(made.Text, made.Token.Expires - 1ns), TTokenVerdict::Valid);
  EXPECT_EQ(Check(made.Text, made.Token.Expires), TTokenVerdict::Expired);
  EXPECT_EQ(FFound.Name, "a");
  EXPECT_EQ(Check(WithOtherSecret(made.Text), made.Token.Expires), TTokenVerdict::Unknown);
}

TEST_F(Tokens, WhatIsNoTokenIsUnknownAndTellsNothing) {
  const TNewToken made = Add("a");
  const TNewToken other = Add("b");
  const std::string mixed = made.Text.substr(0, 17) + other.Text.substr(17);
  for (const std::string& text :
       {std::string(), std::string("x"), made.Token.Id, made.Token.SecretHash, WithOtherSecret(made.Text),
        NewTokenText(), mixed, made.Text + " ", made.Text.substr(0, 59), std::string(100000, 'z')}) {
    EXPECT_EQ(Check(text), TTokenVerdict::Unknown) << text;
    EXPECT_EQ(FFound.Id, "");
  }
}

TEST_F(Tokens, WithoutAFileNobodyHasOne) {
  EXPECT_EQ(Check(NewTokenText()), TTokenVerdict::Unknown);
  EXPECT_EQ(Check(NewTokenText()), TTokenVerdict::Unknown);
}

TEST_F(Tokens, AddedAndRevokedOnesCountAtOnce) {
  for (int i = 0; i < 20; ++i) {
    const TNewToken made = Add("a");
    ASSERT_EQ(Check(made.Text), TTokenVerdict::Valid) << i;
    RevokeToken(Folder(), made.Token.Id);
    ASSERT_EQ(Check(made.Text), TTokenVerdict::Unknown) << i;
  }
}

TEST_F(Tokens, FilesWrittenInTheSameTickOfTheClockAreToldApart) {
  // Of one size and written in place: where the clock of files goes on in ticks, nothing else differs.
  std::string texts[2];
  std::string files[2];
  for (int i = 0; i < 2; ++i) {
    const TNewToken made = Add("a");
    texts[i] = made.Text;
    files[i] = ReadFile(TokenFileOf(Folder()));
    RevokeToken(Folder(), made.Token.Id);
  }
  for (int i = 0; i < 200; ++i) {
    std::fstream(TokenFileOf(Folder()), std::ios::binary | std::ios::in | std::ios::out) << files[i % 2];
    ASSERT_EQ(Check(texts[i % 2]), TTokenVerdict::Valid) << i;
    ASSERT_EQ(Check(texts[1 - i % 2]), TTokenVerdict::Unknown) << i;
  }
}

TEST_F(Tokens, WithTheFileTheyGo) {
  const TNewToken made = Add("a");
  EXPECT_EQ(Check(made.Text), TTokenVerdict::Valid);
  std::filesystem::remove(TokenFileOf(Folder()));
  EXPECT_EQ(Check(made.Text), TTokenVerdict::Unknown);
}

TEST_F(Tokens, BrokenFileLetsNobodyInUntilItIsMended) {
  const TNewToken made = Add("a");
  const std::string good = ReadFile(TokenFileOf(Folder()));
  EXPECT_EQ(Check(made.Text), TTokenVerdict::Valid);
  ReplacePrivateFile(TokenFileOf(Folder()), "{\"tokens\":[");
  for (int i = 0; i < 2; ++i) EXPECT_THROW(Check(made.Text), ETokensUnreadable);
  ReplacePrivateFile(TokenFileOf(Folder()), good);
  EXPECT_EQ(Check(made.Text), TTokenVerdict::Valid);
}

TEST_F(Tokens, AFaultIsNewsOnceUntilItChanges) {
  ReplacePrivateFile(TokenFileOf(Folder()), "{");
  EXPECT_THAT(Fault(), HasSubstr("tokens.json cannot be read: it is no JSON"));
  EXPECT_EQ(Fault(), "told before");
  ReplacePrivateFile(TokenFileOf(Folder()), "[]");
  EXPECT_THAT(Fault(), HasSubstr("it has no list"));
  EXPECT_EQ(Fault(), "told before");
  std::filesystem::remove(TokenFileOf(Folder()));
  EXPECT_EQ(Fault(), "no fault");
  ReplacePrivateFile(TokenFileOf(Folder()), "[]");
  EXPECT_THAT(Fault(), HasSubstr("it has no list"));
}

TEST_F(Tokens, FileThatBecomesOpenToOthersIsNoticed) {
  const TNewToken made = Add("a");
  std::this_thread::sleep_for(150ms);
  EXPECT_EQ(Check(made.Text), TTokenVerdict::Valid);
  ASSERT_EQ(::chmod(TokenFileOf(Folder()).c_str(), 0666), 0);
  EXPECT_THROW(Check(made.Text), ETokensUnreadable);
  ASSERT_EQ(::chmod(TokenFileOf(Folder()).c_str(), 0600), 0);
  EXPECT_EQ(Check(made.Text), TTokenVerdict::Valid);
}

TEST_F(Tokens, UnknownIdTakesAsLongAsAWrongSecret) {
  const TNewToken made = Add("a");
  std::this_thread::sleep_for(150ms);
  const auto fastest = [this](const std::string& text) {
    auto best = std::chrono::nanoseconds::max();
    for (int i = 0; i < 2000; ++i) {
      const auto start = std::chrono::steady_clock::now();
      Check(text);
      best = std::min(best, std::chrono::nanoseconds(std::chrono::steady_clock::now() - start));
    }
    return static_cast<double>(best.count());
  };
  const std::string unknown = NewTokenText();
  const std::string wrong = WithOtherSecret(made.Text);
  Check(wrong);
  const double known = fastest(wrong);
  const double notKnown = fastest(unknown);
  EXPECT_LT(std::max(known, notKnown) / std::min(known, notKnown), 1.5)
      << known << " ns, " << notKnown << " ns";
}
