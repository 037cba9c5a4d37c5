// What a host pays for one system function of the loaded module, from the function's name to its answer,
// against the function's statement prepared once in SQLite's own interface. Both ask the same sample company
// in the same run.

#include <filesystem>
#include <string>

#include "bench/BareStatement.h"
#include "bench/Measure.h"
#include "bench/SessionOfUser.h"
#include "host/platform/Sample.h"
#include "host/platform/Schema.h"
#include "host/query/DataUrl.h"

namespace {

using namespace zanhost;

struct TQuestion {
  const char* Function;
  /// The function's statement with the operator as its parameter.
  const char* Statement;
};

constexpr TQuestion kQuestions[] = {
    {"GetAuthDomainIDs", "select DomainID from STDomainMembers where IsOwned = 0 and UserOID = ? order by 1"},
    {"GetAuthDomainIDss",
     "select distinct DescendantID from STDomainInherits where AncestorID in ( select DomainID from "
     "STDomainMembers "
     "where IsOwned = 0 and UserOID = ? ) order by 1"},
    {"GetOwnDomainUserIDs",
     "select UserID from STUsers where UnUsed <> 1 and uGroup = 0 and IsAdministrator = 0 and OID in (select "
     "b.UserOID "
     "from STDomainMembers a inner join STDomainMembers b on a.DomainID = b.DomainID where a.IsOwned = 1 and "
     "a.MemberType <> 3 and b.IsOwned = 1 and b.MemberType = 0 and a.UserOID = ? ) order by 1"},
};

void MakeCompany(const std::string& url, TSivCipher& cipher) {
  const auto database = OpenDatabase(url, TOpenMode::CreateIfMissing);
  InstallSchema(*database);
  MakeSample(*database, {.AdminPassword = "not asked for", .Cipher = cipher});
}

/// A user who belongs to a domain and has others in his range.
std::pair<int, std::string> SomeUser(const std::string& url) {
  const auto database = OpenDatabase(url, TOpenMode::MustExist);
  const auto query = database->GetQuery();
  query->SQL().SetText(
      "select u.OID, u.UserID from STUsers u inner join STDomainMembers m on m.UserOID = u.OID "
      "where m.MemberType = 0 group by u.OID, u.UserID having max(m.IsOwned) = 1 and min(m.IsOwned) = 0 "
      "order by count(*) desc, u.OID");
  query->Open();
  return {query->FieldByName("OID").AsInteger(), query->FieldByName("UserID").AsString()};
}

}  // namespace

int main() {
  const zanbench::TFolder folder;
  const std::string url = "sqlite:" + folder.Path();
  TSivCipher cipher(std::filesystem::path(folder.Path()) / "zanrole.key");
  MakeCompany(url, cipher);
  const auto [oid, login] = SomeUser(url);
  zanbench::TSessionOfUser session(url, login);
  zanbench::TReport report("Domain functions", zanbench::SqliteEngine());
  for (const TQuestion& question : kQuestions) {
    zanbench::TBareStatement floor(folder.Path() + "/zanrole.db", question.Statement);
    report.Compare(
        question.Function, 1.3, [&](int) { return session.Ask(question.Function); },
        [&](int) { return floor.Ask(oid); });
  }
  return report.Finish();
}
