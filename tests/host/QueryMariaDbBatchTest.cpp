#include <gtest/gtest.h>

#include <boost/json.hpp>
#include <fstream>

#include "Frame/Host/Classes.h"
#include "host/query/DataUrl.h"
#include "host/query/Trace.h"
#include "tests/host/Rows.h"
#include "tests/support/MariaDbServer.h"
#include "tests/support/TemporaryFolder.h"

namespace zantest {

namespace {

class MariaDbBatch : public testing::Test {
 protected:
  void SetUp() override {
    const std::string whyNot = WhyNoMariaDbServer();
    if (!whyNot.empty()) GTEST_SKIP() << whyNot;
    FDatabase = Open();
    Execute(*FDatabase, "create table T (ID int primary key, Name longtext)");
  }
  void TearDown() override {
    if (FDatabase == nullptr) return;
    Execute(*FDatabase, "drop database batch_system");
    Execute(*FDatabase, "drop database batch_data");
  }

  static std::unique_ptr<zanhost::TDatabase> Open() {
    return zanhost::OpenDatabase(TMariaDbServer::Instance().Url("batch_data", "batch_system"),
                                 zanhost::TOpenMode::CreateIfMissing);
  }

  /// A batch of inserts as the module sends it.
  static std::string BatchOf(int from, int count, const std::string& name = "n") {
    zanrole::TStringList lines;
    for (int id = from; id < from + count; ++id)
      lines.Add("insert into T(ID, Name) values(" + std::to_string(id) + ", '" + name + "');");
    return "call MySql_execute_MultiSql(" + zanrole::QuotedStr(lines.Text()) + ")";
  }

  /// What the trace says of the statements.
  std::vector<boost::json::object> Traced(const std::vector<std::string>& statements) {
    const TTemporaryFolder folder;
    const std::string file = folder / "trace.jsonl";
    zanhost::TTrace trace(file);
    FDatabase->SetTrace(&trace);
    for (const std::string& statement : statements) Execute(*FDatabase, statement);
    FDatabase->SetTrace(nullptr);
    std::ifstream stream(file);
    std::vector<boost::json::object> lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(boost::json::parse(line).as_object());
    return lines;
  }

  std::unique_ptr<zanhost::TDatabase> FDatabase;
};

}  // namespace

TEST_F(MariaDbBatch, RoundTripsDoNotGrowWithTheNumberOfStatements) {
  const auto lines = Traced({BatchOf(1, 2), BatchOf(1000, 100), BatchOf(2000, 5000)});
  ASSERT_EQ(lines.size(), 3U);
  for (const boost::json::object& line : lines) EXPECT_EQ(line.at("trips").as_int64(), 1);
  EXPECT_EQ(Number(*FDatabase, "select count(*) from T"), 5102);
}

TEST_F(MariaDbBatch, RoundTripsOfALongTextAreOneMore) {
  const auto lines = Traced({BatchOf(1, 20000, "a longer name, so that the text is long")});
  EXPECT_EQ(lines.at(0).at("trips").as_int64(), 2);
  EXPECT_EQ(Number(*FDatabase, "select count(*) from T"), 20000);
}

TEST_F(MariaDbBatch, TheTraceTellsTheStatementsAsTheyWereSent) {
  const auto lines = Traced({"call MySql_execute_MultiSql('update T set Name = Name + ''x'';')"});
  EXPECT_EQ(lines.at(0).at("sent"), "start transaction;\nupdate T set Name = Name || 'x';\ncommit");
}

TEST_F(MariaDbBatch, LongerThanAPacketIsStillWholeOrNothing) {
  const std::string limit = Text(*FDatabase, "select @@global.max_allowed_packet");
  Execute(*FDatabase, "set global max_allowed_packet = 1048576");
  FDatabase = Open();
  const std::string name(30'000, 'x');
  Execute(*FDatabase, BatchOf(1, 100, name));
  EXPECT_EQ(Number(*FDatabase, "select count(*) from T"), 100);
  std::string failing = BatchOf(200, 100, name);
  failing.replace(failing.rfind("(299,"), 5, "(1,");
  EXPECT_THROW(Execute(*FDatabase, failing), zanrole::EDatabaseError);
  EXPECT_EQ(Number(*FDatabase, "select count(*) from T"), 100);
  Execute(*FDatabase, "set global max_allowed_packet = " + limit);
}

TEST_F(MariaDbBatch, AFailureLeavesNoTransactionBehind) {
  Execute(*FDatabase, BatchOf(1, 3));
  EXPECT_THROW(Execute(*FDatabase, BatchOf(3, 3)), zanrole::EDatabaseError);
  EXPECT_THROW(Execute(*FDatabase, "call MySql_execute_MultiSql('delete from T; delete form T;')"),
               zanrole::EDatabaseError);
  EXPECT_EQ(Text(*FDatabase, "select @@in_transaction"), "0");
  EXPECT_EQ(Number(*Open(), "select count(*) from T"), 3);
}

TEST_F(MariaDbBatch, RecurringShapesKeepTheirValuesApart) {
  zanrole::TStringList lines;
  for (int id = 1; id <= 300; ++id) {
    lines.Add("insert into T(ID, Name) values(" + std::to_string(id) + ", 'it''s;" + std::to_string(id) +
              "');");
    if (id % 3 == 0) lines.Add("update T set Name = Name + '!' where ID = " + std::to_string(id) + ";");
    if (id % 7 == 0) lines.Add("delete from T where ID = " + std::to_string(id) + " ;");
  }
  Execute(*FDatabase, "call MySql_execute_MultiSql(" + zanrole::QuotedStr(lines.Text()) + ")");
  EXPECT_EQ(Number(*FDatabase, "select count(*) from T"), 300 - 300 / 7);
  EXPECT_EQ(Text(*FDatabase, "select Name from T where ID = 299"), "it's;299");
  EXPECT_EQ(Text(*FDatabase, "select Name from T where ID = 300"), "it's;300!");
}

}  // namespace zantest
