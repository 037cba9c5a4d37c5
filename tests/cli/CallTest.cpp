#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/json.hpp>

#include <sstream>

#include "host/platform/Files.h"
#include "host/query/DataUrl.h"
#include "tests/cli/Program.h"

using testing::HasSubstr;
using testing::IsEmpty;
using zantest::TRan;

namespace {

class CallCommand : public testing::Test {
 protected:
  static void SetUpTestSuite() { FSample = std::make_unique<zantest::TSampleInstallation>(); }
  static void TearDownTestSuite() { FSample.reset(); }

  static TRan Call(std::vector<std::string> words) {
    words.insert(words.begin(), "call");
    return FSample->Run(words);
  }

  // Domains have the names that their tests want.
  static void RenameDomain(int id, const std::string& name) {
    const auto database = zanhost::OpenDatabase(FSample->Url(), zanhost::TOpenMode::MustExist);
    const auto query = database->GetQuery();
    query->SQL().SetText("update STDomains set Name = :Name where ID = :ID");
    query->ParamByName("Name").AsString(name);
    query->ParamByName("ID").AsInteger(id);
    query->ExecSQL();
  }

  static std::unique_ptr<zantest::TSampleInstallation> FSample;
};

std::unique_ptr<zantest::TSampleInstallation> CallCommand::FSample;

// One line of JSON and nothing else.
boost::json::object AnswerOf(const TRan& ran) {
  EXPECT_EQ(std::count(ran.Out.begin(), ran.Out.end(), '\n'), 1) << ran.Out;
  return boost::json::parse(ran.Out).as_object();
}

std::string ResultOf(const TRan& ran) {
  const boost::json::object answer = AnswerOf(ran);
  EXPECT_EQ(ran.Status, 0) << ran.Err;
  EXPECT_TRUE(answer.contains("out")) << ran.Out;
  return answer.contains("out") ? std::string(answer.at("out").at("Result").as_string()) : ran.Out;
}

std::string ErrorOf(const TRan& ran) {
  const boost::json::object answer = AnswerOf(ran);
  EXPECT_EQ(ran.Status, 1);
  return answer.contains("error") ? std::string(answer.at("error").as_string()) : "";
}

}  // namespace

TEST_F(CallCommand, PrintsTheOutputsOfAFunction) {
  const TRan ran = Call({"GetDomains", "返回内容=ID", "查询范围=Current", "是否包含下级域=false", "--builder",
                         "--domain", "1"});
  EXPECT_EQ(ran.Status, 0);
  EXPECT_EQ(ran.Out, "{\"result\":true,\"out\":{\"Result\":\"1\"}}\n");
  EXPECT_THAT(ran.Err, IsEmpty());
}

TEST_F(CallCommand, WithoutADomainThereIsNoCurrentOne) {
  EXPECT_EQ(ResultOf(Call({"GetCurDomainID", "--builder"})), "-1");
  EXPECT_EQ(ResultOf(Call({"GetCurDomainID", "--builder", "--domain", "3"})), "3");
}

TEST_F(CallCommand, OperatorIsTheUserThatIsNamed) {
  EXPECT_EQ(ResultOf(Call({"GetCurUserType", "--user", "admin"})), "1");
}

TEST_F(CallCommand, TextPassesExactly) {
  for (const std::string name :
       {"O'Brien \"x\" \\ a\\\\b", "𠀀𠮷 \U0001F511 =a=b", "%s :Name -- ; /* */", "[x,y]"}) {
    RenameDomain(1, name);
    EXPECT_EQ(ResultOf(Call({"GetCurDomainName", "--builder", "--domain", "1"})), name);
    EXPECT_EQ(
        ResultOf(Call({"GetDomainInfo", "返回内容=ID",
                       "查询条件=Name = '" + zanrole::StringReplace(name, "'", "''") + "'", "--builder"})),
        "1")
        << name;
  }
}

TEST_F(CallCommand, FunctionThatDoesNotExistIsSaid) {
  EXPECT_THAT(ErrorOf(Call({"NoSuchFunction", "--builder"})), HasSubstr("NoSuchFunction"));
}

TEST_F(CallCommand, MenuFunctionIsNotCalled) {
  EXPECT_THAT(ErrorOf(Call({"域管理", "--builder"})), HasSubstr("域管理"));
}

TEST_F(CallCommand, ParameterThatIsNotDeclaredIsPassedOnWithAWarning) {
  const TRan ran = Call({"GetCurDomainID", "Bogus=1", "--builder"});
  EXPECT_EQ(ResultOf(ran), "-1");
  EXPECT_THAT(ran.Err, HasSubstr("Bogus"));
}

