#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/platform/Schema.h"
#include "host/query/DataUrl.h"
#include "tests/consoles/ConsoleDriver.h"
#include "tests/support/MariaDbServer.h"

// The server goes away while a person stands in a dialog.

namespace zantest {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using zanhost::TOpenMode;

constexpr std::string_view kConsole = "TFormDomains";
constexpr std::string_view kDialog = "TFormDomainEdit";

std::unique_ptr<zanhost::TDatabase> InstalledData(const std::string& url) {
  auto database = zanhost::OpenDatabase(url, TOpenMode::CreateIfMissing);
  zanhost::InstallSchema(*database);
  const auto query = database->GetQuery();
  query->SQL().SetText(
      "insert into STUsers(OID, UserID, UserName, uGroup, IsAdministrator, UnUsed)"
      " values(1, 'sa', '超级', 0, 1, 0)");
  query->ExecSQL();
  return database;
}

std::vector<std::string> NamesOfDomains(const std::string& url) {
  const auto database = zanhost::OpenDatabase(url, TOpenMode::MustExist);
  const auto query = database->GetQuery();
  query->SQL().SetText("select Name from STDomains order by ID");
  std::vector<std::string> names;
  for (query->Open(); !query->Eof(); query->Next()) names.push_back(query->Fields(0).AsString());
  return names;
}

TEST(LostServer, IsToldInTheDialogWhichGoesOnWhenTheServerIsBack) {
  const std::string whyNot = WhyNoMariaDbServer();
  if (!whyNot.empty()) GTEST_SKIP() << whyNot;
  TMariaDbServer& server = TMariaDbServer::Instance();
  const std::string url = server.Url("lost_data", "lost_system");
  InstalledData(url);
  TConsoleDriver person(url, "sa");
  person.Menu("域管理");
  person.Select(kConsole, "DomainTree", "域");
  person.Act(kConsole, "ActDomainNew");
  person.Set(kDialog, "EditName", "华东");
  person.Set(kDialog, "EditCode", "01");

  server.Kill();
  person.Act(kDialog, "BitBtnOk");
  ASSERT_TRUE(person.IsOpen("TMessage"));
  EXPECT_EQ(person.WindowProperty("TMessage", "kind"), "error");
  EXPECT_THAT(person.Answer("Ok"), HasSubstr("The connection to the database server"));
  EXPECT_FALSE(person.IsOpen("TMessage")) << "it is told once";
  ASSERT_TRUE(person.IsOpen(kDialog));
  person.Act(kDialog, "BitBtnOk");
  EXPECT_THAT(person.Answer("Ok"), HasSubstr("cannot be reached"));
  ASSERT_TRUE(person.IsOpen(kDialog));

  server.Start();
  person.Act(kDialog, "BitBtnOk");
  EXPECT_FALSE(person.IsOpen("TMessage"));
  EXPECT_FALSE(person.IsOpen(kDialog));
  EXPECT_THAT(person.Rows(kConsole, "DomainTree"), ElementsAre("域", "  华东 (01)"));
  EXPECT_THAT(NamesOfDomains(url), ElementsAre("华东"));
}

TEST(LostServer, ADatabaseThatCanOnlyBeReadIsToldAndTheDialogCanBeLeft) {
  const std::string whyNot = WhyNoMariaDbServer();
  if (!whyNot.empty()) GTEST_SKIP() << whyNot;
  TMariaDbServer& server = TMariaDbServer::Instance();
  const auto run = [](zanhost::TDatabase& database, std::string_view statement) {
    const auto query = database.GetQuery();
    query->SQL().SetText(std::string(statement));
    query->ExecSQL();
  };
  const auto database = InstalledData(server.Url("read_data", "read_system"));
  run(*database, "create user reader@localhost");
  run(*database, "grant select, execute on *.* to reader@localhost");
  run(*database, "create user writer@localhost");
  run(*database, "grant select, insert, update, delete, execute on *.* to writer@localhost");
  const auto messageOf = [&](const std::string& user) {
    const std::string url = server.Url("read_data", "read_system");
    TConsoleDriver person(url.substr(0, 8) + user + url.substr(url.find('@')), "sa");
    person.Menu("域管理");
    person.Select(kConsole, "DomainTree", "域");
    person.Act(kConsole, "ActDomainNew");
    person.Set(kDialog, "EditName", "华东");
    person.Set(kDialog, "EditCode", "01");
    person.Act(kDialog, "BitBtnOk");
    std::string text = person.IsOpen("TMessage") ? person.Answer("Ok") : "(none)";
    EXPECT_TRUE(person.IsOpen(kConsole));
    return text;
  };
  EXPECT_THAT(messageOf("reader"), HasSubstr("does not let the user 'reader' do this"));
  run(*database, "set global read_only = 1");
  EXPECT_THAT(messageOf("writer"), HasSubstr("can only be read"));
  run(*database, "set global read_only = 0");
  EXPECT_EQ(messageOf("writer"), "(none)");
}

}  // namespace
}  // namespace zantest
