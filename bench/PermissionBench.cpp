// What the right of a user costs: a question answered from memory against std::unordered_map, a menu check
// against a binary search over texts, the reading of all his rights against stepping the same rows in
// SQLite's own interface and dropping them, and two users on two threads against one.

#include <sqlite3.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <thread>
#include <unordered_map>
#include <vector>

#include "Role/RunPermission.h"
#include "Role/TolPermission.h"
#include "bench/Measure.h"
#include "bench/RightsSession.h"
#include "host/platform/Schema.h"
#include "host/query/DataUrl.h"

namespace {

using zanbench::TFolder;
using zanbench::TReport;
using zanbench::TRightsSession;
using zanrole::TRunPermission;
using zanrole::TTolPermission;

constexpr int kUser = 12;
constexpr int kRole = 3;
constexpr int kOtherUser = 13;
/// Questions of one measured call, so that the call itself does not count.
constexpr int kQuestions = 100;
constexpr std::size_t kRowsOfInsert = 500;

const std::vector<std::string> kMenuWords{"执行"};
const std::vector<std::string> kDocumentWords{"增加", "删除",     "修改",     "复制",   "浏览",  "预览",
                                              "打印", "列表预览", "列表打印", "审核",   "反审",  "记账",
                                              "反记", "批审核",   "批反审",   "批记账", "批反记"};

struct TRow {
  int Holder;
  int Object;
  std::string_view Oprate;
  int Permission;
};

/// A row for each pair of object and operation: half of them the user's own, half his role's, every fifth
/// denies.
std::vector<TRow> MakeRows(int count, const std::vector<std::string>& words) {
  std::vector<TRow> rows;
  const int perObject = static_cast<int>(words.size());
  for (int i = 0; i < count; ++i)
    rows.push_back({i % 2 == 0 ? kUser : kRole, 1000 + i / perObject,
                    words[static_cast<std::size_t>(i % perObject)], i % 5 == 0 ? 0 : 1});
  return rows;
}

/// An installation of two users with one role and these rights.
struct TInstalledRights {
  explicit TInstalledRights(const std::vector<TRow>& rows) {
    const auto database = zanhost::OpenDatabase(Url, zanhost::TOpenMode::CreateIfMissing);
    zanhost::InstallSchema(*database);
    database->ExecScript(
        "insert into STUsers(OID, UserID, UserName, uGroup) values(12, 'one', 'one', 0), (13, 'two', 'two', "
        "0),"
        " (3, '', 'role', 1);\n"
        "insert into STUserGroup(UserID, GroupID) values(12, 3), (13, 3);\n");
    std::vector<std::string> values;
    for (const TRow& row : rows) {
      values.push_back(ValuesOf(row.Holder, row));
      if (row.Holder == kUser) values.push_back(ValuesOf(kOtherUser, row));
    }
    for (std::size_t i = 0; i < values.size(); i += kRowsOfInsert) InsertFrom(*database, values, i);
  }

  static std::string ValuesOf(int holder, const TRow& row) {
    return "(" + std::to_string(holder) + ", " + std::to_string(row.Object) + ", '" +
           std::string(row.Oprate) + "', " + std::to_string(row.Permission) + ")";
  }

  static void InsertFrom(zanhost::TDatabase& database, const std::vector<std::string>& values,
                         std::size_t first) {
    std::string statement = "insert into STPermission(UserID, ObjectID, Oprate, Permission) values";
    for (std::size_t i = first; i < std::min(first + kRowsOfInsert, values.size()); ++i)
      statement += (i == first ? "" : ", ") + values[i];
    database.ExecScript(statement + ";");
  }

  std::string File() const { return Folder.Path() + "/zanrole.db"; }

  TFolder Folder;
  std::string Url = "sqlite:" + Folder.Path();
};

/// The same rights as a program without this module would hold them: the effective right of a pair in one
/// table, looked up without making a text.
class TPlainRights {
 public:
  explicit TPlainRights(const std::vector<TRow>& rows) {
    for (const TRow& row : rows)
      FRights.emplace(TPair{row.Object, std::string(row.Oprate)}, row.Permission == 0 ? "禁止" : "允许");
  }

  std::string Ask(int object, std::string_view oprate) const {
    const auto found = FRights.find(TPairView{object, oprate});
    return found == FRights.end() ? std::string() : found->second;
  }

