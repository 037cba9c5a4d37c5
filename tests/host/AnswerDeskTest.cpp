#include "host/answers/AnswerDesk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/json.hpp>

#include "tests/host/InstalledSample.h"

// Questions of other services, each answered in the session of its login.

namespace zantest {
namespace {

namespace json = boost::json;
using testing::HasSubstr;
using zanhost::TQuestion;
using zanhost::TQuestionKind;
using zanhost::TReply;

class AnswerDeskTest : public testing::Test {
 protected:
  TReply Ask(const TQuestion& question) { return Desk.Answer(question); }
  json::object Answer(const TQuestion& question) {
    const TReply reply = Ask(question);
    EXPECT_EQ(reply.Status, 200U) << reply.Body;
    return reply.Status == 200 ? json::parse(reply.Body).as_object() : json::object();
  }
  std::string RightOf(const std::string& login) {
    TQuestion question = About(TQuestionKind::Right, login);
    question.ObjectID = kObject;
    question.Operation = "执行";
    return std::string(Answer(question).at("right").as_string());
  }
  static TQuestion About(TQuestionKind kind, const std::string& login) {
    TQuestion question;
    question.Kind = kind;
    question.Login = login;
    return question;
  }
  static TQuestion CallOf(const std::string& function, const std::string& login,
                          zanhost::TNamedValues inputs = {}) {
    TQuestion question = About(TQuestionKind::Call, login);
    question.Function = function;
    question.Inputs = std::move(inputs);
    return question;
  }
  void Run(const std::string& statement) {
    const auto query = Installed.Database().GetQuery();
    query->SQL().SetText(statement);
    query->ExecSQL();
  }
  std::string TextOf(const std::string& statement) {
    const auto query = Installed.Database().GetQuery();
    query->SQL().SetText(statement);
    query->Open();
    return query->Fields(0).AsString();
  }

  /// No object of the sample has this number, so nobody has a right on it.
  static constexpr int kObject = 990099;

