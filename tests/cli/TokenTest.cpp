#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/json.hpp>
#include <sstream>

#include "host/platform/Files.h"
#include "host/platform/TokenFile.h"
#include "host/platform/Tokens.h"
#include "host/platform/UtcTime.h"
#include "tests/cli/Program.h"

namespace json = boost::json;

using std::chrono::system_clock;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using zanhost::TTokenVerdict;
using zantest::TRan;

namespace {

class TokenCommand : public testing::Test {
 protected:
  static void SetUpTestSuite() { FSample = std::make_unique<zantest::TSampleInstallation>(); }
  static void TearDownTestSuite() { FSample.reset(); }
  // Each test begins without tokens.
  void SetUp() override { std::filesystem::remove(zanhost::TokenFileOf(FSample->Folder())); }

  static TRan Token(std::vector<std::string> words) {
    words.insert(words.begin(), "token");
    words.insert(words.begin() + 2, {"--data", FSample->Url()});
    return zantest::RunProgram(words);
  }

  static TRan Add(const std::string& name, const std::vector<std::string>& more = {}) {
    std::vector<std::string> words{"add", "--name", name, "--questions", "menus", "--logins", "li"};
    words.insert(words.end(), more.begin(), more.end());
    return Token(words);
  }

  static json::object Added(const TRan& ran) {
    EXPECT_EQ(ran.Status, 0) << ran.Err;
    EXPECT_EQ(std::count(ran.Out.begin(), ran.Out.end(), '\n'), 1) << ran.Out;
    return json::parse(ran.Out).as_object();
  }

  static std::string TextOf(const json::object& added) { return std::string(added.at("token").as_string()); }
  static std::string IdOf(const json::object& added) { return std::string(added.at("id").as_string()); }

  static std::vector<json::object> List() {
    const TRan ran = Token({"list"});
    EXPECT_EQ(ran.Status, 0) << ran.Err;
    std::istringstream lines(ran.Out);
    std::vector<json::object> tokens;
    for (std::string line; std::getline(lines, line);) tokens.push_back(json::parse(line).as_object());
    return tokens;
  }

  /// What a server says about it, `later` from now.
  static TTokenVerdict Verdict(const std::string& text, std::chrono::seconds later = {}) {
    zanhost::TBearerToken found;
    return zanhost::TTokenBook(FSample->Folder()).Check(text, system_clock::now() + later, found);
  }

  static std::string Log() { return zanhost::ReadFile(FSample->Folder() / "log/zanhost.log"); }

  /// Refused with one sentence and without a new token.
  static std::string Refusal(const TRan& ran, int status = 1) {
    EXPECT_EQ(ran.Status, status) << ran.Out;
    EXPECT_THAT(ran.Out, IsEmpty());
    EXPECT_THAT(ran.Err, testing::StartsWith("zanhost: "));
    EXPECT_EQ(std::count(ran.Err.begin(), ran.Err.end(), '\n'), 1) << ran.Err;
    EXPECT_THAT(zanhost::ReadTokens(FSample->Folder()), IsEmpty());
    return ran.Err;
  }

  static std::unique_ptr<zantest::TSampleInstallation> FSample;
};

std::unique_ptr<zantest::TSampleInstallation> TokenCommand::FSample;

}  // namespace

TEST_F(TokenCommand, AddShowsTheTokenAndWhatItMayAsk) {
  const json::object added =
      Added(Token({"add", "--name", "报表", "--functions", "GetDomains,GetCurDomainID", "--questions",
                   "rights,menus", "--logins", "李四,wang", "--per-second", "7"}));
  EXPECT_EQ(added.at("name"), "报表");
  EXPECT_EQ(added.at("functions"), (json::array{"GetDomains", "GetCurDomainID"}));
  EXPECT_EQ(added.at("questions"), (json::array{"rights", "menus"}));
  EXPECT_EQ(added.at("logins"), (json::array{"李四", "wang"}));
  EXPECT_EQ(added.at("perSecond"), 7);
  EXPECT_EQ(Verdict(TextOf(added)), TTokenVerdict::Valid);
}

