// What a batch of many small statements costs, sent as one text with every value written into it, against the
// same statements prepared once in SQLite's own interface and run in one transaction. Both write the same
// rows into tables alike of two files in the same run, by turns.

#include <sqlite3.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "bench/Measure.h"
#include "host/query/DataUrl.h"

namespace {

constexpr const char* kTable =
    "create table Differences (ID int not null, Name nvarchar(200), Sequence int, primary key (ID)) without "
    "rowid;";

/// Values differ with each call, as they do from one saving to the next.
struct TDifference {
  int ID;
  std::string Name;
  int Sequence;
};

std::vector<TDifference> DifferencesOf(int call, int count) {
  std::vector<TDifference> differences;
  for (int id = 1; id <= count; ++id)
    differences.push_back({id, "部门" + std::to_string(call * 7 + id), call + id});
  return differences;
}

/// Two statements a difference: one makes the row, one changes it.
std::string BatchOf(const std::vector<TDifference>& differences) {
  zanrole::TStringList lines;
  lines.Add("delete from Differences;");
  for (const TDifference& row : differences) {
    const std::string id = std::to_string(row.ID);
    lines.Add("insert into Differences(ID, Name, Sequence) values(" + id + ", " +
              zanrole::QuotedStr(row.Name) + ", 0);");
    lines.Add("update Differences set Sequence = " + std::to_string(row.Sequence) + " where ID = " + id +
              ";");
  }
  return "begin\r\n" + lines.Text() + "\r\nend;";
}

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
      sqlite3_bind_int(FInsert, 1, row.ID);
      sqlite3_bind_text(FInsert, 2, row.Name.data(), static_cast<int>(row.Name.size()), SQLITE_STATIC);
      Step(FInsert);
      sqlite3_bind_int(FUpdate, 1, row.Sequence);
      sqlite3_bind_int(FUpdate, 2, row.ID);
      Step(FUpdate);
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

/// Batches of `statements` statements; the texts and values are made beforehand, so that only their way into
/// the table is measured.
bool Measure(const char* name, int statements, zanbench::TEffort effort) {
  TSide candidate;
  TSide floor;
  TBareLoop loop(floor.Folder.Path() + "/zanrole.db");
  std::array<std::vector<TDifference>, 2> differences;
  std::array<std::string, 2> batches;
  for (std::size_t i = 0; i < differences.size(); ++i) {
    differences[i] = DifferencesOf(static_cast<int>(i), statements / 2);
    batches[i] = BatchOf(differences[i]);
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
  return zanbench::Compare(name, runBatch, runLoop, effort);
}

}  // namespace

int main() {
  zanbench::PrintHead();
  const bool small = Measure("batch of 1,000 statements", 1000, {.Rounds = 60, .CallsOfRound = 2});
  const bool great = Measure("batch of 10,000 statements", 10000, {.Rounds = 20, .CallsOfRound = 2});
  return small && great ? 0 : 1;
}