TEST_F(CallCommand, ArgumentWithoutANameIsRefused) {
  EXPECT_THAT(ErrorOf(Call({"GetCurDomainID", "bogus", "--builder"})), HasSubstr("name=value"));
  EXPECT_THAT(ErrorOf(Call({"GetCurDomainID", "=1", "--builder"})), HasSubstr("name=value"));
}

TEST_F(CallCommand, FaultOfAStatementIsAnErrorLine) {
  const TRan ran = Call({"GetDomainInfo", "返回内容=NoSuchColumn", "查询条件=1=1", "--builder"});
  EXPECT_THAT(ErrorOf(ran), HasSubstr("NoSuchColumn"));
  EXPECT_THAT(std::string(AnswerOf(ran).at("statement").as_string()), HasSubstr("STDomains"));
}

TEST_F(CallCommand, UnknownUserIsSaid) {
  EXPECT_THAT(ErrorOf(Call({"GetCurDomainID", "--user", "nobody"})), HasSubstr("nobody"));
  EXPECT_THAT(ErrorOf(Call({"GetCurDomainID", "--user", "Admin"})), HasSubstr("Admin"));
}

TEST_F(CallCommand, OperatorMustBeNamed) {
  EXPECT_THAT(ErrorOf(Call({"GetCurDomainID"})), HasSubstr("--user"));
}

TEST_F(CallCommand, UserAndBuilderExcludeEachOther) {
  const TRan ran = Call({"GetCurDomainID", "--user", "admin", "--builder"});
  EXPECT_EQ(ran.Status, 2);
  EXPECT_THAT(ran.Err, HasSubstr("--builder"));
}

TEST_F(CallCommand, WrongDataIsAnErrorLine) {
  for (const std::string url : {"sqlite:/nowhere/at/all", "sqlite:", "oracle:x", "/tmp"}) {
    const TRan ran = zantest::RunProgram({"call", "GetCurDomainID", "--builder", "--data", url});
    EXPECT_FALSE(ErrorOf(ran).empty()) << url;
    EXPECT_THAT(ran.Err, IsEmpty());
  }
}

TEST_F(CallCommand, TraceHasALineForEachStatement) {
  const zantest::TTemporaryFolder files;
  Call({"GetCurDomainName", "--builder", "--domain", "1", "--trace", (files / "trace").string()});
  std::istringstream lines(zanhost::ReadFile(files / "trace"));
  bool seen = false;
  for (std::string line; std::getline(lines, line);) {
    const boost::json::object statement = boost::json::parse(line).as_object();
    seen = seen || statement.at("text").as_string().starts_with("select Name from STDomains");
    EXPECT_TRUE(statement.contains("database") && statement.contains("us") && statement.contains("rows"))
        << line;
  }
  EXPECT_TRUE(seen);
}

TEST_F(CallCommand, EachCallIsALineOfTheLog) {
  Call({"GetCurDomainID", "--user", "admin"});
  EXPECT_THAT(zanhost::ReadFile(FSample->Folder() / "log/zanhost.log"),
              testing::ContainsRegex("operator=\"admin\" operation=\"call GetCurDomainID\" outcome=\"ok\""));
}

TEST_F(CallCommand, FunctionsAreListedOneJsonLineEach) {
  const TRan ran = FSample->Run({"functions"});
  EXPECT_EQ(ran.Status, 0) << ran.Err;
  std::istringstream lines(ran.Out);
  int systemFunctions = 0;
  bool seen = false;
  for (std::string line; std::getline(lines, line);) {
    const boost::json::object function = boost::json::parse(line).as_object();
    if (function.at("kind") == "system") ++systemFunctions;
    if (function.at("name") != "GetDomains") continue;
    seen = true;
    EXPECT_EQ(function.at("description"), "获取域列表");
    ASSERT_EQ(function.at("in").as_array().size(), 3U);
    EXPECT_EQ(function.at("in").at(2).at("name"), "是否包含下级域");
    EXPECT_EQ(function.at("in").at(2).at("type"), "boolean");
    EXPECT_EQ(function.at("out").at(0).at("name"), "Result");
  }
  EXPECT_TRUE(seen);
  EXPECT_GE(systemFunctions, 39);
}

TEST_F(CallCommand, ScriptDrivesAConsole) {
  const TRan ran = FSample->Run(
      {"script", "--user", "admin"},
      "{\"n\":1,\"do\":\"menu\",\"function\":\"域管理\",\"style\":0}\n{\"n\":2,\"do\":\"quit\"}\n");
  EXPECT_EQ(ran.Status, 0) << ran.Err;
  EXPECT_THAT(ran.Out, HasSubstr("\"class\":\"TFormDomains\""));
}
