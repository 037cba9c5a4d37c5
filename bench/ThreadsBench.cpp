// What two users whom two threads serve at once take, against the same two served by turns: sessions share
// nothing, so that two processors should do it in little more than half the time. Both ask the same sample
// company in the same run.

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

std::vector<std::string> MakeCompany(const std::string& folder, const std::string& url) {
  TSivCipher cipher(std::filesystem::path(folder) / "zanrole.key");
  const auto database = OpenDatabase(url, TOpenMode::CreateIfMissing);
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

void Measure(zanbench::TReport& report, const std::string& url, const std::vector<std::string>& logins,
             const TQuestion& question) {
  TUserThread one(url, logins.at(0), Asking(question, logins.at(0)));
  TUserThread two(url, logins.at(1), Asking(question, logins.at(1)));
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
  report.Compare(question.Name, 1 / 1.8, atOnce, byTurns, 500);
}

}  // namespace

int main() {
  const zanbench::TFolder folder;
  const std::string url = "sqlite:" + folder.Path();
  const std::vector<std::string> logins = MakeCompany(folder.Path(), url);
  zanbench::TReport report("Two users at once or by turns", zanbench::SqliteEngine());
  for (const TQuestion& question : kQuestionsOfUsers) Measure(report, url, logins, question);
  return report.Finish();
}
