#include <thread>

#include "Domain/U_DomainFuncsImp.h"
#include "tests/conformance/Conformance.h"

namespace zantest {

namespace {
constexpr char kGreatestUser[] = "Select Max(OID) as MID From STUsers";
constexpr char kGreatestObject[] = "Select Max(ObjectID) as MOID From ObjectRegister";
}  // namespace

TEST_P(Conformance, Identities_AnEmptyTableBeginsWithOne) {
  Engine().InstallSchema();
  EXPECT_EQ(zanrole::NextIdentity(*Query(), kGreatestUser), 1);
  EXPECT_EQ(zanrole::NextIdentity(*Database().GetSysQuery(), kGreatestObject), 1);
}

TEST_P(Conformance, Identities_TheNextIsTheGreatestAndOne) {
  Engine().InstallSchema();
  Exec("insert into STUsers(OID, UserID) values(3, 'c')");
  Exec("insert into STUsers(OID, UserID) values(40, 'd')");
  EXPECT_EQ(zanrole::NextIdentity(*Query(), kGreatestUser), 41);
}

TEST_P(Conformance, Identities_TheKeyRejectsTheSecondWriterOfANumber) {
  Engine().InstallSchema();
  const auto other = Engine().OpenSession();
  const int mine = zanrole::NextIdentity(*Query(), kGreatestUser);
  const int theirs = zanrole::NextIdentity(*other->GetQuery(), kGreatestUser);
  EXPECT_EQ(mine, theirs);
  Exec("insert into STUsers(OID, UserID) values(" + std::to_string(mine) + ", 'mine')");
  const auto query = other->GetQuery();
  query->SQL().SetText("insert into STUsers(OID, UserID) values(" + std::to_string(theirs) + ", 'theirs')");
  EXPECT_THROW(query->ExecSQL(), zanrole::EDatabaseError);
  EXPECT_EQ(Rows("select UserID from STUsers"), (std::vector<TTextRow>{{"mine"}}));
}

TEST_P(Conformance, Identities_ObjectsMayShareANumber) {
  Engine().InstallSchema();
  const auto query = Database().GetSysQuery();
  for (const std::string name : {"a", "b"}) {
    query->SQL().SetText("Insert Into ObjectRegister (ObjectID, TypeID, Object, OwnerID) Values (5, 1, '" +
                         name + "', 0)");
    EXPECT_NO_THROW(query->ExecSQL());
  }
}

TEST_P(Conformance, Identities_ANewUserGetsTheNextOne) {
  Engine().InstallSchema();
  Host().SystemInfo().LoginUserOID = 77;
  Host().SystemInfo().LoginUserName = "O'Neil";
  EXPECT_EQ(zanrole::GetNewUserOID(), 1);
  EXPECT_EQ(zanrole::GetNewUserOID(), 2);
  EXPECT_EQ(Rows("select OID, Creator, CreatorName from STUsers order by OID"),
            (std::vector<TTextRow>{{"1", "77", "O'Neil"}, {"2", "77", "O'Neil"}}));
  EXPECT_EQ(Cell("select count(*) from STUsers where CreateTime is not null"), "2");
}

TEST_P(Conformance, Identities_AnAccountIsMadeAndFoundAgain) {
  Engine().InstallSchema();
  EXPECT_EQ(zanrole::CreateNewUser("it's", "名\\字", "", 0, 0, 0, 1), 1);
  EXPECT_EQ(zanrole::CreateNewUser("second", "二", "d", 1, 2, 1, 0), 2);
  EXPECT_EQ(
      Rows("select UserID, UserName, uGroup, IsAdministrator, UnUsed, EmpowermentRight from STUsers order by "
           "OID"),
      (std::vector<TTextRow>{{"it's", "名\\字", "0", "0", "0", "1"}, {"second", "二", "1", "2", "1", "0"}}));
}

TEST_P(Conformance, Identities_AnAccountWithoutLoginIsFoundAgain) {
  Engine().InstallSchema();
  EXPECT_EQ(zanrole::CreateNewUser("", "nameless", "", 0, 0, 0, 0), 1);
}

}  // namespace zantest