TEST_F(TokenCommand, ListTellsEverythingButTheSecret) {
  const json::object one = Added(Add("one"));
  const json::object other = Added(Add("other", {"--functions", "*"}));
  const std::vector<json::object> tokens = List();
  ASSERT_EQ(tokens.size(), 2U);
  EXPECT_EQ(tokens[0].at("name"), "one");
  EXPECT_EQ(tokens[0].at("expired"), false);
  EXPECT_EQ(tokens[1].at("id"), other.at("id"));
  EXPECT_EQ(tokens[1].at("functions"), json::array{"*"});
  for (const char* secret : {"token", "hash"}) EXPECT_FALSE(tokens[0].contains(secret));
  EXPECT_THAT(Token({"list"}).Out, Not(HasSubstr(TextOf(one).substr(17))));
}

TEST_F(TokenCommand, ListOfNoneIsEmpty) { EXPECT_THAT(List(), IsEmpty()); }

TEST_F(TokenCommand, ListTellsWhatIsExpired) {
  Added(Add("a"));
  zanhost::ChangeTokens(FSample->Folder(), [](std::vector<zanhost::TBearerToken>& tokens) {
    tokens[0].Expires = tokens[0].Created - std::chrono::seconds(1);
  });
  EXPECT_EQ(List().at(0).at("expired"), true);
}

TEST_F(TokenCommand, RevokedByIdByNameAndByItsText) {
  const std::string text = TextOf(Added(Add("by text")));
  const std::string id = IdOf(Added(Add("by id")));
  Added(Add("by name"));
  for (const std::string& wanted : {text, id, std::string("by name")}) {
    const TRan ran = Token({"revoke", wanted});
    EXPECT_EQ(ran.Status, 0) << ran.Err;
    EXPECT_THAT(ran.Out, HasSubstr("is revoked"));
  }
  EXPECT_THAT(List(), IsEmpty());
  EXPECT_EQ(Verdict(text), TTokenVerdict::Unknown);
}

TEST_F(TokenCommand, UnknownOneIsNotRevoked) {
  EXPECT_THAT(Refusal(Token({"revoke", "nobody's"})), HasSubstr("'nobody's'"));
  Refusal(Token({"revoke"}), 2);
}

TEST_F(TokenCommand, EachChangeIsALineOfTheLogWithoutTheSecret) {
  const json::object added = Added(Add("logged"));
  ASSERT_EQ(Token({"revoke", TextOf(added)}).Status, 0);
  const std::string log = Log();
  EXPECT_THAT(log, HasSubstr("operator=\"[ZanBuilder]\" operation=\"token add logged\" outcome=\"ok\""));
  EXPECT_THAT(log, HasSubstr("operation=\"token revoke " + IdOf(added) + " logged\" outcome=\"ok\""));
  EXPECT_THAT(log, Not(HasSubstr(TextOf(added).substr(17))));
}

TEST_F(TokenCommand, ExpiresAfter90DaysUnlessToldOtherwise) {
  using std::chrono::days;
  using std::chrono::hours;
  const std::string usual = TextOf(Added(Add("usual")));
  EXPECT_EQ(Verdict(usual, days(90) - hours(1)), TTokenVerdict::Valid);
  EXPECT_EQ(Verdict(usual, days(90)), TTokenVerdict::Expired);
  const std::string shorter = TextOf(Added(Add("short", {"--days", "1"})));
  EXPECT_EQ(Verdict(shorter, days(1) - hours(1)), TTokenVerdict::Valid);
  EXPECT_EQ(Verdict(shorter, days(1)), TTokenVerdict::Expired);
}

TEST_F(TokenCommand, ExpiresWithTheBeginningOfADay) {
  const std::string day = zanhost::UtcText(system_clock::now() + std::chrono::days(30)).substr(0, 10);
  EXPECT_EQ(Added(Add("a", {"--expires", day})).at("expires").as_string(), day + "T00:00:00Z");
}

TEST_F(TokenCommand, WrongExpiryIsRefused) {
  const std::string today = zanhost::UtcText(system_clock::now()).substr(0, 10);
  EXPECT_THAT(Refusal(Add("a", {"--expires", today})), HasSubstr("in the past"));
  EXPECT_THAT(Refusal(Add("a", {"--expires", "2020-01-01"})), HasSubstr("in the past"));
  EXPECT_THAT(Refusal(Add("a", {"--days", "1830"})), HasSubstr("within 5 years"));
  EXPECT_THAT(Refusal(Add("a", {"--expires", "2199-01-01"})), HasSubstr("within 5 years"));
  for (const char* day : {"soon", "2027-02-30", "31.1.2027", "2027-01-31T08:00:00Z"})
    EXPECT_THAT(Refusal(Add("a", {"--expires", day})), HasSubstr(day));
  Refusal(Add("a", {"--days", "0"}), 2);
  Refusal(Add("a", {"--days", "-1"}), 2);
  Refusal(Add("a", {"--days", "30", "--expires", "2027-01-31"}), 2);
}

