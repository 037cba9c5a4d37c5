#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <set>
#include <sstream>
#include <thread>

#include "host/platform/Cipher.h"
#include "host/platform/Numbering.h"
#include "host/platform/Sample.h"
#include "host/platform/Schema.h"
#include "host/query/Odbc/OdbcDatabase.h"
#include "host/query/Trace.h"
#include "tests/host/Rows.h"
#include "tests/support/MariaDbServer.h"
#include "tests/support/OdbcDriver.h"

namespace zantest {

using testing::HasSubstr;
using testing::Not;
using zanhost::TOpenMode;
using zanrole::EDatabaseError;

namespace {

/// A thousand million rows: minutes of work.
constexpr std::string_view kLongStatement =
    "with s(n) as (select 1 union all select n + 1 from s where n < 1000) "
    "select count(*) from s a, s b, s c where a.n + 1 <> b.n * c.n";

/// The sentence with which the work fails.
template <typename TWork>
std::string FaultOf(TWork work) {
  try {
    work();
  } catch (const EDatabaseError& error) {
    return error.Message();
  }
  return "(no fault)";
}

/// Databases of its own on the server of this program, reached by an ODBC driver.
class Odbc : public testing::Test {
 protected:
  void SetUp() override {
    if (const std::string whyNot = WhyNoOdbcDriver(); !whyNot.empty()) GTEST_SKIP() << whyNot;
    FDatabase = Open();
  }
  void TearDown() override {
    if (FDatabase == nullptr) return;
    Execute(*FDatabase, "drop database " + FData);
    Execute(*Open(), "drop database " + FSystem);
  }

  std::string Url() const { return OdbcUrl(FData, FSystem, FFolder.Path().string()); }
  std::unique_ptr<zanhost::TDatabase> Open(TOpenMode mode = TOpenMode::CreateIfMissing) {
    return zanhost::OpenDatabase(Url(), mode);
  }
  zanhost::TDatabase& Database() { return *FDatabase; }
  const TTemporaryFolder& Folder() const { return FFolder; }

