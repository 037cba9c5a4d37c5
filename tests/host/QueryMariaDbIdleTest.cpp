#include <chrono>
#include <thread>

#include "host/query/MariaDb/MariaDbDatabase.h"
#include "tests/host/MariaDbFixture.h"

// Connections that nobody uses for a while.

namespace zantest {

namespace {

/// From now on the server is asked before each statement whether the connection is still there.
void BelieveNothing(zanhost::TDatabase& database) {
  dynamic_cast<zanhost::TMariaDbDatabase&>(database).SetLimits({.Believed = std::chrono::seconds(0)});
}

int Connections(zanhost::TDatabase& database) {
  return Number(database, "select count(*) from information_schema.processlist where user = 'root'");
}

}  // namespace

TEST_F(MariaDb, AHundredSessionsFitIntoTheDefaultLimitOfAServer) {
  ASSERT_EQ(Cell(Database(), "select @@max_connections"), "151");
  std::vector<std::unique_ptr<zanhost::TDatabase>> sessions;
  for (int i = 0; i < 100; ++i) sessions.push_back(Open());
  for (const auto& session : sessions) EXPECT_EQ(Cell(*session, "select 1"), "1");
}

TEST_F(MariaDb, IdleSessionsGiveTheirConnectionsBack) {
  Execute(Database(), "create table T (ID int primary key)");
  const int before = Connections(Database());
  std::vector<std::unique_ptr<zanhost::TDatabase>> sessions;
  for (int i = 0; i < 200; ++i) {
    sessions.push_back(Open());
    sessions.back()->ReleaseIdle();
  }
  int id = 0;
  for (const auto& session : sessions) {
    const auto insert = session->GetQuery();
    insert->SQL().SetText("insert into T values (:ID)");
    for (int times = 0; times < 2; ++times) {
      insert->ParamByName("ID").AsInteger(++id);
      insert->ExecSQL();
      session->ReleaseIdle();
      session->ReleaseIdle();
    }
  }
  EXPECT_EQ(Cell(Database(), "select count(*) from T"), "400");
  // The server ends what was closed a moment later.
  for (int tries = 0; tries < 100 && Connections(Database()) > before; ++tries)
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  EXPECT_LE(Connections(Database()), before);
}

TEST_F(MariaDb, AConnectionWithAnOpenTransactionIsKept) {
  Execute(Database(), "create table T (ID int primary key)");
  Execute(Database(), "start transaction");
  Execute(Database(), "insert into T values (1)");
  Database().ReleaseIdle();
  EXPECT_EQ(Cell(*Open(), "select count(*) from T"), "0");
  Execute(Database(), "commit");
  EXPECT_EQ(Cell(*Open(), "select count(*) from T"), "1");
}

TEST_F(MariaDb, AConnectionThatEndedWhileIdleIsNotNoticed) {
  BelieveNothing(Database());
  Execute(Database(), "create table T (ID int primary key)");
  const auto insert = Database().GetQuery();
  insert->SQL().SetText("insert into T values (:ID)");
  for (int id = 1; id <= 3; ++id) {
    insert->ParamByName("ID").AsInteger(id);
    EXPECT_EQ(FaultOf([&] { insert->ExecSQL(); }), "(no fault)");
    Execute(*Open(), "kill connection " + Cell(Database(), "select connection_id()"));
  }
  EXPECT_EQ(Cell(Database(), "select count(*) from T"), "3");
}

TEST_F(MariaDb, AConnectionThatEndedInATransactionIsTold) {
  BelieveNothing(Database());
  Execute(Database(), "create table T (ID int primary key)");
  Execute(Database(), "start transaction");
  Execute(Database(), "insert into T values (1)");
  Execute(*Open(), "kill connection " + Cell(Database(), "select connection_id()"));
  EXPECT_TRUE(Holds(FaultOf([&] { Execute(Database(), "insert into T values (2)"); }), "was lost"));
  EXPECT_EQ(Cell(Database(), "select count(*) from T"), "0");
}

TEST_F(MariaDb, ARestartOfTheServerBetweenTwoStatementsIsNotNoticed) {
  BelieveNothing(Database());
  Execute(Database(), "create table T (ID int primary key)");
  TMariaDbServer::Instance().Kill();
  EXPECT_TRUE(Holds(FaultOf([&] { Execute(Database(), "insert into T values (1)"); }), "cannot be reached"));
  TMariaDbServer::Instance().Start();
  Execute(Database(), "insert into T values (1)");
  TMariaDbServer::Instance().Kill();
  TMariaDbServer::Instance().Start();
  Execute(Database(), "insert into T values (2)");
  EXPECT_EQ(Cell(Database(), "select count(*) from T"), "2");
}

}  // namespace zantest
