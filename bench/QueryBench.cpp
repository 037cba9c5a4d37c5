// What one question costs through a fresh query object, against the statement prepared once in SQLite's own
// interface. Both read the same rows of the same file in the same run, by turns, and make the same text of
// them.

#include <sqlite3.h>
#include <stdlib.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <numeric>
#include <string>
#include <vector>

#include "host/query/DataUrl.h"

namespace {

constexpr int kRounds = 200;
constexpr int kCallsOfRound = 500;

constexpr const char* kTables = R"(
create table STDomainMembers (DomainID int not null, UserOID int not null, MemberType int not null, IsOwned int not null,
                              primary key (DomainID, UserOID, MemberType, IsOwned)) without rowid;
create index STDomainMembers_User on STDomainMembers(UserOID, IsOwned, MemberType, DomainID);
create table STDomainInherits (AncestorID int not null, DescendantID int not null,
                               primary key (AncestorID, DescendantID)) without rowid;
with recursive n(i) as (select 1 union all select i + 1 from n where i < 500)
insert into STDomainMembers select i % 60 + 1, i, 0, 1 from n union all
                            select i % 60 + 1, i / 4, 2, 0 from n;
with recursive n(i) as (select 1 union all select i + 1 from n where i < 60)
insert into STDomainInherits select a.i, b.i from n a inner join n b on b.i = a.i or b.i / 4 = a.i;
)";

/// A statement whose one literal is the operator: the same for each call, or another one each time.
struct TQuestion {
  const char* Name;
  std::string BeforeOperator;
  std::string BehindOperator;
  bool AnotherEachTime = false;

  std::string WithOperator(const std::string& oid) const { return BeforeOperator + oid + BehindOperator; }
};

const std::string kRange = "select DomainID from STDomainMembers where IsOwned = 0 and UserOID = ";
const std::string kRangeAndBelow =
    "select distinct DescendantID from STDomainInherits where AncestorID in ( select DomainID from "
    "STDomainMembers where IsOwned = 0 and UserOID = ";

const std::vector<TQuestion> kQuestions{
    {"domains of the range", kRange, " order by 1"},
    {"domains of the range and below", kRangeAndBelow, " ) order by 1"},
    {"one value by key",
     "select IsOwned from STDomainMembers where DomainID = 43 and MemberType = 0 and UserOID = ", ""},
    {"domains of changing ranges", kRange, " order by 1", true},
};

/// Operators come again only after more statements than a cache may hold.
int OperatorOfCall(const TQuestion& question, int call) {
  return question.AnotherEachTime ? call % 500 + 1 : 42;
}

class TFolder {
 public:
  TFolder() {
    std::string pattern = "/tmp/zanbenchXXXXXX";
    FPath = mkdtemp(pattern.data());
  }
  ~TFolder() { std::filesystem::remove_all(FPath); }
  TFolder(const TFolder&) = delete;
  TFolder& operator=(const TFolder&) = delete;
  const std::string& Path() const { return FPath; }

 private:
  std::string FPath;
};

/// The statement prepared once, as the fastest program would hold it.
class TFloor {
 public:
  TFloor(const std::string& file, const TQuestion& question) {
    const std::string text = question.WithOperator("?");
    sqlite3_open_v2(file.c_str(), &FConnection, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    sqlite3_prepare_v3(FConnection, text.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &FStatement, nullptr);
  }
  ~TFloor() {
    sqlite3_finalize(FStatement);
    sqlite3_close(FConnection);
  }
  TFloor(const TFloor&) = delete;
  TFloor& operator=(const TFloor&) = delete;

  std::string Ask(int oid) {
    std::string list;
    sqlite3_bind_int(FStatement, 1, oid);
    while (sqlite3_step(FStatement) == SQLITE_ROW) {
      list += reinterpret_cast<const char*>(sqlite3_column_text(FStatement, 0));
      list += ',';
    }
    sqlite3_reset(FStatement);
    return list;
  }

 private:
  sqlite3* FConnection = nullptr;
  sqlite3_stmt* FStatement = nullptr;
};

/// A fresh query for each question, as the module asks.
std::string AskByQuery(zanhost::TDatabase& database, const TQuestion& question, int oid) {
  std::string list;
  const auto query = database.GetQuery();
  query->SQL().Add(question.WithOperator(std::to_string(oid)));
  query->Open();
  for (; !query->Eof(); query->Next()) {
    list += query->Fields(0).AsString();
    list += ',';
  }
  return list;
}

double MicrosecondsOfRound(const TQuestion& question, const std::function<std::string(int)>& ask) {
  std::size_t read = 0;
  const auto start = std::chrono::steady_clock::now();
  for (int call = 0; call < kCallsOfRound; ++call) read += ask(OperatorOfCall(question, call)).size();
  const std::chrono::duration<double, std::micro> time = std::chrono::steady_clock::now() - start;
  if (read == 0) std::fprintf(stderr, "the question has no answer\n");
  return time.count() / kCallsOfRound;
}

/// The time that a tenth of the rounds undercut: other programs on the machine only ever make a round slower.
double QuietTime(std::vector<double> times) {
  const auto tenth = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 10);
  std::nth_element(times.begin(), tenth, times.end());
  return *tenth;
}

bool Measure(zanhost::TDatabase& database, const std::string& file, const TQuestion& question) {
  TFloor floor(file, question);
  if (floor.Ask(42) != AskByQuery(database, question, 42)) {
    std::fprintf(stderr, "%s: candidate and floor give different answers\n", question.Name);
    return false;
  }
  std::vector<double> candidateTimes;
  std::vector<double> floorTimes;
  for (int round = 0; round < kRounds; ++round) {
    floorTimes.push_back(MicrosecondsOfRound(question, [&](int oid) { return floor.Ask(oid); }));
    candidateTimes.push_back(
        MicrosecondsOfRound(question, [&](int oid) { return AskByQuery(database, question, oid); }));
  }
  const double candidate = QuietTime(candidateTimes);
  const double bare = QuietTime(floorTimes);
  const auto [fastest, slowest] = std::minmax_element(candidateTimes.begin(), candidateTimes.end());
  std::printf("%-32s %10.3f %10.3f %8.2f %9.3f-%.3f\n", question.Name, candidate, bare, candidate / bare,
              *fastest, *slowest);
  return true;
}

}  // namespace

int main() {
  const TFolder folder;
  const auto database = zanhost::OpenDatabase("sqlite:" + folder.Path(), zanhost::TOpenMode::CreateIfMissing);
  database->ExecScript(kTables);
  std::printf("%-32s %10s %10s %8s %15s\n", "microseconds", "candidate", "floor", "ratio", "spread");
  bool right = true;
  for (const TQuestion& question : kQuestions)
    right = Measure(*database, folder.Path() + "/zanrole.db", question) && right;
  return right ? 0 : 1;
}
