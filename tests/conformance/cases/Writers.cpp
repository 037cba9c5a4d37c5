#include <chrono>
#include <thread>

#include "tests/conformance/Conformance.h"

namespace zantest {

namespace {

/// Holds the write lock of another session for a while: a batch whose first statement writes and whose last
/// takes long.
void WriteFor(zanhost::TDatabase& session, std::chrono::milliseconds time) {
  const auto start = std::chrono::steady_clock::now();
  const auto query = session.GetQuery();
  while (std::chrono::steady_clock::now() - start < time) {
    query->SQL().SetText("update Cases set Name = 'theirs' where ID = 1");
    query->ExecSQL();
  }
}

}  // namespace

TEST_P(Conformance, Writers_OfTwoSessionsTakeTurns) {
  MakeCasesTable();
  Exec("insert into Cases(ID, Name) values(1, '')");
  const auto other = Engine().OpenSession();
  std::jthread writer([&] { WriteFor(*other, std::chrono::milliseconds(300)); });
  int written = 0;
  const auto start = std::chrono::steady_clock::now();
  while (std::chrono::steady_clock::now() - start < std::chrono::milliseconds(300)) {
    zanrole::TStringList statements;
    const std::string id = std::to_string(100 + written++);
    statements.Add("insert into Cases(ID) values(" + id + ");");
    statements.Add("update Cases set Name = 'mine' where ID = " + id + ";");
    EXPECT_NO_THROW(zanrole::RunBatch(*Query(), statements));
  }
  writer.join();
  EXPECT_EQ(Cell("select count(*) from Cases where Name = 'mine'"), std::to_string(written));
}

TEST_P(Conformance, Writers_ABusyOneWaitsAndThenSaysSo) {
  MakeCasesTable();
  const auto other = Engine().OpenSession();
  Engine().WaitAtMostMilliseconds(*other, 100);
  const auto lock = Query();
  lock->SQL().SetText(Database().Dialect() == zanrole::TDialect::SqlServer ? "begin immediate"
                                                                           : "start transaction");
  lock->ExecSQL();
  Exec("insert into Cases(ID) values(1)");
  const auto query = other->GetQuery();
  for (const std::string text :
       {"insert into Cases(ID) values(1)", "begin insert into Cases(ID) values(1); end;"}) {
    query->SQL().SetText(text);
    const auto start = std::chrono::steady_clock::now();
    try {
      query->ExecSQL();
      ADD_FAILURE() << "wrote beside another writer";
    } catch (const zanrole::EDatabaseError& error) {
      EXPECT_NE(error.Message().find("busy"), std::string::npos) << error.Message();
    }
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(95));
  }
  query->SQL().SetText("select count(*) from Cases");
  EXPECT_NO_THROW(query->Open()) << "readers do not wait";
  EXPECT_EQ(query->Fields(0).AsInteger(), 0);
  Exec("commit");
  query->SQL().SetText("insert into Cases(ID) values(2)");
  EXPECT_NO_THROW(query->ExecSQL());
}

TEST_P(Conformance, Writers_AReaderSeesWholeBatchesOnly) {
  MakeCasesTable();
  const auto other = Engine().OpenSession();
  std::atomic<bool> done = false;
  std::jthread writer([&] {
    for (int i = 1; i <= 40; ++i) {
      const auto query = other->GetQuery();
      query->SQL().SetText("begin\r\ninsert into Cases(ID) values(" + std::to_string(2 * i) +
                           ");\r\ninsert into Cases(ID) values(" + std::to_string(2 * i + 1) + ");\r\nend;");
      query->ExecSQL();
    }
    done = true;
  });
  while (!done) EXPECT_EQ(std::stoi(Cell("select count(*) from Cases")) % 2, 0);
  writer.join();
  EXPECT_EQ(Cell("select count(*) from Cases"), "80");
}

}  // namespace zantest
