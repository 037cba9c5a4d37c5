// What one question costs through a fresh query object, against the statement prepared once in SQLite's own
// interface. Both read the same rows of the same file in the same run, by turns, and make the same text of
// them.

#include <string>
#include <vector>

#include "bench/BareStatement.h"
#include "bench/Measure.h"
#include "host/query/DataUrl.h"

namespace {

using zanbench::TBareStatement;

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

void Measure(zanbench::TReport& report, zanhost::TDatabase& database, const std::string& file,
             const TQuestion& question) {
  TBareStatement floor(file, question.WithOperator("?"));
  report.Compare(
      question.Name, 1.3,
      [&](int call) { return AskByQuery(database, question, OperatorOfCall(question, call)); },
      [&](int call) { return floor.Ask(OperatorOfCall(question, call)); });
}

}  // namespace

int main() {
  const zanbench::TFolder folder;
  const auto database = zanhost::OpenDatabase("sqlite:" + folder.Path(), zanhost::TOpenMode::CreateIfMissing);
  database->ExecScript(kTables);
  zanbench::TReport report("Single questions", zanbench::SqliteEngine());
  for (const TQuestion& question : kQuestions)
    Measure(report, *database, folder.Path() + "/zanrole.db", question);
  return report.Finish();
}
