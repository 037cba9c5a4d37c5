#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <chrono>

#include "host/worker/LineChannel.h"
#include "tests/host/InstalledSample.h"

// One login for a script, and the lines that it comes and goes by.

namespace zantest {
namespace {

namespace json = boost::json;
using zanhost::TReading;

class ScriptTest : public testing::Test {
 protected:
  void Start(const zanhost::TSessionOptions& options) {
    Driver.emplace([options](zanhost::TLineChannel& channel) { zanhost::RunScript(options, channel); });
    Driver->Start();
  }

  TInstalledSample Installed;
  std::optional<TSessionDriver> Driver;
};

TEST_F(ScriptTest, BeginsWithAnEmptySnapshot) {
  Start(Installed.OptionsOf("admin"));
  EXPECT_TRUE(Driver->Client.Windows().empty());
}

TEST_F(ScriptTest, AMenuFunctionOpensItsConsole) {
  Start(Installed.OptionsOf("admin"));
  const json::object answer = Driver->Send({{"do", "menu"}, {"function", "域管理"}});
  EXPECT_EQ(answer.at("ack"), 1);
  EXPECT_EQ(Driver->Client.WindowOf("TFormDomains"), 1);
}

TEST_F(ScriptTest, AMenuFunctionThatIsModalIsAcknowledgedWhenItWaits) {
  Start(Installed.OptionsOf("admin"));
  Driver->Send({{"do", "menu"}, {"function", "域管理"}, {"style", 3}});
  ASSERT_EQ(Driver->Client.WindowOf("TFormDomains"), 1);
  EXPECT_EQ(Driver->Client.Windows().at(1).Properties.at("modal"), true);
  Driver->CloseWindow(1);
  EXPECT_TRUE(Driver->Client.Windows().empty());
}

TEST_F(ScriptTest, ASystemFunctionAnswersUnderTheNumberOfItsEvent) {
  zanhost::TSessionOptions options = Installed.OptionsOf("");
  options.Domain = Number(Installed.Database(), "select min(ID) from STDomains");
  Start(options);
  const json::object answer = Driver->Send({{"do", "call"}, {"function", "GetCurDomainID"}});
  EXPECT_EQ(answer.at("n"), 1);
  EXPECT_EQ(answer.at("result"), true);
  EXPECT_EQ(answer.at("out"), (json::object{{"Result", std::to_string(*options.Domain)}}));
}

TEST_F(ScriptTest, AFunctionThatIsMissingIsRefused) {
  Start(Installed.OptionsOf("admin"));
  EXPECT_TRUE(Driver->Send({{"do", "call"}, {"function", "域管理"}}).contains("error"));
  EXPECT_TRUE(Driver->Send({{"do", "menu"}, {"function", "x"}}).contains("error"));
  EXPECT_TRUE(Driver->Client.Windows().empty());
}

TEST_F(ScriptTest, AFaultOfACallIsItsAnswer) {
  Start(Installed.OptionsOf("admin"));
  Execute(Installed.Database(), "drop table STDomainMembers");
  const json::object answer = Driver->Send({{"do", "call"}, {"function", "GetOwnDomainIDs"}});
  EXPECT_EQ(answer.at("n"), 1);
  EXPECT_TRUE(answer.contains("error"));
  EXPECT_TRUE(Driver->Client.Windows().empty());
}

/// A pair of pipes with a channel on one end.
class DescriptorChannelTest : public testing::Test {
 protected:
  DescriptorChannelTest() {
    EXPECT_EQ(pipe(FIn.data()), 0);
    EXPECT_EQ(pipe(FOut.data()), 0);
  }
  ~DescriptorChannelTest() override {
    for (const int end : {FIn[0], FIn[1], FOut[0], FOut[1]}) close(end);
  }
  void Feed(std::string_view text) {
    EXPECT_EQ(write(FIn[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
  }
  void EndInput() {
    close(FIn[1]);
    FIn[1] = -1;
  }

  std::array<int, 2> FIn{};
  std::array<int, 2> FOut{};
  std::string Line;
};

TEST_F(DescriptorChannelTest, GivesLinesAsTheyComeAndSaysWhenThereAreNone) {
  zanhost::TDescriptorChannel channel(FIn[0], FOut[1], 100);
  EXPECT_EQ(channel.Read(Line, false), TReading::Nothing);
  Feed("one\ntw");
  EXPECT_EQ(channel.Read(Line, true), TReading::Line);
  EXPECT_EQ(Line, "one");
  EXPECT_EQ(channel.Read(Line, false), TReading::Nothing);
  Feed("o\r\n\nrest");
  EXPECT_EQ(channel.Read(Line, true), TReading::Line);
  EXPECT_EQ(Line, "two");
  EXPECT_EQ(channel.Read(Line, true), TReading::Line);
  EXPECT_EQ(Line, "");
  EndInput();
  EXPECT_EQ(channel.Read(Line, true), TReading::Line);
  EXPECT_EQ(Line, "rest");
  EXPECT_EQ(channel.Read(Line, true), TReading::Closed);
  EXPECT_EQ(channel.Read(Line, true), TReading::Closed);
}

TEST_F(DescriptorChannelTest, ALineOverTheLimitIsPassedOverAndTheNextOneCounts) {
  zanhost::TDescriptorChannel channel(FIn[0], FOut[1], 10);
  Feed(std::string(25, 'x'));
  EXPECT_EQ(channel.Read(Line, false), TReading::Nothing);
  Feed(std::string(25, 'y') + "\nshort\n0123456789\n01234567890\n");
  EXPECT_EQ(channel.Read(Line, true), TReading::TooLong);
  EXPECT_EQ(channel.Read(Line, true), TReading::Line);
  EXPECT_EQ(Line, "short");
  EXPECT_EQ(channel.Read(Line, true), TReading::Line);
  EXPECT_EQ(channel.Read(Line, true), TReading::TooLong);
  EXPECT_EQ(channel.Read(Line, false), TReading::Nothing);
}

TEST_F(DescriptorChannelTest, WaitsNoLongerThanItIsTold) {
  constexpr std::chrono::milliseconds kShort{5};
  constexpr std::chrono::hours kLong{1};
  zanhost::TDescriptorChannel channel(FIn[0], FOut[1], 100);
  EXPECT_FALSE(channel.Wait(kShort));
  Feed("one\ntwo\n");
  EXPECT_TRUE(channel.Wait(kLong));
  EXPECT_EQ(channel.Read(Line, true), TReading::Line);
  EXPECT_TRUE(channel.Wait(kLong)) << "the second line has been read already";
  EXPECT_EQ(channel.Read(Line, true), TReading::Line);
  EXPECT_FALSE(channel.Wait(kShort));
  EndInput();
  EXPECT_TRUE(channel.Wait(kLong));
  EXPECT_EQ(channel.Read(Line, true), TReading::Closed);
  EXPECT_TRUE(channel.Wait(kLong));
}

TEST_F(DescriptorChannelTest, WritesWholeLines) {
  zanhost::TDescriptorChannel channel(FIn[0], FOut[1], 10);
  channel.Write("hello");
  std::array<char, 16> got{};
  EXPECT_EQ(read(FOut[0], got.data(), got.size()), 6);
  EXPECT_STREQ(got.data(), "hello\n");
}

}  // namespace
}  // namespace zantest
