#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <boost/json.hpp>
#include <fstream>
#include <thread>

#include "host/query/Sqlite/SqliteDatabase.h"
#include "host/query/Trace.h"
#include "tests/support/TemporaryFolder.h"

namespace zantest {

using testing::HasSubstr;
using testing::Not;
using zanhost::TOpenMode;
using zanrole::EDatabaseError;

namespace {

std::string MessageOfOpening(const std::string& url, TOpenMode mode) {
  try {
    zanhost::OpenDatabase(url, mode);
  } catch (const EDatabaseError& error) {
    return error.Message();
  }
  return "(opened)";
}

class SqliteDatabase : public testing::Test {
 protected:
  zanhost::TSqliteDatabase& Database() { return FDatabase; }
  std::string Folder() const { return FFolder.Path().string(); }

  void Exec(std::string_view text) {
    const auto query = FDatabase.GetQuery();
    query->SQL().SetText(std::string(text));
    query->ExecSQL();
  }
  std::string Cell(std::string_view text) {
    const auto query = FDatabase.GetQuery();
    query->SQL().SetText(std::string(text));
    query->Open();
    return query->Eof() ? "(none)" : query->Fields(0).AsString();
  }
  std::string FaultOf(std::string_view text) {
    try {
      Exec(text);
    } catch (const EDatabaseError& error) {
      return error.Message();
    }
    return "(no fault)";
  }
  /// An endless recursion, as over a record that is its own superior.
  static constexpr std::string_view kEndless =
      "with cte(n) as (select 1 union all select n from cte) select count(*) from cte";

