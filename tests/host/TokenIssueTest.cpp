#include "host/platform/TokenIssue.h"

#include <gmock/gmock.h>

#include <set>

#include "host/platform/Files.h"
#include "host/platform/Secrets.h"
#include "host/platform/TokenText.h"
#include "tests/host/TokenFixture.h"

using namespace zanhost;
using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;

namespace {

class TokenIssue : public zantest::TTokenFixture {
 protected:
  /// The sentence that refuses the request; empty when it is granted.
  std::string Refusal(const TTokenRequest& request) {
    try {
      AddToken(Folder(), request, kNow);
      return {};
    } catch (const zanrole::EZanError& fault) {
      return fault.what();
    }
  }
};

}  // namespace

TEST(TokenText, HasAnIdAndASecretOfLettersAndDigits) {
  const std::string text = NewTokenText();
  EXPECT_THAT(text, testing::MatchesRegex("zan_[A-Za-z0-9]+_[A-Za-z0-9]+"));
  EXPECT_EQ(text.size(), 4U + 12U + 1U + 43U);
  EXPECT_EQ(TokenIdOf(text), text.substr(4, 12));
  EXPECT_NE(NewTokenText(), text);
}

TEST(TokenText, WhatHasAnotherFormHasNoId) {
  const std::string text = NewTokenText();
  std::string withoutSeparator = text;
  withoutSeparator[16] = 'x';
  std::string withASign = text;
  withASign.back() = '-';
  for (const std::string& other :
       {std::string(), std::string("zan_"), text.substr(4, 12), text.substr(0, 59), text + "x", " " + text,
        "ZAN" + text.substr(3), withoutSeparator, withASign, std::string(60, '_')})
    EXPECT_EQ(TokenIdOf(other), "") << other;
}

TEST_F(TokenIssue, IsWhatWasAskedFor) {
  TTokenRequest request{"报表 \"x\"", kNow + 1h, {{"GetDomains"}, {"rights", "*"}, {"李", "wang"}}, 7};
  const TBearerToken made = AddToken(Folder(), request, kNow + 300ms).Token;
  EXPECT_EQ(made.Name, request.Name);
  EXPECT_EQ(made.Created, kNow);
  EXPECT_EQ(made.Expires, kNow + 1h);
  EXPECT_EQ(made.Scope.Functions, request.Scope.Functions);
  EXPECT_EQ(made.Scope.Questions, request.Scope.Questions);
  EXPECT_EQ(made.Scope.Logins, request.Scope.Logins);
  EXPECT_EQ(made.PerSecond, 7U);
}

TEST_F(TokenIssue, OnlyTheHashOfTheTextIsKept) {
  const TNewToken made = Add("a");
  EXPECT_EQ(made.Token.SecretHash, HexDigestOf(made.Text));
  EXPECT_EQ(made.Token.Id, TokenIdOf(made.Text));
  for (const auto& entry : std::filesystem::directory_iterator(Folder())) {
    const std::string kept = ReadFile(entry.path());
    EXPECT_THAT(kept, Not(HasSubstr(made.Text.substr(17)))) << entry.path();
    EXPECT_FALSE(IsOpenToOthers(entry.path())) << entry.path();
  }
  EXPECT_THAT(ReadFile(TokenFileOf(Folder())), HasSubstr(made.Token.SecretHash));
}

TEST_F(TokenIssue, NamesOfTokensInForceDiffer) {
  Add("a");
  EXPECT_THAT(Refusal(Request("a")), HasSubstr("'a'"));
  EXPECT_EQ(Refusal(Request("A")), "");
  EXPECT_THAT(ReadTokens(Folder()), SizeIs(2));
}

TEST_F(TokenIssue, NameOfAnExpiredTokenIsFree) {
  TTokenRequest request = Request("a");
  AddToken(Folder(), request, kNow);
  const TTime later = request.Expires;
  request.Expires = later + 1h;
  EXPECT_NO_THROW(AddToken(Folder(), request, later));
}

TEST_F(TokenIssue, NameIsNeitherEmptyNorLong) {
  EXPECT_NE(Refusal(Request("")), "");
  EXPECT_NE(Refusal(Request(std::string(kLongestTokenName + 1, 'x'))), "");
  EXPECT_EQ(Refusal(Request(std::string(kLongestTokenName, 'x'))), "");
}

TEST_F(TokenIssue, ExpiryIsAheadAndWithinFiveYears) {
  TTokenRequest request = Request("a");
  for (const auto life : {std::chrono::seconds(-1h), 0s, std::chrono::seconds(kLongestTokenLife) + 1s}) {
    request.Expires = kNow + life;
    EXPECT_NE(Refusal(request), "") << life.count();
  }
  request.Expires = kNow + kLongestTokenLife;
  EXPECT_EQ(Refusal(request), "");
}

TEST_F(TokenIssue, ScopeAllowsSomethingAboutSomebody) {
  TTokenRequest request = Request("a");
  for (const TTokenScope& scope : {TTokenScope{{}, {}, {"li"}}, TTokenScope{{"*"}, {"*"}, {}},
                                   TTokenScope{{}, {"menu"}, {"li"}}, TTokenScope{{}, {"Menus"}, {"li"}},
                                   TTokenScope{{""}, {}, {"li"}}, TTokenScope{{"*"}, {}, {"li", ""}}}) {
    request.Scope = scope;
    EXPECT_NE(Refusal(request), "") << testing::PrintToString(scope.Questions);
  }
  request.Scope = {{}, {"menus", "denied", "rights", "holders"}, {"*"}};
  EXPECT_EQ(Refusal(request), "");
}

TEST_F(TokenIssue, RefusedRequestLeavesTheTokensAsTheyAre) {
  Add("a");
  const std::string before = ReadFile(TokenFileOf(Folder()));
  EXPECT_NE(Refusal(Request("a")), "");
  EXPECT_THAT(Refusal(Request("\xff")), HasSubstr("cannot be stored"));
  EXPECT_EQ(ReadFile(TokenFileOf(Folder())), before);
}

TEST_F(TokenIssue, IsFoundByIdByTextAndByNameInForce) {
  const TNewToken made = Add("a");
  Add("b");
  for (const std::string& wanted : {made.Token.Id, made.Text, std::string("a")})
    EXPECT_EQ(FindToken(Folder(), wanted, kNow).Id, made.Token.Id);
  EXPECT_EQ(FindToken(Folder(), made.Token.Id, made.Token.Expires).Id, made.Token.Id);
  EXPECT_THROW(FindToken(Folder(), "a", made.Token.Expires), zanrole::EZanError);
  EXPECT_THROW(FindToken(Folder(), "c", kNow), zanrole::EZanError);
  EXPECT_THROW(FindToken(Folder(), "", kNow), zanrole::EZanError);
}

TEST_F(TokenIssue, RevokedTokenIsForgottenAndTheOthersStay) {
  const std::string id = Add("a").Token.Id;
  const std::string other = Add("b").Token.Id;
  RevokeToken(Folder(), id);
  RevokeToken(Folder(), "nobody's");
  const std::vector<TBearerToken> tokens = ReadTokens(Folder());
  ASSERT_THAT(tokens, SizeIs(1));
  EXPECT_EQ(tokens[0].Id, other);
}
