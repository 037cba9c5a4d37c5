#include "host/platform/TokenFile.h"

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <thread>

#include "host/platform/Files.h"
#include "tests/host/TokenFixture.h"

using namespace zanhost;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class TokenFile : public zantest::TTokenFixture {
 protected:
  void Keep(const std::string& text) { ReplacePrivateFile(TokenFileOf(Folder()), text); }

  /// The file with a part of it replaced.
  static std::string Replaced(std::string text, const std::string& part, const std::string& by) {
    const std::size_t place = text.find(part);
    EXPECT_NE(place, std::string::npos) << part << " in " << text;
    return text.replace(place, part.size(), by);
  }

  std::string Fault() {
    try {
      ReadTokens(Folder());
      return {};
    } catch (const zanrole::EZanError& fault) {
      return fault.what();
    }
  }
};

}  // namespace

TEST_F(TokenFile, WithoutAFileThereAreNoTokens) { EXPECT_THAT(ReadTokens(Folder()), IsEmpty()); }

TEST_F(TokenFile, WhatIsWrittenIsReadBack) {
  const TBearerToken made = Add("报表 \"\\\n").Token;
  const std::vector<TBearerToken> tokens = ReadTokens(Folder());
  ASSERT_THAT(tokens, SizeIs(1));
  EXPECT_EQ(DescribeToken(tokens[0]), DescribeToken(made));
  EXPECT_EQ(tokens[0].SecretHash, made.SecretHash);
  EXPECT_EQ(tokens[0].Created, made.Created);
  EXPECT_EQ(tokens[0].Expires, made.Expires);
}

TEST_F(TokenFile, DescriptionHasNoHash) {
  const TBearerToken made = Add("a").Token;
  const boost::json::object described = DescribeToken(made);
  EXPECT_EQ(described.if_contains("hash"), nullptr);
  EXPECT_EQ(described.at("expires"), "2027-04-15T08:00:00Z");
}

TEST_F(TokenFile, AnythingElseIsAFaultAndNeverNoTokens) {
  Add("a");
  const std::string good = ReadFile(TokenFileOf(Folder()));
  for (const std::string& text :
       {std::string(), std::string("{"), std::string("[]"), std::string("{}"), std::string("null"),
        std::string("{\"tokens\":null}"), std::string("{\"tokens\":[1]}"), std::string("{\"tokens\":[{}]}"),
        good + "x", good.substr(0, good.size() / 2), Replaced(good, "\"logins\"", "\"login\""),
        Replaced(good, "\"perSecond\":100", "\"perSecond\":\"100\""),
        Replaced(good, "\"perSecond\":100", "\"perSecond\":-1"),
        Replaced(good, "\"perSecond\":100", "\"perSecond\":0"),
        Replaced(good, "\"logins\":[\"", "\"logins\":[\"\",\""),
        Replaced(good, "\"perSecond\":100", "\"perSecond\":100,\"onlyFrom\":\"10.0.0.1\""),
        Replaced(good, "[\"li\"]", "\"li\""), Replaced(good, "[\"li\"]", "[1]"),
        Replaced(good, "2027-04-15T08:00:00Z", "2027-04-31T08:00:00Z")}) {
    Keep(text);
    EXPECT_THAT(Fault(), HasSubstr("cannot be read")) << text;
    EXPECT_THROW(Add("b"), zanrole::EZanError);
    EXPECT_EQ(ReadFile(TokenFileOf(Folder())), text);
  }
}

TEST_F(TokenFile, ThatIsOpenToOthersIsNotBelieved) {
  Add("a");
  std::filesystem::permissions(TokenFileOf(Folder()), std::filesystem::perms::group_write,
                               std::filesystem::perm_options::add);
  EXPECT_THAT(Fault(), HasSubstr("chmod 600"));
}

TEST_F(TokenFile, FolderInItsPlaceIsAFault) {
  std::filesystem::create_directory(TokenFileOf(Folder()));
  EXPECT_THAT(Fault(), HasSubstr("cannot be read"));
}

TEST_F(TokenFile, ChangeThatRaisesWritesNothing) {
  Add("a");
  const std::string before = ReadFile(TokenFileOf(Folder()));
  const auto change = [](std::vector<TBearerToken>& tokens) {
    tokens.clear();
    throw zanrole::EZanError("no");
  };
  EXPECT_THROW(ChangeTokens(Folder(), change), zanrole::EZanError);
  EXPECT_EQ(ReadFile(TokenFileOf(Folder())), before);
}

TEST_F(TokenFile, FolderThatIsNotThereIsSaid) {
  EXPECT_THROW(AddToken(Folder() / "missing", Request("a"), kNow), zanrole::EZanError);
  EXPECT_THAT(ReadTokens(Folder() / "missing"), IsEmpty());
}

TEST_F(TokenFile, ProcessesThatAddAtOnceLoseNothing) {
  constexpr int kProcesses = 4;
  constexpr int kTokens = 15;
  std::vector<::pid_t> children;
  for (int process = 0; process < kProcesses; ++process) {
    children.push_back(::fork());
    if (children.back() != 0) continue;
    for (int i = 0; i < kTokens; ++i) Add(std::to_string(process) + "." + std::to_string(i));
    ::_exit(0);
  }
  // No other child: the servers of other tests go on.
  for (const ::pid_t child : children) EXPECT_EQ(::waitpid(child, nullptr, 0), child);
  EXPECT_THAT(ReadTokens(Folder()), SizeIs(kProcesses * kTokens));
}

TEST_F(TokenFile, ThreadsThatAddAtOnceLoseNothing) {
  constexpr int kThreads = 4;
  constexpr int kTokens = 15;
  std::vector<std::jthread> threads;
  for (int thread = 0; thread < kThreads; ++thread)
    threads.emplace_back([this, thread] {
      for (int i = 0; i < kTokens; ++i) Add(std::to_string(thread) + "." + std::to_string(i));
    });
  threads.clear();
  EXPECT_THAT(ReadTokens(Folder()), SizeIs(kThreads * kTokens));
}
