#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <map>

#include "host/worker/FunctionSession.h"
#include "tests/consumer/Consumer.h"
#include "tests/host/InstalledSample.h"

// Another module of the platform asks zanrole's services in the session of a host.

namespace zantest {
namespace {

class ExportedServicesTest : public testing::Test {
 protected:
  ~ExportedServicesTest() override {
    if (Library != nullptr) dlclose(Library);
  }
  /// Logs somebody in and loads the other module beside zanrole.
  void LogIn(const std::string& user) {
    Login = user;
    Session.emplace(Installed.OptionsOf(user), [](const std::string& text) { FAIL() << text; });
    const auto path = zanhost::ModuleBesideProgram().parent_path() / "zan_test_consumer.so";
    Library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(Library, nullptr) << dlerror();
  }
  template <typename TFunction>
  TFunction* LookUp(const char* name) {
    void* const symbol = dlsym(Library, name);
    EXPECT_NE(symbol, nullptr) << name;
    return std::bit_cast<TFunction*>(symbol);
  }
  std::map<std::string, std::string> AskServices() {
    TAnswers answers;
    LookUp<decltype(ConsumerAskServices)>("ConsumerAskServices")(Login, answers);
    return {answers.begin(), answers.end()};
  }
  std::map<std::string, std::string> AskPlainEntries() {
    TAnswers answers;
    LookUp<decltype(ConsumerAskPlainEntries)>("ConsumerAskPlainEntries")(answers);
    return {answers.begin(), answers.end()};
  }
  zanrole::TServiceAnswer Ask(std::string operation, std::vector<std::string> arguments = {}) {
    return Session->Ask({std::move(operation), std::move(arguments)});
  }
  std::string Row(const std::string& statement) { return Text(Installed.Database(), statement); }
  std::string OrdinaryLogin() {
    return Row(
        "select UserID from STUsers where uGroup = 0 and IsAdministrator = 0 and OID in "
        "(select UserOID from PartyH where Type = 'User') order by OID");
  }

  TInstalledSample Installed;
  std::string Login;
  std::optional<zanhost::TFunctionSession> Session;
  void* Library = nullptr;
};

TEST_F(ExportedServicesTest, RightsOfTheLoginAndOfAnotherHolder) {
  const std::string user = OrdinaryLogin();
  const std::string oid = Row("select OID from STUsers where UserID = '" + user + "'");
  // Menu 1 is allowed to holder 2 and denied to the user.
  Execute(Installed.Database(), "delete from STPermission where ObjectID = 1");
  Execute(Installed.Database(),
          "insert into STPermission (UserID, ObjectID, Oprate, Permission) "
          "values (2, 1, '执行', 1), (" +
              oid + ", 1, '执行', 0)");
  LogIn(user);
  const auto answers = AskServices();
  EXPECT_EQ(answers.at("menu 1"), "no");
  EXPECT_EQ(answers.at("denied"), "执行");
  EXPECT_EQ(answers.at("right on 1"), "禁止");
  EXPECT_EQ(answers.at("right of 2 on 1"), "允许");
  const std::string roles =
      Row("select count(*) from STUserGroup g, STUsers u where u.OID = g.GroupID and g.UserID = " + oid);
  EXPECT_EQ(answers.at("roles counted"), roles);
}

TEST_F(ExportedServicesTest, TheOrganisationAsItsRowsTell) {
  const std::string user = OrdinaryLogin();
  LogIn(user);
  const auto answers = AskServices();
  const std::string row = " from STUsers where UserID = '" + user + "'";
  EXPECT_EQ(answers.at("own OID"), Row("select OID" + row));
  EXPECT_EQ(answers.at("OID of user"), Row("select ObjID from UserH where code = '" + user + "'"));
  EXPECT_EQ(answers.at("name"), Row("select UserName" + row));
  EXPECT_EQ(answers.at("users"), "1");
  const std::string company = Row("select Name from PartyH where Type = 'Company' and Parent = -1");
  EXPECT_EQ(answers.at("company"), company);
  EXPECT_EQ(answers.at("own company"), company);
  const std::string posts =
      " from PartyH p inner join PartyH u on u.Parent = p.DjLsh where u.Code = '" + user + "'";
  EXPECT_EQ(answers.at("department of user"),
            Row("select d.Name from PartyH d where d.DjLsh in (select p.Parent" + posts +
                ") order by d.DjLsh desc"));
  EXPECT_EQ(answers.at("user type"), "0");
}

TEST_F(ExportedServicesTest, BothModulesShareTheSession) {
  const std::string user = OrdinaryLogin();
  const std::string oid = Row("select OID from STUsers where UserID = '" + user + "'");
  Execute(Installed.Database(),
          "insert into STPermission (UserID, ObjectID, Oprate, Permission) "
          "values (" +
              oid + ", 987654, '执行', 1)");
  LogIn(user);
  EXPECT_EQ(std::get<bool>(Ask("TRunPermission.GetMenuPermission", {"987654"})), true);
  LookUp<decltype(ConsumerForgetMenus)>("ConsumerForgetMenus")();
  EXPECT_EQ(std::get<bool>(Ask("TRunPermission.GetMenuPermission", {"987654"})), false);
  AskServices();
  EXPECT_EQ(std::get<std::int64_t>(Ask("TDomainFuncImpl.GetCurDomainID")), 2);
}

TEST_F(ExportedServicesTest, PlainEntriesAnswer) {
  LogIn("admin");
  EXPECT_EQ(AskPlainEntries(), (std::map<std::string, std::string>{{"joined", "a-b-c"},
                                                                   {"counted", "3"},
                                                                   {"resource", "no such resource"},
                                                                   {"now", "getdate()"},
                                                                   {"same database", "yes"},
                                                                   {"administrator", "yes"},
                                                                   {"hands on rights", "no"}}));
}

TEST_F(ExportedServicesTest, AFaultIsCaughtByItsTypeInTheOtherModule) {
  LogIn("admin");
  std::string statement;
  EXPECT_TRUE(LookUp<decltype(ConsumerCatchesFault)>("ConsumerCatchesFault")(statement));
  EXPECT_THAT(statement, testing::HasSubstr("NoSuchColumn"));
}

TEST_F(ExportedServicesTest, WithoutASessionTheServicesRefuse) {
  LogIn("admin");
  Session.reset();
  // The session has gone; the host's module with it. The other module keeps zanrole loaded.
  TAnswers answers;
  EXPECT_THROW(LookUp<decltype(ConsumerAskServices)>("ConsumerAskServices")("admin", answers),
               zanrole::EAssertionFailed);
}

}  // namespace
}  // namespace zantest
