#include <gmock/gmock.h>

#include <set>
#include <thread>

#include "Domain/U_DomainFuncsImp.h"
#include "host/platform/Numbering.h"
#include "tests/conformance/faults/Operations.h"
#include "tests/support/ClientProcess.h"

// Two clients that want the same number at once.

namespace zantest {

namespace {

using testing::HasSubstr;

constexpr char kNumberTaken[] = "Another client has stored a row with the same key";

std::set<int> Drawn(TClientProcess& client) {
  std::set<int> numbers;
  for (const std::string& line : client.ReadRest()) {
    EXPECT_EQ(line.rfind("draw ", 0), 0u) << line;
    EXPECT_TRUE(numbers.insert(std::stoi(line.substr(5))).second) << line;
  }
  return numbers;
}

}  // namespace

TEST_P(Conformance, TwoClients_OfTwoProcessesThatDrawNoneGetsANumberOfTheOther) {
  const std::string url = Engine().Url();
  if (url.empty()) GTEST_SKIP() << "another process cannot reach the databases of this engine";
  Engine().InstallSchema();
  Exec("insert into UserH(DjLsh) values(500)");
  constexpr int kDraws = 150;
  TClientProcess upper({"draws", url, "User", std::to_string(kDraws)});
  TClientProcess lower({"draws", url, "user", std::to_string(kDraws)});
  ASSERT_EQ(upper.ReadLine(), "ready");
  ASSERT_EQ(lower.ReadLine(), "ready");
  std::set<int> all = Drawn(upper);
  all.merge(Drawn(lower));
  ASSERT_EQ(all.size(), std::size_t{2 * kDraws});
  EXPECT_EQ(*all.begin(), 501) << "the table holds 500";
  EXPECT_EQ(*all.rbegin(), 500 + 2 * kDraws);
  EXPECT_EQ(zanhost::NewDjLsh(Database(), "USER"), 501 + 2 * kDraws) << "User and user are one counter";
}

TEST_P(Conformance, TwoClients_ANumberThatTheOtherTookIsToldInPlainWordsAndTheNextTryGoesWell) {
  Engine().InstallSchema();
  const auto other = Engine().OpenSession();
  TFaultyDatabase mine(Database());
  const TEngineHost host(mine);
  mine.Before("insert into STUsers", [&] {
    zanrole::ExecStatement(*other->GetQuery(), "insert into STUsers(OID, UserName) values(1, 'theirs')");
  });
  if (Database().Dialect() == zanrole::TDialect::SqlServer) {
    EXPECT_EQ(zanrole::GetNewUserOID(), 2) << "the number is taken in the insert itself";
  } else {
    try {
      zanrole::GetNewUserOID();
      ADD_FAILURE() << "both have the number";
    } catch (const zanrole::EDatabaseError& fault) {
      EXPECT_THAT(fault.Message(), HasSubstr(kNumberTaken));
      EXPECT_THAT(fault.Message(), HasSubstr("try again"));
    }
    EXPECT_EQ(zanrole::GetNewUserOID(), 2) << "trying again";
  }
  EXPECT_EQ(Rows("select OID, UserName from STUsers order by OID"),
            (std::vector<TTextRow>{{"1", "theirs"}, {"2", "(null)"}}));
}

TEST_P(Conformance, TwoClients_ADoubleKeyIsToldInPlainWords) {
  MakeCasesTable();
  Exec("insert into Cases(ID) values(1)");
  EXPECT_THAT(FaultOf("insert into Cases(ID) values(1)"), HasSubstr(kNumberTaken));
}

/// While the person waits for the other client, that one takes the identity which the person's insert has
/// looked up; or, where writers take turns from the beginning, the person simply comes after it.
TEST_P(Conformance, TwoClients_ADomainWhoseNumberTheOtherTookIsCreatedAtTheNextTry) {
  Engine().InstallSchema();
  MakeFaultTables(Database());
  const TRecordingServices services;
  const auto other = Engine().OpenSession();
  TFaultWorld world(Database());
  const bool writersTakeTurns = Database().Dialect() == zanrole::TDialect::SqlServer;
  std::jthread commit;
  world.Database.Before("insert into STDomains", [&] {
    zanrole::ExecStatement(*other->GetQuery(), writersTakeTurns ? "begin immediate" : "start transaction");
    zanrole::ExecStatement(*other->GetQuery(),
                           "insert into STDomains(ID, Code, Name) values(4, '04', 'theirs')");
    commit = std::jthread([&] {
      std::this_thread::sleep_for(std::chrono::milliseconds(300));
      zanrole::ExecStatement(*other->GetQuery(), "commit");
    });
  });
  TPerson& person = world.Person();
  const auto create = [&] {
    person.Select("TFormDomains", "DomainTree", "域");
    person.Act("TFormDomains", "ActDomainNew");
    person.Set("TFormDomainEdit", "EditName", "mine");
    person.Set("TFormDomainEdit", "EditCode", "05");
    person.Act("TFormDomainEdit", "BitBtnOk");
  };
  person.Menu("域管理");
  try {
    create();
  } catch (const TPerson::TSawFault&) {
    EXPECT_FALSE(writersTakeTurns);
    EXPECT_THAT(person.Faults(), testing::ElementsAre(HasSubstr(kNumberTaken)));
    create();
  }
  commit.join();
  EXPECT_EQ(Rows("select a.ID, a.Name, b.AncestorID from STDomains a"
                 " left outer join STDomainInherits b on a.ID = b.DescendantID where a.ID > 3 order by a.ID"),
            (std::vector<TTextRow>{{"4", "theirs", "(null)"}, {"5", "mine", "5"}}));
}

}  // namespace zantest
