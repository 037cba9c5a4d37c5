#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/platform/Files.h"
#include "host/worker/FunctionSession.h"
#include "host/worker/MenuTree.h"
#include "tests/host/InstalledSample.h"

// One login for a gateway: the window with the menu, and what a browser may not do.

namespace zantest {
namespace {

namespace json = boost::json;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class WorkerTest : public testing::Test {
 protected:
  /// Starts a worker and attaches a client to it.
  void Start(const std::string& user) {
    Driver.emplace([options = Installed.OptionsOf(user)](zanhost::TLineChannel& channel) {
      zanhost::RunWorker(options, channel);
    });
    Ready = Driver->Await([](const json::object&) { return true; });
    Attach();
  }
  void Attach() {
    Driver->Push(R"({"gateway":"attach"})");
    Driver->Start();
    Driver->Number = 0;
  }
  std::vector<std::string> Menu() { return Driver->Client.FirstCells(1, "MenuTree"); }
  json::object Open(const std::string& entry) {
    const std::vector<std::string> menu = Menu();
    const auto place = std::find(menu.begin(), menu.end(), entry);
    const json::value id = Driver->Client.Windows()
                               .at(1)
                               .Parts.at("MenuTree")
                               .Rows.at(static_cast<int>(place - menu.begin()))
                               .at("id");
    return Driver->Send({{"do", "activate"}, {"window", 1}, {"name", "MenuTree"}, {"id", id}});
  }