TEST_F(TokenCommand, ScopeThatAllowsNothingIsRefused) {
  EXPECT_THAT(Refusal(Token({"add", "--name", "a", "--logins", "li"})), HasSubstr("functions or questions"));
  EXPECT_THAT(Refusal(Token({"add", "--name", "a", "--questions", "menus"})), HasSubstr("logins"));
  EXPECT_THAT(Refusal(Token({"add", "--name", "a", "--questions", "menus", "--logins", ""})),
              HasSubstr("empty name"));
  Refusal(Token({"add", "--questions", "menus", "--logins", "li"}), 2);
}

TEST_F(TokenCommand, UnknownFunctionsAndQuestionsAreRefused) {
  EXPECT_THAT(Refusal(Add("a", {"--functions", "GetDomains,NoSuchFunction"})), HasSubstr("'NoSuchFunction'"));
  // A menu function opens a console, so nobody can ask it.
  EXPECT_THAT(Refusal(Add("a", {"--functions", "*,域管理"})), HasSubstr("'域管理'"));
  EXPECT_THAT(Refusal(Token({"add", "--name", "a", "--questions", "menu", "--logins", "li"})),
              HasSubstr("there are menus, denied, rights, holders"));
}

TEST_F(TokenCommand, NameIsGivenOnceAndNotTooLong) {
  EXPECT_THAT(Refusal(Add("")), HasSubstr("needs a name"));
  EXPECT_THAT(Refusal(Add(std::string(101, 'x'))), HasSubstr("at most 100 bytes"));
  Added(Add("twice"));
  const TRan again = Add("twice");
  EXPECT_EQ(again.Status, 1);
  EXPECT_THAT(again.Err, HasSubstr("'twice'"));
  EXPECT_EQ(List().size(), 1U);
}

TEST_F(TokenCommand, RateIsAtLeastOne) {
  Refusal(Add("a", {"--per-second", "0"}), 2);
  Refusal(Add("a", {"--per-second", "many"}), 2);
}

TEST_F(TokenCommand, BrokenFileIsSaidAndLeftAlone) {
  const std::filesystem::path file = zanhost::TokenFileOf(FSample->Folder());
  for (const TRan& ran : {Token({"list"}), Add("a")}) EXPECT_EQ(ran.Status, 0);
  zanhost::ReplacePrivateFile(file, "{\"tokens\":");
  for (const TRan& ran : {Token({"list"}), Add("b"), Token({"revoke", "a"})}) {
    EXPECT_EQ(ran.Status, 1);
    EXPECT_THAT(ran.Err, HasSubstr("tokens.json cannot be read: it is no JSON"));
  }
  EXPECT_EQ(zanhost::ReadFile(file), "{\"tokens\":");
}

TEST_F(TokenCommand, WithoutAnInstallationNothingIsMade) {
  const zantest::TTemporaryFolder parent;
  const std::string url = "sqlite:" + (parent / "missing").string();
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"add", "--name", "a", "--questions", "*", "--logins", "*"},
        {"list"},
        {"revoke", "a"}}) {
    std::vector<std::string> all{"token"};
    all.insert(all.end(), words.begin(), words.end());
    all.insert(all.end(), {"--data", url});
    Refusal(zantest::RunProgram(all));
    EXPECT_FALSE(std::filesystem::exists(parent / "missing")) << words[0];
  }
}

TEST_F(TokenCommand, HelpOfEachSubcommandHasExamples) {
  for (const char* subcommand : {"add", "list", "revoke"}) {
    const TRan ran = zantest::RunProgram({"token", subcommand, "--help"});
    EXPECT_EQ(ran.Status, 0);
    for (const char* part : {"--data", "--user", "Examples:", "zanhost token "})
      EXPECT_THAT(ran.Out, HasSubstr(part)) << subcommand;
  }
  EXPECT_THAT(zantest::RunProgram({"--help"}).Out, HasSubstr("\n  token "));
  EXPECT_EQ(zantest::RunProgram({"token"}).Status, 2);
}
