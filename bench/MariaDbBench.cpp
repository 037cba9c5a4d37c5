// What a MariaDB server costs by way of the query object: one statement with a changing literal against the
// statement prepared once in the C interface, and a batch as the module writes it against the same statements
// in one text of several. Candidate and floor use the same server, started for this run, by turns.

#include <mysql.h>

#include <array>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "bench/Differences.h"
#include "bench/Measure.h"
#include "host/query/DataUrl.h"
#include "tests/support/MariaDbServer.h"

namespace {

constexpr const char* kTables = R"(
create table STDomainMembers (DomainID int not null, UserOID int not null, MemberType int not null, IsOwned int not null,
                              primary key (DomainID, UserOID, MemberType, IsOwned), key (UserOID, IsOwned, MemberType, DomainID));
insert into STDomainMembers select seq % 60 + 1, seq, 0, 1 from seq_1_to_500
                            union all select seq % 60 + 1, seq div 4, 2, 0 from seq_1_to_500;
create table STUsers (OID int not null, UserID varchar(200), Status int, primary key (OID), key (UserID));
insert into STUsers select seq, concat('user', seq), 0 from seq_1_to_500;
create table Differences (ID int not null, Name varchar(200), Sequence int, primary key (ID));
create table BareDifferences like Differences;
)";

/// The C interface without a host around it. A fault shows in the answers, which then differ.
class TBareConnection {
 public:
  explicit TBareConnection(const std::string& database) : FHandle(mysql_init(nullptr)) {
    mysql_options(FHandle, MYSQL_SET_CHARSET_NAME, "utf8mb4");
    mysql_real_connect(FHandle, nullptr, "root", nullptr, database.c_str(), 0,
                       zantest::TMariaDbServer::Instance().Socket().c_str(),
                       CLIENT_FOUND_ROWS | CLIENT_MULTI_STATEMENTS);
  }
  ~TBareConnection() { mysql_close(FHandle); }
  TBareConnection(const TBareConnection&) = delete;
  TBareConnection& operator=(const TBareConnection&) = delete;

  MYSQL* Handle() { return FHandle; }
  void RunAll(const std::string& text) {
    mysql_real_query(FHandle, text.data(), text.size());
    do {
      mysql_free_result(mysql_store_result(FHandle));
    } while (mysql_next_result(FHandle) == 0);
  }

 private:
  MYSQL* FHandle;
};

/// A statement of one parameter, prepared once. Its one column is read as numbers, into the same place each
/// time.
class TBareStatement {
 public:
  TBareStatement(TBareConnection& connection, const std::string& text)
      : FStatement(mysql_stmt_init(connection.Handle())) {
    mysql_stmt_prepare(FStatement, text.data(), text.size());
    FParameter.buffer_type = MYSQL_TYPE_LONG;
    FParameter.buffer = &FValue;
    mysql_stmt_bind_param(FStatement, &FParameter);
    FColumn.buffer_type = MYSQL_TYPE_LONG;
    FColumn.buffer = &FCell;
    if (mysql_stmt_field_count(FStatement) > 0) mysql_stmt_bind_result(FStatement, &FColumn);
  }
  ~TBareStatement() { mysql_stmt_close(FStatement); }
  TBareStatement(const TBareStatement&) = delete;
  TBareStatement& operator=(const TBareStatement&) = delete;

  std::string Ask(int value) {
    FValue = value;
    mysql_stmt_execute(FStatement);
    if (mysql_stmt_field_count(FStatement) == 0) return "done";
    std::string list;
    mysql_stmt_store_result(FStatement);
    while (mysql_stmt_fetch(FStatement) == 0) list += std::to_string(FCell) + ",";
    mysql_stmt_free_result(FStatement);
    return list;
  }

 private:
  MYSQL_STMT* FStatement;
  MYSQL_BIND FParameter{};
  MYSQL_BIND FColumn{};
  int FValue = 0;
  int FCell = 0;
};

