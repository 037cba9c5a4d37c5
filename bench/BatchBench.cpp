// What a batch of many small statements costs, sent as one text with every value written into it, against the
// same statements prepared once in SQLite's own interface and run in one transaction. Both write the same
// rows into tables alike of two files in the same run, by turns.

#include <sqlite3.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "bench/BareStatement.h"
#include "bench/Differences.h"
#include "bench/Measure.h"
#include "host/query/DataUrl.h"

namespace {

using zanbench::TDifference;

constexpr const char* kTable =
    "create table Differences (ID int not null, Name nvarchar(200), Sequence int, primary key (ID)) without "
    "rowid;";

class TBareLoop {
 public:
  explicit TBareLoop(const std::string& file) {
    sqlite3_open_v2(file.c_str(), &FConnection, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    Exec("pragma synchronous = full");
    FInsert = Prepare("insert into Differences(ID, Name, Sequence) values(?, ?, 0)");
    FUpdate = Prepare("update Differences set Sequence = ? where ID = ?");
  }
  ~TBareLoop() {
    sqlite3_finalize(FInsert);
    sqlite3_finalize(FUpdate);
    sqlite3_close(FConnection);
  }
  TBareLoop(const TBareLoop&) = delete;
  TBareLoop& operator=(const TBareLoop&) = delete;

  void Run(const std::vector<TDifference>& differences) {
    Exec("begin immediate");
    Exec("delete from Differences");
    for (const TDifference& row : differences) {
      if (row.IsNew) {
        sqlite3_bind_int(FInsert, 1, row.ID);
        sqlite3_bind_text(FInsert, 2, row.Name.data(), static_cast<int>(row.Name.size()), SQLITE_STATIC);
        Step(FInsert);
      } else {
        sqlite3_bind_int(FUpdate, 1, row.Sequence);
        sqlite3_bind_int(FUpdate, 2, row.ID);
        Step(FUpdate);
      }
    }
    Exec("commit");
  }

 private:
  void Exec(const char* text) { sqlite3_exec(FConnection, text, nullptr, nullptr, nullptr); }
  sqlite3_stmt* Prepare(const char* text) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v3(FConnection, text, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    return statement;
  }
  static void Step(sqlite3_stmt* statement) {
    sqlite3_step(statement);
    sqlite3_reset(statement);
  }

  sqlite3* FConnection = nullptr;
  sqlite3_stmt* FInsert = nullptr;
  sqlite3_stmt* FUpdate = nullptr;
};

/// What lies in the table, so that both sides are seen to have written the same.
std::string Content(zanhost::TDatabase& database) {
  const auto query = database.GetQuery();
  query->SQL().Add("select count(*), max(Name), sum(ID * Sequence) from Differences");
  query->Open();
  return query->Fields(0).AsString() + "," + query->Fields(1).AsString() + "," + query->Fields(2).AsString();
}

struct TSide {
  zanbench::TFolder Folder;
  std::unique_ptr<zanhost::TDatabase> Database =
      zanhost::OpenDatabase("sqlite:" + Folder.Path(), zanhost::TOpenMode::CreateIfMissing);
  TSide() { Database->ExecScript(kTable); }
};

/// The texts and values are made beforehand, so that only their way into the table is measured.
void Measure(zanbench::TReport& report, const std::string& name, int count, int calls) {
  TSide candidate;
  TSide floor;
  TBareLoop loop(floor.Folder.Path() + "/zanrole.db");
  std::array<std::vector<TDifference>, 2> differences;
  std::array<std::string, 2> batches;
  for (std::size_t i = 0; i < differences.size(); ++i) {
    differences[i] = zanbench::DifferencesOf(static_cast<int>(i), count);
    batches[i] = "begin\r\n" + zanbench::StatementsOf(differences[i]).Text() + "\r\nend;";
  }
  const auto variant = [](int call) { return static_cast<std::size_t>(call) % 2; };
  const auto runBatch = [&](int call) {
    const auto query = candidate.Database->GetQuery();
    query->SQL().SetText(batches[variant(call)]);
    query->ExecSQL();
    return Content(*candidate.Database);
  };
  const auto runLoop = [&](int call) {
    loop.Run(differences[variant(call)]);
    return Content(*floor.Database);
  };
  report.Compare(name, 1.3, runBatch, runLoop, calls);
}

}  // namespace

int main() {
  zanbench::TReport report("Batches", zanbench::SqliteEngine());
  Measure(report, "batch of 1,000 differences", 1000, 120);
  Measure(report, "batch of 10,000 differences", 10000, 60);
  return report.Finish();
}