 private:
  struct TPair {
    int Object;
    std::string Oprate;
  };
  struct TPairView {
    int Object;
    std::string_view Oprate;
  };
  struct THash {
    using is_transparent = void;
    template <typename TAnyPair>
    std::size_t operator()(const TAnyPair& pair) const {
      return std::hash<std::string_view>{}(pair.Oprate) * 31 + std::hash<int>{}(pair.Object);
    }
  };
  struct TEqual {
    using is_transparent = void;
    template <typename TOne, typename TOther>
    bool operator()(const TOne& one, const TOther& other) const {
      return one.Object == other.Object && one.Oprate == other.Oprate;
    }
  };
  std::unordered_map<TPair, std::string, THash, TEqual> FRights;
};

/// Objects and operations to be asked for, in no order; one in ten is set for nobody. They are so many that
/// the processor cannot learn their answers, also where there are few rows.
std::vector<TRow> MakeQuestions(const std::vector<TRow>& rows) {
  constexpr int kCount = 100000;
  std::mt19937 random(1);
  std::uniform_int_distribution<std::size_t> anyRow(0, rows.size() - 1);
  std::vector<TRow> questions;
  for (int i = 0; i < kCount; ++i) {
    questions.push_back(rows[anyRow(random)]);
    if (i % 10 == 0) questions.back().Object += 1000000;
  }
  return questions;
}

/// Asks a hundred questions; what is told is how long their answers are together.
template <typename TOne>
std::string AskMany(const std::vector<TRow>& questions, int call, const TOne& askOne) {
  const std::size_t first = static_cast<std::size_t>(call) * kQuestions % questions.size();
  std::size_t length = 0;
  for (std::size_t i = first; i < first + kQuestions; ++i) length += askOne(questions[i]);
  return std::to_string(length);
}

std::string CountOf(int rows) {
  return rows < 1000 ? std::to_string(rows) : std::to_string(rows / 1000) + ",000";
}

std::string WordsOf(std::size_t count) { return std::to_string(count) + (count == 1 ? " word" : " words"); }

std::string Title(int rows, std::size_t words) {
  return "100 checks, " + CountOf(rows) + " rows, " + WordsOf(words);
}

struct TLoadedRights {
  TLoadedRights(int count, const std::vector<std::string>& words)
      : Rows(MakeRows(count, words)), Installed(Rows), Questions(MakeQuestions(Rows)), Plain(Rows) {
    Session.Enter();
    Rights.emplace();
    Rights->SetUserID(kUser);
  }

  std::string AskModule(int call) const {
    return AskMany(Questions, call,
                   [this](const TRow& row) { return Rights->GetPermission(row.Object, row.Oprate).size(); });
  }
  std::string AskPlain(int call) const {
    return AskMany(Questions, call,
                   [this](const TRow& row) { return Plain.Ask(row.Object, row.Oprate).size(); });
  }

