#include <gmock/gmock.h>

#include "host/platform/Schema.h"
#include "host/query/MariaDb/RestrictedAccount.h"
#include "host/query/RestrictedDatabase.h"
#include "tests/host/MariaDbFixture.h"

// The account of a restricted session on a MariaDB server: its rights, and that no other is taken.

namespace zantest {

using testing::Contains;
using testing::Each;
using testing::HasSubstr;
using testing::Not;

namespace {

class RestrictedAccount : public MariaDb {
 protected:
  void SetUp() override {
    MariaDb::SetUp();
    if (IsSkipped()) return;
    zanhost::InstallSchema(Database());
    FAccount = "host_asker_" + std::to_string(++FMade);
    Execute(Database(), "create user " + FAccount + "@localhost identified by 'its own'");
    for (const std::string& grant : Grants()) Execute(Database(), grant);
  }
  void TearDown() override {
    if (!IsSkipped()) Execute(Database(), "drop user " + FAccount + "@localhost");
    MariaDb::TearDown();
  }

  std::string Account() const { return FAccount + "@localhost"; }
  std::vector<std::string> Grants() { return zanhost::RestrictedAccountGrants(Database(), Account()); }
  std::string RestrictedUrl() const {
    return zanrole::StringReplace(Url(), "root@", FAccount + ":its%20own@");
  }
  std::string Refusal() const {
    return FaultOf([&] { zanhost::OpenRestricted(RestrictedUrl()); });
  }
  std::string DataName() { return Cell(Database(), "select database()"); }

 private:
  static inline int FMade = 0;
  std::string FAccount;
};

}  // namespace

TEST_F(RestrictedAccount, WithThePrintedRightsReadsWhatIsNoPassword) {
  const auto restricted = zanhost::OpenRestricted(RestrictedUrl());
  Execute(Database(), "insert into STUsers(OID, UserID, Password) values(1, 'a', 'geheim')");
  EXPECT_EQ(Cell(*restricted, "select UserID from STUsers"), "a");
  EXPECT_EQ(Cell(*restricted, "select count(*) from STUsers"), "1");
  const auto system = restricted->GetSysQuery();
  system->SQL().SetText("select count(*) from Tree");
  system->Open();
  EXPECT_EQ(system->Fields(0).AsInteger(), 0);
  const std::string fault = FaultOf([&] { Cell(*restricted, "select Password from STUsers"); });
  EXPECT_TRUE(Holds(fault, "does not let the restricted user"));
  EXPECT_TRUE(Holds(FaultOf([&] { Cell(*restricted, "select 1 from STUsers for update"); }),
                    "something else than reading"));
}

TEST_F(RestrictedAccount, RightsNameTheColumnsOfTablesWithPasswords) {
  const std::vector<std::string> grants = Grants();
  EXPECT_THAT(grants, Contains(HasSubstr("grant select on `" + DataName() + "`.`stdomains` to ")));
  EXPECT_THAT(grants, Contains(HasSubstr("grant select (`OID`, `UserID`")));
  EXPECT_THAT(grants, Each(Not(HasSubstr("assword`"))));
  EXPECT_THAT(grants, Each(HasSubstr("grant select")));
}

TEST_F(RestrictedAccount, WithAnyOtherRightIsRefused) {
  const std::string data = DataName();
  Execute(Database(), "create role if not exists host_role");
  for (const std::string& right :
       {"insert on " + data + ".STDomains", "select, delete on " + data + ".STDomains",
        "select (Password) on " + data + ".STUsers", "select on " + data + ".UserH",
        "select on " + data + ".*", std::string("select on *.*"), std::string("file on *.*"),
        std::string("process on *.*"), std::string("select on mysql.global_priv"),
        "execute on function " + data + ".DB_NAME", "update (UserID) on " + data + ".STUsers"}) {
    Execute(Database(), "grant " + right + " to " + Account());
    const std::string refusal = Refusal();
    EXPECT_TRUE(Holds(refusal, "zanhost restricted-account")) << right;
    EXPECT_FALSE(Holds(refusal, "IDENTIFIED")) << refusal;
    Execute(Database(), "revoke " + right + " from " + Account());
    for (const std::string& grant : Grants()) Execute(Database(), grant);
    EXPECT_EQ(Refusal(), "(no fault)") << "the right is taken back: " << right;
  }
}

TEST_F(RestrictedAccount, WithARoleOrARightToHandOnIsRefused) {
  Execute(Database(), "create role if not exists host_role");
  Execute(Database(), "grant host_role to " + Account());
  EXPECT_TRUE(Holds(Refusal(), "may do more than read tables"));
  Execute(Database(), "revoke host_role from " + Account());
  EXPECT_EQ(Refusal(), "(no fault)");
  Execute(Database(), "grant select on " + DataName() + ".STDomains to " + Account() + " with grant option");
  EXPECT_TRUE(Holds(Refusal(), "may do more than read tables"));
}

TEST_F(RestrictedAccount, WithARightOfEverybodyIsRefused) {
  const std::string right = "select on " + DataName() + ".STUsers";
  try {
    Execute(Database(), "grant " + right + " to public");
  } catch (const EDatabaseError&) {
    GTEST_SKIP() << "this server gives no rights to everybody";
  }
  EXPECT_TRUE(Holds(Refusal(), "may hold a password"));
  Execute(Database(), "revoke " + right + " from public");
  EXPECT_EQ(Refusal(), "(no fault)");
}

TEST_F(RestrictedAccount, OfTheProgramItselfIsRefused) {
  const std::string refusal = FaultOf([&] { zanhost::OpenRestricted(Url()); });
  EXPECT_TRUE(Holds(refusal, "The user 'root'"));
  EXPECT_TRUE(Holds(refusal, "may do more than read tables"));
}

}  // namespace zantest