  TInstalledSample Installed;
  std::optional<TSessionDriver> Driver;
  json::object Ready;
};

TEST_F(WorkerTest, TheFirstLineSaysThatTheSessionStands) {
  Start("admin");
  EXPECT_EQ(Ready, (json::object{{"ready", true}}));
  EXPECT_EQ(Driver->Client.WindowOf("TMainForm"), 1);
}

TEST_F(WorkerTest, AnUnknownLoginIsSaidInTheFirstLine) {
  Driver.emplace([options = Installed.OptionsOf("nobody")](zanhost::TLineChannel& channel) {
    EXPECT_EQ(zanhost::RunWorker(options, channel), 1);
  });
  const json::object line = Driver->Await([](const json::object&) { return true; });
  EXPECT_THAT(std::string(line.at("failed").as_string()), HasSubstr("'nobody'"));
}

TEST_F(WorkerTest, TheSuperUserSeesTheWholeMenuButWhatIsHidden) {
  Start("admin");
  EXPECT_THAT(Menu(), Contains("域管理"));
  EXPECT_THAT(Menu(), Contains("人力资源"));
  EXPECT_THAT(Menu(), Not(Contains("历史数据")));
}

TEST_F(WorkerTest, AUserSeesWhatHeMayRunAndTheFoldersAboveIt) {
  const std::string user = Installed.Sample.UserLogin;
  const int oid = Number(Installed.Database(), "select OID from STUsers where UserID = '" + user + "'");
  const std::string who = std::to_string(oid);
  Execute(Installed.Database(), "delete from STPermission where UserID = " + who +
                                    " or UserID in (select GroupID from STUserGroup where UserID = " + who +
                                    ")");
  Execute(Installed.Database(), "insert into STPermission (UserID, ObjectID, Oprate, Permission) select " +
                                    who + ", ObjectID, '执行', 1 from Tree where NodeCaption = '请假'");
  Start(user);
  EXPECT_THAT(Menu(), ElementsAre("系统菜单", "人力资源", "请假"));
}

TEST_F(WorkerTest, AUserWithoutRightsSeesAnEmptyMenu) {
  Execute(Installed.Database(), "delete from STPermission");
  Start(Installed.Sample.UserLogin);
  EXPECT_THAT(Menu(), IsEmpty());
}

TEST_F(WorkerTest, AnEntryOpensItsConsoleAndTheMenuStaysBesideIt) {
  Start("admin");
  Open("域管理");
  const int console = Driver->Client.WindowOf("TFormDomains");
  ASSERT_NE(console, 0);
  EXPECT_EQ(Driver->Client.Windows().at(console).Properties.at("caption"), "域管理");
  Open("域管理");
  EXPECT_EQ(Driver->Client.WindowOf("TFormDomains"), console);
  EXPECT_EQ(Driver->Client.Windows().size(), 2U);
}

TEST_F(WorkerTest, AnEntryThatThisSystemHasNoFunctionForSaysSo) {
  Start("admin");
  Open("请假");
  const int box = Driver->Client.WindowOf("TMessage");
  ASSERT_NE(box, 0);
  EXPECT_EQ(Driver->Client.Property(box, "Text", "text"), "本系统没有该菜单的功能！");
}

TEST_F(WorkerTest, OfAFailedStatementAPersonIsToldTheEnginesWordsAlone) {
  Start("admin");
  Installed.Database().ExecScript("alter table STDomains rename to STDomainsGone");
  Open("域管理");
  const int box = Driver->Client.WindowOf("TMessage");
  ASSERT_NE(box, 0);
  EXPECT_EQ(Driver->Client.Property(box, "Text", "text"), "no such table: STDomains");
}

TEST_F(WorkerTest, TheMainWindowCannotBeClosed) {
  Start("admin");
  Driver->CloseWindow(1);
  EXPECT_EQ(Driver->Client.WindowOf("TMainForm"), 1);
}

TEST_F(WorkerTest, ABrowserRunsNoFunctionsByName) {
  Start("admin");
  EXPECT_TRUE(Driver->Send({{"do", "menu"}, {"function", "域管理"}}).contains("error"));
  EXPECT_TRUE(Driver->Send({{"do", "call"}, {"function", "GetCurDomainID"}}).contains("error"));
  EXPECT_EQ(Driver->Client.Windows().size(), 1U);
}

TEST_F(WorkerTest, TheLanguageChangesInAllOpenWindows) {
  Start("admin");
  Open("域管理");
  Driver->Send({{"do", "language"}, {"value", "en"}});
  EXPECT_EQ(Driver->Client.Windows().at(1).Properties.at("caption"), "Menu");
  EXPECT_EQ(Driver->Client.Property(2, "ActDomainNew", "caption"), "New");
  EXPECT_TRUE(Driver->Send({{"do", "language"}, {"value", "fr"}}).contains("error"));
}

TEST_F(WorkerTest, AReconnectionComesBackToTheSameDialogWithTheTypedText) {
  Start("admin");
  Open("域管理");
  Driver->Send({{"do", "select"}, {"window", 2}, {"name", "DomainTree"}, {"index", 0}});
  Driver->Act(2, "ActDomainNew");
  Driver->Client.NoteInput(3, "EditName", "value", "华东");
  Driver->Set(3, "EditName", "华东");
  const json::value before = Driver->Client.Whole();
  Driver->Push(R"({"gateway":"detach"})");
  Attach();
  EXPECT_EQ(Driver->Client.Whole(), before);
  EXPECT_EQ(Driver->Client.Property(3, "EditName", "value"), "华东");
  const json::object answer = Driver->Set(3, "EditName", "华南");
  EXPECT_EQ(answer.at("seq"), 2);
  EXPECT_EQ(answer.at("ack"), 1);
}

TEST_F(WorkerTest, OperationsAreLoggedWithTheirOperatorAndWithoutWhatWasTyped) {
  Start("admin");
  Open("域管理");
  Driver->Send({{"do", "select"}, {"window", 2}, {"name", "DomainTree"}, {"index", 0}});
  Driver->Act(2, "ActDomainNew");
  Driver->Set(3, "EditName", "typed text");
  Driver->CloseWindow(3);
  const std::string log = zanhost::ReadFile(Installed.Folder() / "log" / "zanhost.log");
  EXPECT_THAT(log, HasSubstr("operator=\"admin\" operation=\"TFormDomains.ActDomainNew\""));
  EXPECT_THAT(log, Not(HasSubstr("typed text")));
}

TEST_F(WorkerTest, AFunctionSessionAnswersWithoutAConsole) {
  std::vector<std::string> messages;
  zanhost::TFunctionSession session(Installed.OptionsOf(""),
                                    [&](const std::string& text) { messages.push_back(text); });
  EXPECT_GT(session.Functions().size(), 30U);
  EXPECT_THAT(session.Duplicates(), IsEmpty());
  EXPECT_THROW(session.Call("NoSuchFunction", {}), zanrole::EZanError);
}

TEST(MenuFunctionNameTest, IsTheFirstFunctionLine) {
  EXPECT_EQ(zanhost::MenuFunctionName("函数域管理(菜单)"), "域管理");
  EXPECT_EQ(zanhost::MenuFunctionName("客户档案(单据)\r\n函数 人员维护 (x)\r\n函数别的()"), "人员维护");
  EXPECT_EQ(zanhost::MenuFunctionName("客户档案(单据)"), "");
  EXPECT_EQ(zanhost::MenuFunctionName("函数"), "");
  EXPECT_EQ(zanhost::MenuFunctionName(""), "");
}

}  // namespace
}  // namespace zantest
