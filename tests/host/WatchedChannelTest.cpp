#include "host/worker/WatchedChannel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <chrono>

#include "host/worker/Worker.h"
#include "tests/host/InstalledSample.h"

// Lines read ahead, so that what runs can be cancelled.

namespace zantest {
namespace {

using zanhost::TReading;
using zanhost::TWatchedChannel;

constexpr std::size_t kLongestLine = 4096;
constexpr char kCancel[] = R"({"n":2,"do":"cancel"})";

/// A channel, and the end of whoever drives the session.
class TLine {
 public:
  TLine() {
    std::array<int, 2> ends{};
    EXPECT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()), 0);
    FOwn = ends[0];
    FOther = ends[1];
    Channel.emplace(FOwn, FOwn, kLongestLine);
  }
  ~TLine() {
    Channel.reset();
    Close();
    ::close(FOwn);
  }
  TLine(const TLine&) = delete;
  TLine& operator=(const TLine&) = delete;

  void Say(const std::string& line) {
    const std::string text = line + "\n";
    EXPECT_EQ(::write(FOther, text.data(), text.size()), static_cast<ssize_t>(text.size()));
  }
  void Close() {
    if (FOther >= 0) ::close(FOther);
    FOther = -1;
  }
  /// What the session writes, up to and with this text.
  std::string HearUntil(const std::string& part) {
    std::string heard;
    std::array<char, 4096> piece;
    while (heard.find(part) == std::string::npos) {
      const ssize_t got = ::read(FOther, piece.data(), piece.size());
      if (got <= 0) break;
      heard.append(piece.data(), static_cast<std::size_t>(got));
    }
    return heard;
  }

  std::optional<TWatchedChannel> Channel;

 private:
  int FOwn = -1;
  int FOther = -1;
};

TEST(WatchedChannel, PassesLinesOnInTheirOrder) {
  TLine line;
  line.Say("one");
  line.Say(std::string(2 * kLongestLine, 'x'));
  line.Say(kCancel);
  line.Close();
  std::string read;
  EXPECT_EQ(line.Channel->Read(read, true), TReading::Line);
  EXPECT_EQ(read, "one");
  EXPECT_EQ(line.Channel->Read(read, true), TReading::TooLong);
  EXPECT_EQ(line.Channel->Read(read, true), TReading::Line);
  EXPECT_EQ(read, kCancel);
  EXPECT_EQ(line.Channel->Read(read, true), TReading::Closed);
  EXPECT_EQ(line.Channel->Read(read, false), TReading::Closed);
}

TEST(WatchedChannel, HasNothingWhenNothingCame) {
  TLine line;
  std::string read;
  EXPECT_EQ(line.Channel->Read(read, false), TReading::Nothing);
}

TEST(WatchedChannel, CancelsWhileNobodyReads) {
  std::atomic<int> cancelled = 0;
  TLine line;
  line.Channel->SetOnCancel([&](std::int64_t) { ++cancelled; });
  line.Say(R"({"n":1,"do":"act","window":1,"name":"cancel"})");
  line.Say(kCancel);
  const auto start = std::chrono::steady_clock::now();
  while (cancelled == 0 && std::chrono::steady_clock::now() - start < std::chrono::seconds(10))
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  EXPECT_EQ(cancelled, 1);
  line.Channel->SetOnCancel(nullptr);
  line.Say(kCancel);
  line.Close();
  std::string read;
  while (line.Channel->Read(read, true) != TReading::Closed) {
  }
  EXPECT_EQ(cancelled, 1) << "what was taken away does not run";
}

TEST(WatchedChannel, TakesMoreLinesThanItReadsAhead) {
  constexpr int kLines = 5000;
  TLine line;
  std::thread other([&] {
    for (int i = 0; i < kLines; ++i) line.Say(std::to_string(i));
  });
  std::string read;
  for (int i = 0; i < kLines; ++i) {
    ASSERT_EQ(line.Channel->Read(read, true), TReading::Line);
    ASSERT_EQ(read, std::to_string(i));
  }
  other.join();
}

TEST(WatchedChannel, AStatementThatTakesTooLongIsCancelledByThePerson) {
  const TInstalledSample installed;
  TLine line;
  std::thread session([&] { zanhost::RunScript(installed.OptionsOf("admin"), *line.Channel); });
  line.HearUntil("snapshot");
  const auto start = std::chrono::steady_clock::now();
  line.Say(R"~({"n":1,"do":"call","function":"GetDomainInfo","in":{"返回内容":"ID","查询条件":"ID in ()~"
           R"~(with cte(n) as (select 1 union all select n from cte) select count(*) from cte)"}})~");
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  line.Say(kCancel);
  EXPECT_THAT(line.HearUntil("\"error\""), testing::HasSubstr("The statement was cancelled."));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
  line.Say(R"({"n":3,"do":"call","function":"GetDomainInfo","in":{"返回内容":"ID","查询条件":"ID = 1"}})");
  EXPECT_THAT(line.HearUntil("\"Result\""), testing::HasSubstr(R"("Result":"1")")) << "the session goes on";
  line.Say(R"({"n":4,"do":"quit"})");
  line.HearUntil("bye");
  session.join();
}

}  // namespace
}  // namespace zantest
