#include "host/answers/AnswerProcess.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <thread>

#include "host/answers/Question.h"
#include "host/worker/WatchedChannel.h"
#include "tests/host/InstalledSample.h"

// An answer process at the other end of a socket.

namespace zantest {
namespace {

constexpr std::size_t kLongestLine = 1024UL * 1024;

class AnswerProcessTest : public testing::Test {
 protected:
  AnswerProcessTest() {
    EXPECT_EQ(::socketpair(AF_UNIX, SOCK_STREAM, 0, FEnds), 0);
    FGateway.emplace(FEnds[0], FEnds[0], kLongestLine);
    FProcess = std::thread([this] {
      zanhost::TWatchedChannel channel(FEnds[1], FEnds[1], kLongestLine);
      EXPECT_EQ(zanhost::RunAnswers(Installed.OptionsOf(""), "", channel), 0);
    });
  }
  ~AnswerProcessTest() override {
    ::shutdown(FEnds[0], SHUT_WR);
    FProcess.join();
    ::close(FEnds[0]);
    ::close(FEnds[1]);
  }

  void Say(const std::string& line) { FGateway->Write(line); }
  std::string Hear() {
    std::string line;
    EXPECT_EQ(FGateway->Read(line, /*wait*/ true), zanhost::TReading::Line);
    return line;
  }
  static zanhost::TQuestion CallOf(std::int64_t number, const std::string& function) {
    zanhost::TQuestion question;
    question.Kind = zanhost::TQuestionKind::Call;
    question.Number = number;
    question.Login = "admin";
    question.Function = function;
    return question;
  }
  /// A question that the restricted connection would give up after five seconds.
  static std::string LongQuestion(std::int64_t number) {
    zanhost::TQuestion question = CallOf(number, "GetDomainInfo");
    question.Inputs = {
        {"返回内容", "(select count(*) from STUsers a, STUsers b, STUsers c, STUsers d, STUsers e)"},
        {"查询条件", "1=1"}};
    return zanhost::QuestionLine(question);
  }

  TInstalledSample Installed;

 private:
  int FEnds[2] = {-1, -1};
  std::optional<zanhost::TDescriptorChannel> FGateway;
  std::thread FProcess;
};

TEST_F(AnswerProcessTest, AnswersInTurnWithTheNumbersOfTheQuestions) {
  Say(zanhost::QuestionLine(CallOf(7, "GetCurUserType")));
  Say(zanhost::QuestionLine(CallOf(8, "NoSuchFunction")));
  EXPECT_TRUE(Hear().starts_with("7 200 {"));
  EXPECT_TRUE(Hear().starts_with("8 404 There is no"));
}

TEST_F(AnswerProcessTest, AQuestionIsCancelledByItsOwnNumberAlone) {
  const auto start = std::chrono::steady_clock::now();
  Say(LongQuestion(1));
  Say(R"({"n":99,"do":"cancel"})");
  std::this_thread::sleep_for(std::chrono::milliseconds(1500));
  Say(R"({"n":1,"do":"cancel"})");
  EXPECT_TRUE(Hear().starts_with("1 422 "));
  const auto took = std::chrono::steady_clock::now() - start;
  EXPECT_GT(took, std::chrono::milliseconds(1500)) << "the number of another question ends nothing";
  EXPECT_LT(took, std::chrono::milliseconds(4500)) << "not by the limit of the connection";
  Say(zanhost::QuestionLine(CallOf(2, "GetCurUserType")));
  EXPECT_TRUE(Hear().starts_with("2 200 "));
}

}  // namespace
}  // namespace zantest
