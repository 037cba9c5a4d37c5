// What two users whom two threads serve at once take, against the same two served by turns, which two
// processors should do in little more than half the time. Sessions share nothing of the host's; but SQLite
// lets the connections that one process has to one file begin and end their reading one after the other. So
// the users have a company each, and then one.

#include <filesystem>
#include <string>
#include <vector>

#include "bench/BareStatement.h"
#include "bench/Measure.h"
#include "bench/UserThread.h"
#include "host/platform/Sample.h"
#include "host/platform/Schema.h"
#include "host/query/DataUrl.h"

namespace {

using namespace zanhost;
using zanbench::TUserThread;

/// Questions of one measured call, so that starting a thread does not count.
constexpr int kQuestions = 100;

/// A sample company, and logins of it.
struct TCompany {
  zanbench::TFolder Folder;
  std::string Url = "sqlite:" + Folder.Path();
  std::vector<std::string> Logins = Make();

 private:
  std::vector<std::string> Make() const;
};

std::vector<std::string> TCompany::Make() const {
  TSivCipher cipher(std::filesystem::path(Folder.Path()) / "zanrole.key");
  const auto database = OpenDatabase(Url, TOpenMode::CreateIfMissing);
  InstallSchema(*database);
  MakeSample(*database, {.AdminPassword = "not asked for", .Cipher = cipher});
  const auto query = database->GetQuery();
  query->SQL().SetText(
      "select u.UserID from STUsers u inner join UserH p on p.code = u.UserID order by u.OID");
  std::vector<std::string> logins;
  for (query->Open(); !query->Eof(); query->Next()) logins.push_back(query->Fields(0).AsString());
  return logins;
}

struct TQuestion {
  const char* Name;
  const char* Function;
  const char* Input;  ///< takes the login; null without one
};

constexpr TQuestion kQuestionsOfUsers[] = {
    {"domains of the range", "GetAuthDomainIDs", nullptr},
    {"code of the department", "RoleDepartmentCode", "用户号"},
    {"name of the company", "RoleCompanyName", "用户号"},
};

TUserThread::TWork Asking(const TQuestion& question, const std::string& login) {
  return [&question, login](zanbench::TSessionOfUser& session) {
    TNamedValues inputs;
    if (question.Input != nullptr) inputs.emplace_back(question.Input, login);
    std::string last;
    for (int i = 0; i < kQuestions; ++i) last = session.Ask(question.Function, inputs);
    return last;
  };
}

void Measure(zanbench::TReport& report, const TQuestion& question, const TCompany& ofOne,
             const TCompany& ofTwo) {
  TUserThread one(ofOne.Url, ofOne.Logins.at(0), /*processor*/ 0, Asking(question, ofOne.Logins.at(0)));
  TUserThread two(ofTwo.Url, ofTwo.Logins.at(1), /*processor*/ 1, Asking(question, ofTwo.Logins.at(1)));
  const auto atOnce = [&](int) {
    one.Start();
    two.Start();
    const std::string first = one.Wait();
    return first + two.Wait();
  };
  const auto byTurns = [&](int) {
    one.Start();
    const std::string first = one.Wait();
    two.Start();
    return first + two.Wait();
  };
  const char* const company = &ofOne == &ofTwo ? ", one company" : ", a company each";
  report.Compare(std::string(question.Name) + company, 1 / 1.8, atOnce, byTurns, 2000);
}

}  // namespace

int main() {
  const TCompany first;
  const TCompany second;
  zanbench::TReport report("Two users at once or by turns", zanbench::SqliteEngine());
  for (const TQuestion& question : kQuestionsOfUsers) Measure(report, question, first, second);
  for (const TQuestion& question : kQuestionsOfUsers) Measure(report, question, first, first);
  return report.Finish();
}