 private:
  static inline int FMade = 0;
  TTemporaryFolder FFolder;
  std::string FData = "host_odbc_data_" + std::to_string(++FMade);
  std::string FSystem = "host_odbc_system_" + std::to_string(FMade);
  std::unique_ptr<zanhost::TDatabase> FDatabase;
};

}  // namespace

TEST_F(Odbc, RecognisesMariaDbAndSaysWhatIsWrongAtTheStart) {
  EXPECT_EQ(Database().Dialect(), zanrole::TDialect::MySql);
  EXPECT_EQ(Database().Server(), zanhost::TServerKind::MariaDb);
  auto open = [&] { Open(TOpenMode::MustExist); };
  EXPECT_THAT(FaultOf(open), HasSubstr("zanhost schema"));
  zanhost::InstallSchema(Database());
  EXPECT_EQ(FaultOf(open), "(no fault)");
  Execute(Database(), "drop procedure P_RefreshPartyParentPath");
  EXPECT_THAT(FaultOf(open), HasSubstr("P_RefreshPartyParentPath"));
  EXPECT_THAT(
      FaultOf([] { zanhost::OpenDatabase(OdbcUrl("nowhere", "nowhere", "data"), TOpenMode::MustExist); }),
      HasSubstr("There is no database 'nowhere'"));
}

TEST_F(Odbc, AZeroCharacterDoesNotCutAStatementShort) {
  using namespace std::string_literals;
  EXPECT_THAT(FaultOf([&] { Execute(Database(), "select 1 where 'a' = 'a\0'"s); }),
              HasSubstr("zero character"));
}

TEST_F(Odbc, AServerThatIsNotThereAndAWrongPasswordAreTold) {
  const auto fault = [](const std::string& url) {
    return FaultOf([&] { zanhost::OpenDatabase(url, TOpenMode::MustExist); });
  };
  const std::string driver = "odbc:DRIVER={MariaDB Unicode};SERVER=localhost;UID=root;PWD=geheim;SOCKET=";
  EXPECT_THAT(fault(driver + "/nowhere"), HasSubstr("cannot be reached"));
  EXPECT_THAT(fault(driver + TMariaDbServer::Instance().Socket()),
              HasSubstr("does not let the user 'root' in"));
}

TEST_F(Odbc, SampleIsMadeWholeAndOnce) {
  zanhost::InstallSchema(Database());
  EXPECT_EQ(zanhost::InstallSchema(Database()), zanhost::kSchemaVersion);
  zanhost::TSivCipher cipher(zanhost::KeyFileOf(Folder().Path()));
  const zanhost::TSampleOptions options{.People = 50, .AdminPassword = "x", .Cipher = cipher};
  const int people = zanhost::MakeSample(Database(), options).People;
  EXPECT_EQ(Number(Database(), "select count(*) from UserH"), people);
  EXPECT_THROW(zanhost::MakeSample(Database(), options), zanrole::EZanError);
  EXPECT_EQ(Number(*Open(), "select count(*) from UserH"), people);
}

TEST_F(Odbc, SessionsNeverDrawTheSameNumber) {
  zanhost::InstallSchema(Database());
  Execute(Database(), "insert into PartyH (DjLsh) values (41)");
  constexpr int kSessions = 3;
  constexpr int kDraws = 100;
  std::vector<std::vector<int>> drawn(kSessions);
  std::vector<std::thread> threads;
  for (std::vector<int>& numbers : drawn)
    threads.emplace_back([&] {
      const auto session = Open();
      for (int i = 0; i < kDraws; ++i)
        numbers.push_back(zanhost::NewDjLsh(*session, i % 2 == 0 ? "party" : "Party"));
    });
  for (std::thread& thread : threads) thread.join();
  std::set<int> all;
  for (const std::vector<int>& numbers : drawn) all.insert(numbers.begin(), numbers.end());
  EXPECT_EQ(all.size(), std::size_t{kSessions * kDraws});
  EXPECT_EQ(*all.rbegin(), 41 + kSessions * kDraws);
}

TEST_F(Odbc, CharactersSurviveTheBordersOfPieces) {
  Execute(Database(), "create table T (ID int primary key, Note longtext)");
  // Two units of UTF-16 each, behind one and behind two others: one of them ends a piece in its middle.
  for (const std::string front : {"a", "ab"}) {
    std::string text = front;
    for (int i = 0; i < 10'000; ++i) text += "😀";
    const auto query = Database().GetQuery();
    query->SQL().SetText("replace into T (ID, Note) values (1, :Note)");
    query->ParamByName("Note").AsString(text);
    query->ExecSQL();
    EXPECT_EQ(Text(Database(), "select Note from T"), text);
    EXPECT_EQ(Number(Database(), "select char_length(Note) from T"), 10'000 + static_cast<int>(front.size()));
  }
}

TEST_F(Odbc, ValuesHaveTheirTypes) {
  Execute(Database(), "create table T (Flag bit)");
  Execute(Database(), "insert into T values (1)");
  const auto query = Database().GetQuery();
  query->SQL().SetText(
      "select 5 A, 9223372036854775807 B, 1.5 C, cast(null as int) D, Flag E, cast('2024-02-29 23:59:58' as "
      "datetime) F, cast('2024-02-29' as date) G, cast(x'00ff' as binary(2)) H, '' I from T");
  query->Open();
  EXPECT_EQ(query->Fields(0).Value(), zanrole::TZanValue(std::int64_t{5}));
  EXPECT_EQ(query->Fields(1).AsString(), "9223372036854775807");
  EXPECT_EQ(query->Fields(2).Value(), zanrole::TZanValue(1.5));
  EXPECT_TRUE(query->Fields(3).IsNull());
  EXPECT_EQ(query->Fields(4).AsInteger(), 1);
  EXPECT_EQ(query->Fields(5).AsString(), "2024-02-29 23:59:58");
  EXPECT_EQ(query->Fields(6).AsString(), "2024-02-29");
  EXPECT_EQ(query->Fields(7).AsString(), std::string("\0\xFF", 2));
  EXPECT_FALSE(query->Fields(8).IsNull());
}

TEST_F(Odbc, ARoutineWithSeveralAnswersIsReadToItsEnd) {
  Database().ExecScript(
      "create table T (ID int primary key);\ndelimiter $$\n"
      "create procedure Two() begin select 1 A; insert into T values (7); select 2 B; end$$");
  EXPECT_EQ(Number(Database(), "call Two()"), 1);
  EXPECT_EQ(Number(Database(), "select ID from T"), 7);
}

TEST_F(Odbc, StatementIsCancelledFromAnotherThread) {
  std::thread canceller([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    Database().Interrupt();
  });
  const auto start = std::chrono::steady_clock::now();
  const std::string answer = FaultOf([&] { Text(Database(), kLongStatement); });
  canceller.join();
  EXPECT_EQ(answer, "The statement was cancelled.");
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
  Database().Interrupt();
  EXPECT_EQ(Number(Database(), "select 1"), 1);
}

TEST_F(Odbc, StatementThatTakesTooLongIsStopped) {
  auto& database = dynamic_cast<zanhost::TOdbcDatabase&>(Database());
  database.SetLimits({.Statement = std::chrono::seconds(1)});
  EXPECT_THAT(FaultOf([&] { Text(database, kLongStatement); }), HasSubstr("1 seconds"));
  EXPECT_EQ(Number(database, "select 1"), 1);
}

TEST_F(Odbc, LostConnectionIsToldAndTheNextStatementConnectsAnew) {
  Execute(Database(), "create table T (ID int primary key)");
  const auto insert = Database().GetQuery();
  insert->SQL().SetText("insert into T values (:ID)");
  insert->ParamByName("ID").AsInteger(1);
  insert->ExecSQL();
  Execute(*Open(), "kill " + Text(Database(), "select connection_id()"));
  insert->ParamByName("ID").AsInteger(2);
  EXPECT_THAT(FaultOf([&] { insert->ExecSQL(); }), HasSubstr("was lost"));
  insert->ExecSQL();
  EXPECT_EQ(Number(Database(), "select count(*) from T"), 2);
}

TEST_F(Odbc, ServerThatWentAwayIsUsedAgainWhenItIsBack) {
  Execute(Database(), "create table T (ID int primary key)");
  const auto insert = [&] { Execute(Database(), "insert into T values (1)"); };
  TMariaDbServer::Instance().Kill();
  EXPECT_THAT(FaultOf(insert), HasSubstr("was lost"));
  EXPECT_THAT(FaultOf(insert), HasSubstr("cannot be reached"));
  TMariaDbServer::Instance().Start();
  insert();
  EXPECT_EQ(Number(Database(), "select count(*) from T"), 1);
}

TEST_F(Odbc, PreparedStatementSeesColumnsThatCameLater) {
  Execute(Database(), "create table T (ID int primary key)");
  Execute(Database(), "insert into T values (1)");
  const auto query = Database().GetQuery();
  query->SQL().SetText("select * from T where ID = :ID");
  query->ParamByName("ID").AsInteger(1);
  query->Open();
  EXPECT_EQ(query->FindField("Later"), nullptr);
  Execute(Database(), "alter table T add Later varchar(20) default 'new'");
  query->Open();
  EXPECT_EQ(query->FieldByName("Later").AsString(), "new");
}

TEST_F(Odbc, TraceShowsWhatWasSentAndHidesPasswords) {
  zanhost::InstallSchema(Database());
  const std::string file = (Folder() / "trace").string();
  zanhost::TTrace trace(file);
  Database().SetTrace(&trace);
  const auto query = Database().GetQuery();
  query->SQL().SetText("update STUsers set Password = :P where OID = :O");
  query->ParamByName("P").AsString("geheim");
  query->ParamByName("O").AsInteger(3);
  query->ExecSQL();
  Execute(Database(), "update STUsers set Password = 'geheim'");
  EXPECT_THAT(FaultOf([&] { Execute(Database(), "update STUsers set Password = 'a' 'b' 'geheim'' x"); }),
              HasSubstr("refused a statement about passwords"));
  Database().SetTrace(nullptr);
  std::stringstream lines;
  lines << std::ifstream(file).rdbuf();
  EXPECT_THAT(lines.str(), HasSubstr("set Password = ? where OID = ?"));
  EXPECT_THAT(lines.str(), HasSubstr("\"O\":3"));
  EXPECT_THAT(lines.str(), Not(HasSubstr("geheim")));
}

TEST_F(Odbc, BackupIsLeftToTheServersProgram) {
  EXPECT_THAT(FaultOf([&] { Database().BackupTo("/nowhere"); }), HasSubstr("mariadb-dump"));
}

}  // namespace zantest