  TInstalledSample Installed;
  zanhost::TAnswerDesk Desk{Installed.OptionsOf(""), ""};
  std::string User = TextOf("select min(UserID) from STUsers where uGroup = 0 and IsAdministrator = 0");
  std::string UserOID = TextOf("select OID from STUsers where uGroup = 0 and UserID = '" + User + "'");
};

TEST_F(AnswerDeskTest, AFunctionIsEvaluatedAsTheLogin) {
  const auto type = [this](const std::string& login) {
    return Answer(CallOf("GetCurUserType", login)).at("out").as_object().at("Result");
  };
  EXPECT_EQ(type(User), "0");
  EXPECT_EQ(type("admin"), "1");
}

TEST_F(AnswerDeskTest, ACallChoosesTheDomainForItselfAlone) {
  TQuestion inDomain = CallOf("GetCurDomainID", User);
  inDomain.Domain = 7;
  const auto domain = [this](const TQuestion& question) {
    return Answer(question).at("out").as_object().at("Result");
  };
  EXPECT_EQ(domain(inDomain), "7");
  EXPECT_EQ(domain(CallOf("GetCurDomainID", User)), "-1");
}

TEST_F(AnswerDeskTest, AnInputThatTheFunctionDoesNotDeclareIsPassedOnAndTold) {
  const json::object answer = Answer(CallOf("GetCurUserType", User, {{"另一个", "x"}}));
  EXPECT_EQ(answer.at("undeclared"), (json::array{"另一个"}));
}

TEST_F(AnswerDeskTest, AFunctionThatPastesTextsAnswersAsAnyOther) {
  const json::object answer =
      Answer(CallOf("GetDomainInfo", "admin", {{"返回内容", "max(ID)"}, {"查询条件", "1=1"}}));
  EXPECT_EQ(std::string(answer.at("out").as_object().at("Result").as_string()),
            TextOf("select max(ID) from STDomains"));
}

TEST_F(AnswerDeskTest, AFunctionThatPastesTextsReadsNoPassword) {
  const std::string password = TextOf("select Password from STUsers where UserID = 'admin'");
  ASSERT_FALSE(password.empty());
  const TReply reply = Ask(
      CallOf("GetDomainInfo", "admin",
             {{"返回内容", "(select Password from STUsers where UserID = 'admin')"}, {"查询条件", "1=1"}}));
  EXPECT_EQ(reply.Status, 422U);
  EXPECT_EQ(reply.Body.find(password), std::string::npos);
}

TEST_F(AnswerDeskTest, UnknownFunctionsLoginsTypesAndObjectsAreNotFound) {
  EXPECT_EQ(Ask(CallOf("NoSuchFunction", User)).Status, 404U);
  EXPECT_EQ(Ask(CallOf("GetCurUserType", "nobody")).Status, 404U);
  TQuestion denied = About(TQuestionKind::Denied, User);
  denied.Type = "无此类型";
  denied.Object = "x";
  EXPECT_EQ(Ask(denied).Status, 404U);
  denied.Type = "单据";
  EXPECT_EQ(Ask(denied).Status, 404U);
}

TEST_F(AnswerDeskTest, AChangeOfRightsShowsInTheNextAnswer) {
  EXPECT_EQ(RightOf(User), "");
  const std::string row = UserOID + ", " + std::to_string(kObject) + ", '执行'";
  Run("insert into STPermission (UserID, ObjectID, Oprate, Permission) values (" + row + ", 1)");
  EXPECT_EQ(RightOf(User), "允许");
  Run("update STPermission set Permission = 0 where ObjectID = " + std::to_string(kObject));
  EXPECT_EQ(RightOf(User), "禁止");
}

TEST_F(AnswerDeskTest, SessionsOfManyLoginsDoNotMix) {
  const std::string row = UserOID + ", " + std::to_string(kObject) + ", '执行'";
  Run("insert into STPermission (UserID, ObjectID, Oprate, Permission) values (" + row + ", 0)");
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(RightOf(User), "禁止");
    EXPECT_EQ(RightOf("admin"), "允许");
  }
}

TEST_F(AnswerDeskTest, TheReasonComesInTheLanguageOfTheQuestion) {
  TQuestion question = About(TQuestionKind::Right, User);
  question.ObjectID = kObject;
  question.Operation = "执行";
  EXPECT_THAT(json::serialize(Answer(question).at("reason")), HasSubstr("不允许"));
  question.Language = "en";
  EXPECT_THAT(json::serialize(Answer(question).at("reason")), HasSubstr("not allowed"));
}

TEST_F(AnswerDeskTest, ADisabledAccountIsTold) {
  Run("update STUsers set UnUsed = 1 where OID = " + UserOID);
  TQuestion question = About(TQuestionKind::Right, User);
  question.ObjectID = kObject;
  question.Operation = "执行";
  EXPECT_EQ(Answer(question).at("disabled"), true);
}

TEST_F(AnswerDeskTest, ALineOfAQuestionReadsAsTheQuestion) {
  TQuestion question = CallOf("RoleSuperiorEx", "li", {{"当前用户", "a\"b\n"}});
  question.Number = 12;
  question.Language = "en";
  question.Scope = {"*"};
  question.Domain = -1;
  question.ObjectID = 0;
  question.After = 5;
  question.Limit = 9;
  const std::string line = zanhost::QuestionLine(question);
  EXPECT_EQ(line.find('\n'), std::string::npos);
  EXPECT_EQ(zanhost::QuestionLine(zanhost::ParseQuestion(line)), line);
  EXPECT_THROW(zanhost::ParseQuestion("{}"), zanrole::EZanError);
  EXPECT_THROW(zanhost::ParseQuestion("[1"), zanrole::EZanError);
}

}  // namespace
}  // namespace zantest
