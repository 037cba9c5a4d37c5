#include "tests/support/BatchesTable.h"

#include "Frame/Dialects.h"

namespace zantest {

using std::to_string;

namespace {

std::unique_ptr<zanrole::TZANQuery> Opened(zanhost::TDatabase& database, const std::string& statement) {
  auto query = database.GetQuery();
  query->SQL().SetText(statement);
  query->Open();
  return query;
}

std::string Between(int first, int last) {
  return " from Batches where Batch between " + to_string(first) + " and " + to_string(last);
}

}  // namespace

void MakeBatchesTable(zanhost::TDatabase& database) {
  const auto query = database.GetQuery();
  for (const char* const statement :
       {"create table Batches (Batch int not null, Part int not null, primary key (Batch, Part))",
        "create table Totals (ID int not null, Batches int not null, primary key (ID))",
        "insert into Totals(ID, Batches) values(1, 0)"}) {
    query->SQL().SetText(statement);
    query->ExecSQL();
  }
}

void WriteBatch(zanhost::TDatabase& database, int number) {
  zanrole::TStringList statements;
  for (int part = 1; part <= kPartsOfBatch; ++part)
    statements.Add("insert into Batches(Batch, Part) values(" + to_string(number) + ", " + to_string(part) +
                   ");");
  statements.Add("update Totals set Batches = Batches + 1 where ID = 1;");
  zanrole::RunBatch(*database.GetQuery(), statements);
}

std::string HalfBatches(zanhost::TDatabase& database, int first, int last) {
  const auto query = Opened(database, "select Batch, count(*) Parts" + Between(first, last) +
                                          " group by Batch having count(*) <> " + to_string(kPartsOfBatch));
  std::string found;
  for (; !query->Eof(); query->Next())
    found += "batch " + query->Fields(0).AsString() + " has " + query->Fields(1).AsString() + " parts; ";
  return found;
}

int CountBatches(zanhost::TDatabase& database, int first, int last) {
  return Opened(database, "select count(distinct Batch)" + Between(first, last))->Fields(0).AsInteger();
}

int TotalIsOffBy(zanhost::TDatabase& database) {
  return Opened(database,
                "select Batches - (select count(distinct Batch) from Batches) OffBy from Totals where ID = 1")
      ->Fields(0)
      .AsInteger();
}

}  // namespace zantest