  TTemporaryFolder FFolder;
  zanhost::TSqliteDatabase FDatabase{FFolder.Path().string(), TOpenMode::CreateIfMissing};
};

}  // namespace

TEST(DataUrl, AnUnknownFormIsRefusedWithTheKnownOnes) {
  EXPECT_THAT(MessageOfOpening("oracle:x", TOpenMode::MustExist), HasSubstr("sqlite:FOLDER"));
  EXPECT_THAT(MessageOfOpening("", TOpenMode::MustExist), HasSubstr("sqlite:FOLDER"));
  EXPECT_THAT(MessageOfOpening("sqlite:", TOpenMode::MustExist), HasSubstr("names no folder"));
}

TEST(DataUrl, AMissingDatabaseIsToldAndNotMade) {
  const TTemporaryFolder folder;
  EXPECT_THAT(MessageOfOpening("sqlite:" + (folder / "none").string(), TOpenMode::MustExist),
              HasSubstr("no folder"));
  EXPECT_THAT(MessageOfOpening("sqlite:" + folder.Path().string(), TOpenMode::MustExist),
              HasSubstr("is missing"));
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST(DataUrl, AMissingDatabaseIsMadeWhenAskedForAndReadByItsOwnerOnly) {
  const TTemporaryFolder folder;
  const std::string inner = folder / "a/b";
  EXPECT_EQ(MessageOfOpening("sqlite:" + inner, TOpenMode::CreateIfMissing), "(opened)");
  EXPECT_EQ(MessageOfOpening("sqlite:" + inner, TOpenMode::MustExist), "(opened)");
  EXPECT_EQ(std::filesystem::status(inner + "/zanrole.db").permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST(DataUrl, AFolderUnderAFileCannotBeMade) {
  const TTemporaryFolder folder;
  std::ofstream(folder / "file") << "x";
  EXPECT_THAT(MessageOfOpening("sqlite:" + (folder / "file/sub").string(), TOpenMode::CreateIfMissing),
              HasSubstr("cannot be made"));
}

TEST(DataUrl, AFileThatIsNoDatabaseIsTold) {
  const TTemporaryFolder folder;
  std::ofstream(folder / "zanrole.db") << std::string(5000, 'x');
  EXPECT_THAT(MessageOfOpening("sqlite:" + folder.Path().string(), TOpenMode::MustExist),
              HasSubstr("is no database"));
}

TEST(DataUrl, AFolderInPlaceOfTheFileIsTold) {
  const TTemporaryFolder folder;
  std::filesystem::create_directory(folder / "zanrole.db");
  EXPECT_THAT(MessageOfOpening("sqlite:" + folder.Path().string(), TOpenMode::MustExist),
              HasSubstr("is a folder, not a database"));
}

TEST(DataUrl, ManySessionsMayMakeTheDatabaseAtOnce) {
  for (int round = 0; round < 10; ++round) {
    const TTemporaryFolder folder;
    const std::string url = "sqlite:" + (folder / "new").string();
    std::vector<std::string> messages(4);
    std::vector<std::thread> sessions;
    for (std::string& message : messages)
      sessions.emplace_back([&] { message = MessageOfOpening(url, TOpenMode::CreateIfMissing); });
    for (std::thread& session : sessions) session.join();
    EXPECT_THAT(messages, testing::Each("(opened)"));
  }
}

TEST_F(SqliteDatabase, SpeaksSqlServer) {
  EXPECT_EQ(Database().Dialect(), zanrole::TDialect::SqlServer);
  EXPECT_EQ(Database().ServerType(), "mssql");
}

TEST_F(SqliteDatabase, DataAndSystemQueriesReachTheSameFile) {
  Exec("create table Cases (ID int)");
  const auto query = Database().GetSysQuery();
  query->SQL().SetText("insert into Cases values(3)");
  query->ExecSQL();
  EXPECT_EQ(Cell("select ID from Cases"), "3");
}

TEST_F(SqliteDatabase, RegisteredFunctions) {
  EXPECT_EQ(Cell("select str(7)"), "         7");
  EXPECT_EQ(Cell("select str(-12.6, 5)"), "  -13");
  EXPECT_EQ(Cell("select str(123456, 3)"), "***");
  EXPECT_EQ(Cell("select str(null, 3)"), "");
  EXPECT_EQ(Cell("select left('组织机构', 2)"), "组织");
  EXPECT_EQ(Cell("select left('a😀b', 2)"), "a😀");
  EXPECT_EQ(Cell("select left('ab', 5) + left('ab', 0) + left('ab', -1)"), "ab");
  EXPECT_EQ(Cell("select DB_NAME() + '.' DbName"), "main.");
  EXPECT_EQ(Cell("select length(getdate())"), "19");
  EXPECT_EQ(Cell("select substr(getdate(), 1, 13) = strftime('%Y-%m-%d %H', 'now', 'localtime')"), "1");
}

TEST_F(SqliteDatabase, ANameInDoubleQuotesIsNeverAText) {
  Exec("create table Cases (ID int)");
  EXPECT_THAT(FaultOf("select ID from Cases where ID = \"nothing\""), HasSubstr("no such column"));
}

TEST_F(SqliteDatabase, AnEndlessRecursionIsEnded) {
  Database().Limits().Statement = std::chrono::milliseconds(100);
  EXPECT_THAT(FaultOf(kEndless), HasSubstr("follows a loop in the data"));
  EXPECT_EQ(Cell("select 1"), "1");
}

TEST_F(SqliteDatabase, AnEndlessResultIsEnded) {
  Database().Limits().ResultValues = 10'000;
  const auto query = Database().GetQuery();
  query->SQL().SetText("with cte(n) as (select 1 union all select n from cte) select n from cte");
  EXPECT_THROW(query->Open(), EDatabaseError);
  EXPECT_FALSE(query->Active());
}

TEST_F(SqliteDatabase, AStatementCanBeCancelledFromAnotherThread) {
  std::string message;
  std::atomic<bool> done = false;
  std::thread other([&] {
    while (!done) {
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
      Database().Interrupt();
    }
  });
  message = FaultOf(kEndless);
  done = true;
  other.join();
  EXPECT_EQ(message, "The statement was cancelled.");
  EXPECT_EQ(Cell("select 1"), "1");
}

TEST_F(SqliteDatabase, AFullDiskIsToldAndTheBatchIsTakenBack) {
  Exec("create table Cases (ID int, Note text)");
  Exec("insert into Cases values(1, 'kept')");
  Exec("pragma max_page_count = 20");
  const std::string large(200'000, 'x');
  EXPECT_THAT(
      FaultOf("begin insert into Cases values(2, 'a'); insert into Cases values(3, '" + large + "'); end;"),
      HasSubstr("is full"));
  EXPECT_EQ(Cell("select count(*) from Cases"), "1");
  Exec("insert into Cases values(4, 'later')");
}

TEST_F(SqliteDatabase, ADatabaseThatCanOnlyBeReadIsTold) {
  Exec("create table Cases (ID int)");
  Exec("pragma query_only = on");
  EXPECT_THAT(FaultOf("insert into Cases values(1)"), HasSubstr("can only be read"));
  EXPECT_EQ(Cell("select count(*) from Cases"), "0");
}

TEST_F(SqliteDatabase, ADamagedFileIsTold) {
  Exec("create table Cases (ID int, Note text)");
  for (int i = 0; i < 50; ++i) Exec("insert into Cases values(1, '" + std::string(3000, 'x') + "')");
  Exec("pragma wal_checkpoint(truncate)");
  std::fstream file(FFolder / "zanrole.db", std::ios::in | std::ios::out | std::ios::binary);
  for (std::streamoff page = 4096; page < 40 * 4096; page += 4096) {
    file.seekp(page);
    file << std::string(200, '\xff');
  }
  file.close();
  zanhost::TSqliteDatabase fresh(Folder(), TOpenMode::MustExist);
  const auto query = fresh.GetQuery();
  query->SQL().SetText("select * from Cases");
  try {
    query->Open();
    FAIL() << "the damage was not noticed";
  } catch (const EDatabaseError& error) {
    EXPECT_THAT(error.Message(), HasSubstr("is damaged"));
  }
}

TEST_F(SqliteDatabase, AFaultCarriesMessageAndStatement) {
  try {
    Exec("insert into Nowhere values(1)");
    FAIL();
  } catch (const EDatabaseError& error) {
    EXPECT_EQ(error.Message(), "no such table: Nowhere");
    EXPECT_EQ(error.Statement(), "insert into Nowhere values(1)");
  }
}

TEST_F(SqliteDatabase, AFaultNeverCarriesAPassword) {
  try {
    Exec("update STUsers set Password = 'secret' where OID = 1");
    FAIL();
  } catch (const EDatabaseError& error) {
    EXPECT_THAT(error.what(), Not(HasSubstr("secret")));
  }
}

TEST_F(SqliteDatabase, OpenNeedsAStatementWithAResult) {
  Exec("create table Cases (ID int)");
  const auto query = Database().GetQuery();
  query->SQL().SetText("insert into Cases values(1)");
  EXPECT_THROW(query->Open(), EDatabaseError);
  EXPECT_EQ(Cell("select count(*) from Cases"), "0");
  query->SQL().SetText("begin insert into Cases values(1); end;");
  EXPECT_THROW(query->Open(), EDatabaseError);
  EXPECT_EQ(Cell("select count(*) from Cases"), "0");
  query->SQL().SetText(" ; ");
  EXPECT_THROW(query->ExecSQL(), EDatabaseError);
}

TEST_F(SqliteDatabase, ACachedStatementSeesNewColumns) {
  Exec("create table Cases (ID int)");
  Exec("insert into Cases values(1)");
  const auto columns = [&] {
    const auto query = Database().GetQuery();
    query->SQL().SetText("select * from Cases");
    query->Open();
    return query->DataSet().FieldCount();
  };
  EXPECT_EQ(columns(), 1);
  EXPECT_EQ(columns(), 1);
  Exec("alter table Cases add Name nvarchar(200)");
  EXPECT_EQ(columns(), 2);
  EXPECT_EQ(columns(), 2);
}

TEST_F(SqliteDatabase, MoreStatementsThanTheCacheHoldsStayRight) {
  for (int round = 0; round < 2; ++round) {
    for (int i = 0; i < 600; ++i) EXPECT_EQ(Cell("select " + std::to_string(i)), std::to_string(i));
  }
}

TEST_F(SqliteDatabase, ACachedStatementTakesItsParametersAnew) {
  for (const std::string value : {"a", "", "域"}) {
    const auto query = Database().GetQuery();
    query->SQL().SetText("select :Value");
    query->ParamByName("value").AsString(value);
    query->Open();
    EXPECT_EQ(query->Fields(0).AsString(), value);
  }
  const auto query = Database().GetQuery();
  query->SQL().SetText("select :Value");
  query->Open();
  EXPECT_TRUE(query->Fields(0).IsNull());
}

TEST_F(SqliteDatabase, AScriptRunsWholeOrNotAtAll) {
  Database().ExecScript(
      "create table A (ID int); -- it's; fine\ncreate table B (Name text default 'x;y');\n");
  EXPECT_EQ(Cell("select count(*) from sqlite_master"), "2");
  try {
    Database().ExecScript("create table C (ID int);\ncreate tabel D (ID int);");
    FAIL();
  } catch (const EDatabaseError& error) {
    EXPECT_THAT(error.Statement(), HasSubstr("create tabel D"));
  }
  EXPECT_EQ(Cell("select count(*) from sqlite_master"), "2");
}

TEST_F(SqliteDatabase, ABackupIsACopyThatOnlyItsOwnerReads) {
  Exec("create table Cases (ID int)");
  Exec("insert into Cases values(7)");
  const TTemporaryFolder target;
  const std::string file = target / "zanrole.db";
  Database().BackupTo(file);
  EXPECT_EQ(std::filesystem::status(file).permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
  EXPECT_THROW(Database().BackupTo(file), EDatabaseError);
  zanhost::TSqliteDatabase copy(target.Path().string(), TOpenMode::MustExist);
  const auto query = copy.GetQuery();
  query->SQL().SetText("select ID from Cases");
  query->Open();
  EXPECT_EQ(query->Fields(0).AsInteger(), 7);
}

TEST_F(SqliteDatabase, TheTraceTellsWhatRan) {
  const std::string file = FFolder / "trace.jsonl";
  {
    zanhost::TTrace trace(file);
    Database().SetTrace(&trace);
    Exec("create table Cases (ID int, Name text)");
    Exec("begin\r\ninsert into Cases values(1, N'a');\r\ninsert into Cases values(2, 'b');\r\nend;");
    Cell("select IsNull(Name, '') from Cases");
    FaultOf("insert into Nowhere values(1)");
    Database().SetTrace(nullptr);
    Cell("select 1");
  }
  std::ifstream stream(file);
  std::vector<boost::json::value> lines;
  for (std::string line; std::getline(stream, line);) lines.push_back(boost::json::parse(line));
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_FALSE(lines[0].as_object().contains("sent"));
  EXPECT_EQ(lines[1].at("rows"), 2);
  EXPECT_EQ(lines[1].at("sent"),
            "\r\ninsert into Cases values(1, 'a');\n\r\ninsert into Cases values(2, 'b')");
  EXPECT_EQ(lines[2].at("rows"), 2);
  EXPECT_EQ(lines[2].at("sent"), "select ifnull(Name, '') from Cases");
  EXPECT_EQ(lines[3].at("error"), "no such table: Nowhere");
}

}  // namespace zantest
