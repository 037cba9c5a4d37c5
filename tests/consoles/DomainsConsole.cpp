#include "tests/consoles/DomainsConsole.h"

#include "host/platform/Cipher.h"
#include "host/platform/Schema.h"
#include "host/query/DataUrl.h"

namespace zantest {

using namespace zanhost;

TDomainsConsoleTest::TDomainsConsoleTest()
    : FUrl("sqlite:" + FFolder.Path().string()), FDatabase(OpenDatabase(FUrl, TOpenMode::CreateIfMissing)) {
  InstallSchema(*FDatabase);
  Exec(
      "insert into STUsers(OID, UserID, UserName, uGroup, IsAdministrator, UnUsed)"
      " select 1, 'sa', '超级', 0, 1, 0 union all select 2, 'plain', '普通', 0, 0, 0");
}

std::unique_ptr<TConsoleDriver> TDomainsConsoleTest::OpenAs(const std::string& user) {
  auto console = std::make_unique<TConsoleDriver>(FUrl, user);
  console->Menu("域管理");
  return console;
}

void TDomainsConsoleTest::Create(TConsoleDriver& console, const std::string& parent, const std::string& name,
                                 const std::string& code) {
  console.Select(kConsole, "DomainTree", parent);
  console.Act(kConsole, "ActDomainNew");
  console.Set(kDialog, "EditName", name);
  console.Set(kDialog, "EditCode", code);
  console.Act(kDialog, "BitBtnOk");
  ASSERT_FALSE(console.IsOpen(kDialog)) << "the dialog did not take " << name;
}

std::vector<std::string> TDomainsConsoleTest::Tree(const TConsoleDriver& console) {
  return console.Rows(kConsole, "DomainTree");
}

void TDomainsConsoleTest::Rename(TConsoleDriver& console, const std::string& name) {
  console.Act(kConsole, "ActDomainEdit");
  console.Set(kDialog, "EditName", name);
  console.Act(kDialog, "BitBtnOk");
}

void TDomainsConsoleTest::Exec(const std::string& statement) {
  const auto query = FDatabase->GetQuery();
  query->SQL().Add(statement);
  query->ExecSQL();
}

std::vector<std::string> TDomainsConsoleTest::Column(const std::string& statement) {
  const auto query = FDatabase->GetQuery();
  query->SQL().Add(statement);
  std::vector<std::string> values;
  for (query->Open(); !query->Eof(); query->Next()) values.push_back(query->Fields(0).AsString());
  return values;
}

std::string TDomainsConsoleTest::Row(const std::string& statement) {
  const auto query = FDatabase->GetQuery();
  query->SQL().Add(statement);
  query->Open();
  std::string row;
  for (int field = 0; !query->Eof() && field < query->DataSet().FieldCount(); ++field)
    row += (field > 0 ? "|" : "") + query->Fields(field).AsString();
  return row;
}

}  // namespace zantest