struct TQuestion {
  const char* Name;
  std::string Before;
  std::string Behind;
};

const std::vector<TQuestion> kQuestions{
    {"domains of changing ranges",
     "select DomainID from STDomainMembers where IsOwned = 0 and UserOID = ", " order by 1"},
    {"one value by changing keys", "select Status from STUsers where OID = ", ""},
    {"a changing row is updated", "update STUsers set Status = Status + 1 where OID = ", ""},
};

std::string Ask(zanhost::TDatabase& database, const TQuestion& question, int value) {
  const auto query = database.GetQuery();
  query->SQL().Add(question.Before + std::to_string(value) + question.Behind);
  if (question.Before.starts_with("update")) return query->ExecSQL(), "done";
  std::string list;
  for (query->Open(); !query->Eof(); query->Next()) {
    list += query->Fields(0).AsString();
    list += ',';
  }
  return list;
}

void MeasureQuestion(zanbench::TReport& report, zanhost::TDatabase& database, TBareConnection& bare,
                     const TQuestion& question) {
  TBareStatement floor(bare, question.Before + "?" + question.Behind);
  const auto valueOf = [](int call) { return (call + 4) % 100 + 1; };
  report.Compare(
      question.Name, 1.15, [&](int call) { return Ask(database, question, valueOf(call)); },
      [&](int call) { return floor.Ask(valueOf(call)); }, 18'000);
}

std::string Content(zanhost::TDatabase& database, const std::string& table) {
  const auto query = database.GetQuery();
  query->SQL().Add("select concat(count(*), max(Name), sum(ID * Sequence)) from " + table);
  query->Open();
  return query->Fields(0).AsString();
}

/// The floor's statements name a table of their own.
std::string OneText(const zanrole::TStringList& statements) {
  std::string text = "start transaction;\n";
  for (std::string line : statements) text += line.replace(line.find("Differences"), 0, "Bare") + "\n";
  return text + "commit";
}

void MeasureBatch(zanbench::TReport& report, zanhost::TDatabase& database, TBareConnection& bare,
                  const std::string& name, int count) {
  std::array<std::string, 2> batches;
  std::array<std::string, 2> texts;
  for (std::size_t i = 0; i < batches.size(); ++i) {
    const zanrole::TStringList statements =
        zanbench::StatementsOf(zanbench::DifferencesOf(static_cast<int>(i), count));
    batches[i] = "call MySql_execute_MultiSql(" + zanrole::QuotedStr(statements.Text()) + ")";
    texts[i] = OneText(statements);
  }
  const auto variant = [](int call) { return static_cast<std::size_t>(call) % 2; };
  const auto runBatch = [&](int call) {
    const auto query = database.GetQuery();
    query->SQL().SetText(batches[variant(call)]);
    query->ExecSQL();
    return Content(database, "Differences");
  };
  const auto runText = [&](int call) {
    bare.RunAll(texts[variant(call)]);
    return Content(database, "BareDifferences");
  };
  report.Compare(name, 1.0, runBatch, runText, 30);
}

}  // namespace

int main() {
  const std::string whyNot = zantest::WhyNoMariaDbServer();
  if (!whyNot.empty()) {
    std::fprintf(stderr, "%s\n", whyNot.c_str());
    return 1;
  }
  const auto database = zanhost::OpenDatabase(
      zantest::TMariaDbServer::Instance().Url("bench", "bench_system"), zanhost::TOpenMode::CreateIfMissing);
  database->ExecScript(kTables);
  TBareConnection bare("bench");
  zanbench::TReport report("Single statements and batches",
                           std::string("MariaDB ") + mysql_get_server_info(bare.Handle()));
  for (const TQuestion& question : kQuestions) MeasureQuestion(report, *database, bare, question);
  MeasureBatch(report, *database, bare, "batch of 1,000 differences", 1000);
  MeasureBatch(report, *database, bare, "batch of 10,000 differences", 10000);
  return report.Finish();
}