  std::vector<TRow> Rows;
  TInstalledRights Installed;
  std::vector<TRow> Questions;
  TPlainRights Plain;
  TRightsSession Session{Installed.Url, "one"};
  std::optional<TTolPermission> Rights;
};

void MeasureChecks(TReport& report) {
  for (const std::vector<std::string>& words : {kMenuWords, kDocumentWords}) {
    std::vector<std::unique_ptr<TLoadedRights>> sizes;
    for (const int rows : {1000, 10000, 100000}) {
      TLoadedRights& rights = *sizes.emplace_back(std::make_unique<TLoadedRights>(rows, words));
      rights.Session.Enter();
      report.Compare(
          Title(rows, words.size()), 1.2, [&](int call) { return rights.AskModule(call); },
          [&](int call) { return rights.AskPlain(call); });
    }
    const auto asked = [](const TLoadedRights& rights) {
      return [&rights](int call) { return rights.AskModule(call).empty() ? "" : "asked"; };
    };
    report.Compare("10,000 rows against 1,000, " + WordsOf(words.size()), 2.0, asked(*sizes[1]),
                   asked(*sizes[0]));
    report.Compare("100,000 rows against 10,000, " + WordsOf(words.size()), 2.0, asked(*sizes[2]),
                   asked(*sizes[1]));
  }
}

void MeasureMenus(TReport& report) {
  for (const int count : {100, 1000, 10000}) {
    const std::vector<TRow> rows = MakeRows(count, kMenuWords);
    const TInstalledRights installed(rows);
    TRightsSession session(installed.Url, "one");
    session.Enter();
    const TRunPermission& service = TRunPermission::GetInstance();
    const std::vector<TRow> questions = MakeQuestions(rows);
    std::vector<std::string> allowed;
    for (const TRow& row : rows)
      if (service.GetMenuPermission(row.Object)) allowed.push_back(std::to_string(row.Object));
    std::sort(allowed.begin(), allowed.end());
    std::unordered_map<int, std::string> texts;
    for (const TRow& row : questions) texts[row.Object] = std::to_string(row.Object);
    std::vector<std::string_view> textOfQuestion;
    for (const TRow& row : questions) textOfQuestion.push_back(texts[row.Object]);

    report.Compare(
        "100 menu checks, " + CountOf(count) + " menus", 1.0,
        [&](int call) {
          return AskMany(questions, call, [&](const TRow& row) -> std::size_t {
            return service.GetMenuPermission(row.Object) ? 1 : 0;
          });
        },
        [&](int call) {
          return AskMany(questions, call, [&](const TRow& row) -> std::size_t {
            const std::string_view text = textOfQuestion[static_cast<std::size_t>(&row - questions.data())];
            return std::binary_search(allowed.begin(), allowed.end(), text) ? 1 : 0;
          });
        });
  }
}

/// The two statements of a holder, prepared once; rows are stepped and dropped.
class TBareReading {
 public:
  explicit TBareReading(const std::string& file) {
    sqlite3_open_v2(file.c_str(), &FConnection, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    Prepare("Select * From STPermission Where UserID = 12", &FOwn);
    Prepare(
        "Select ObjectID, Oprate, min(Permission) Permission From STPermission where userid in (select "
        "GroupID "
        "from STUserGroup where UserID = 12) group by ObjectID, Oprate",
        &FOfRoles);
  }
  ~TBareReading() {
    sqlite3_finalize(FOwn);
    sqlite3_finalize(FOfRoles);
    sqlite3_close(FConnection);
  }
  TBareReading(const TBareReading&) = delete;
  TBareReading& operator=(const TBareReading&) = delete;

  std::string Read() { return Step(FOwn) + Step(FOfRoles) > 0 ? "read" : ""; }

 private:
  void Prepare(const char* text, sqlite3_stmt** statement) {
    sqlite3_prepare_v3(FConnection, text, -1, SQLITE_PREPARE_PERSISTENT, statement, nullptr);
  }
  static int Step(sqlite3_stmt* statement) {
    int rows = 0;
    while (sqlite3_step(statement) == SQLITE_ROW) ++rows;
    sqlite3_reset(statement);
    return rows;
  }

  sqlite3* FConnection = nullptr;
  sqlite3_stmt* FOwn = nullptr;
  sqlite3_stmt* FOfRoles = nullptr;
};

void MeasureLoading(TReport& report) {
  for (const int count : {1000, 10000, 100000}) {
    TLoadedRights rights(count, kDocumentWords);
    TBareReading bare(rights.Installed.File());
    report.Compare(
        "rights of a holder, " + CountOf(count) + " rows", 1.15,
        [&](int) {
          rights.Rights->LoadAllPermissions();
          return std::string("read");
        },
        [&](int) { return bare.Read(); }, std::max(100, 1'000'000 / count));
  }
}

/// One user on a thread: all questions, or first the reading of his rights.
class TServedUser {
 public:
  TServedUser(const std::string& url, const std::string& login, const std::vector<TRow>& questions)
      : FSession(url, login), FQuestions(questions) {
    FSession.Enter();
    FRights.emplace();
    FRights->SetUserID(zanrole::SystemInfo().LoginUserOID);
  }

  std::string Ask() {
    FSession.Enter();
    std::size_t length = 0;
    for (const TRow& row : FQuestions) length += FRights->GetPermission(row.Object, row.Oprate).size();
    zanrole::TSession::MakeCurrent(nullptr);
    return std::to_string(length);
  }

  std::string Read() {
    FSession.Enter();
    FRights->LoadAllPermissions();
    return Ask();
  }

 private:
  TRightsSession FSession;
  const std::vector<TRow>& FQuestions;
  std::optional<TTolPermission> FRights;
};

void MeasureThreads(TReport& report) {
  const std::vector<TRow> rows = MakeRows(10000, kDocumentWords);
  const TInstalledRights installed(rows);
  const std::vector<TRow> questions = MakeQuestions(rows);
  zanbench::StayOn(0);
  TServedUser one(installed.Url, "one", questions);
  TServedUser two(installed.Url, "two", questions);
  const auto compare = [&](const char* name, std::string (TServedUser::*serve)()) {
    const auto atOnce = [&](int) {
      std::string answer;
      std::thread other([&] {
        zanbench::StayOn(1);
        answer = (two.*serve)();
      });
      const std::string own = (one.*serve)();
      other.join();
      return own + answer;
    };
    const auto byTurns = [&](int) { return (one.*serve)() + (two.*serve)(); };
    report.Compare(name, 1 / 1.8, atOnce, byTurns, 200);
  };
  compare("two users asking at once or by turns", &TServedUser::Ask);
  compare("two users reading at once or by turns", &TServedUser::Read);
}

}  // namespace

int main() {
  TReport report("PermissionBench", std::string("SQLite ") + sqlite3_libversion());
  MeasureChecks(report);
  MeasureMenus(report);
  MeasureLoading(report);
  MeasureThreads(report);
  return report.Finish();
}
