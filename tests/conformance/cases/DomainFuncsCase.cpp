#include "Domain/U_DomainFuncsImp.h"
#include "tests/conformance/Conformance.h"

// The query service of the domains on a small tree:
//
//   1 HQ ── 2 N ── 3 BJ
//      └── 4 S
//
// The operator is user 12: domain 2 is his range, 4 owns him, 3 was made by him.

namespace zantest {

using namespace zanrole;
using TImpl = TDomainFuncImpl;

namespace {

constexpr int kUser = 0;
constexpr int kRole = 1;
constexpr int kManager = 2;
constexpr int kCreator = 3;

class TDomainWorld {
 public:
  explicit TDomainWorld(zanhost::TDatabase& database) : FQuery(database.GetQuery()) {
    Domain(1, -1, "HQ", "\\总部", "\\1\\", {1});
    Domain(2, 1, "N", "\\总部\\华北", "\\1\\2\\", {1, 2});
    Domain(3, 2, "BJ", "\\总部\\华北\\北京", "\\1\\2\\3\\", {1, 2, 3});
    Domain(4, 1, "S", "\\总部\\华南", "\\1\\4\\", {1, 4});

    Account(12, "operator", kUser);
    Member(2, 12, kUser, 0);
    Member(4, 12, kUser, 1);
    Member(3, 12, kCreator, 1);

    Account(21, "li", kUser);
    Member(2, 21, kUser, 1);
    Account(22, "wang", kUser);
    Member(3, 22, kUser, 1);
    Account(23, "zhao", kUser);
    Member(4, 23, kUser, 1);
    Account(24, "disabled", kUser, /*isAdministrator*/ 0, /*unUsed*/ 1);
    Member(2, 24, kUser, 1);
    Account(25, "manager", kUser, /*isAdministrator*/ 2);
    Member(2, 25, kManager, 1);
    Member(3, 25, kManager, 0);
    Account(26, "guest", kUser);
    Member(2, 26, kUser, 0);

    Account(31, "role of N", kRole);
    Member(2, 31, kRole, 1);
    Account(32, "role of BJ", kRole);
    Member(3, 32, kRole, 1);
    Account(33, "shared role", kRole);
    Member(-100, 33, kRole, 1);
    Account(34, "role of no domain", kRole);
    Account(35, "disabled role", kRole, /*isAdministrator*/ 0, /*unUsed*/ 1);
    Member(2, 35, kRole, 1);
  }

  void SetLimit(int domain, int limit) {
    Run("update STDomains set UserLimit = " + std::to_string(limit) +
        " where ID = " + std::to_string(domain));
  }

 private:
  void Run(const std::string& statement) { ExecStatement(*FQuery, statement); }

  void Domain(int id, int parent, const char* code, const char* fullName, const char* fullCode,
              std::initializer_list<int> ancestors) {
    const std::string key = std::to_string(id);
    Run("insert into STDomains(ID, ParentID, Code, Name, FullName, FullCode, UserLimit) values(" + key +
        ", " + std::to_string(parent) + ", " + QuotedStr(code) + ", " + QuotedStr(code) + ", " +
        QuotedStr(fullName) + ", " + QuotedStr(fullCode) + ", 0)");
    for (const int ancestor : ancestors)
      Run("insert into STDomainInherits(AncestorID, DescendantID) values(" + std::to_string(ancestor) + ", " +
          key + ")");
  }

  void Account(int oid, const char* name, int uGroup, int isAdministrator = 0, int unUsed = 0) {
    Run("insert into STUsers(OID, UserID, UserName, uGroup, IsAdministrator, UnUsed) values(" +
        std::to_string(oid) + ", " + QuotedStr(name) + ", " + QuotedStr(name) + ", " +
        std::to_string(uGroup) + ", " + std::to_string(isAdministrator) + ", " + std::to_string(unUsed) +
        ")");
  }

  void Member(int domain, int oid, int memberType, int isOwned) {
    Run("insert into STDomainMembers(DomainID, UserOID, MemberType, IsOwned) values(" +
        std::to_string(domain) + ", " + std::to_string(oid) + ", " + std::to_string(memberType) + ", " +
        std::to_string(isOwned) + ")");
  }

  std::unique_ptr<TZANQuery> FQuery;
};

}  // namespace

TEST_P(Conformance, DomainFuncs_ListTheDomainsOfTheOperator) {
  Engine().InstallSchema();
  const TDomainWorld world(Database());
  EXPECT_EQ(TImpl::GetAuthDomainIDs(), "2");
  EXPECT_EQ(TImpl::GetAuthDomainIDss(), "2,3");
  EXPECT_EQ(TImpl::GetAuthDomainCodes(), "N");
  EXPECT_EQ(TImpl::GetAuthDomainCodess(), "BJ,N");
  EXPECT_EQ(TImpl::GetOwnDomainIDs(), "4");
  EXPECT_EQ(TImpl::GetOwnDomainIDss(), "4");
  EXPECT_EQ(TImpl::GetOwnDomainCodes(), "S");
  EXPECT_EQ(TImpl::GetOwnDomainCodess(), "S");
  EXPECT_EQ(TImpl::GetCreatedDomainIDs(), "3");
  EXPECT_EQ(TImpl::GetCreatedDomainCodes(), "BJ");
}

TEST_P(Conformance, DomainFuncs_ListOrdinaryUsersInUseThatTheDomainsOwn) {
  Engine().InstallSchema();
  const TDomainWorld world(Database());
  EXPECT_EQ(TImpl::GetAuthDomainOIDs(), "21");
  EXPECT_EQ(TImpl::GetAuthDomainOIDss(), "21,22");
  EXPECT_EQ(TImpl::GetAuthDomainUserIDs(), "li");
  EXPECT_EQ(TImpl::GetAuthDomainUserIDss(), "li,wang");
  EXPECT_EQ(TImpl::GetOwnDomainOIDs(), "12,23");
  EXPECT_EQ(TImpl::GetOwnDomainOIDss(), "12,23");
  EXPECT_EQ(TImpl::GetOwnDomainUserIDs(), "operator,zhao");
  EXPECT_EQ(TImpl::GetOwnDomainUserIDss(), "operator,zhao");
}

TEST_P(Conformance, DomainFuncs_ListTheUsersOfTheCurrentDomainAndOfThoseBelow) {
  Engine().InstallSchema();
  const TDomainWorld world(Database());
  EXPECT_EQ(TImpl::GetCurDomainOIDss(), "");
  TImpl::SetCurrentDomainID(2);
  EXPECT_EQ(TImpl::GetCurDomainOIDs(), "21");
  EXPECT_EQ(TImpl::GetCurDomainOIDss(), "21,22");
  EXPECT_EQ(TImpl::GetCurDomainUserIDs(), "li");
  EXPECT_EQ(TImpl::GetCurDomainUserIDss(), "li,wang");
  TImpl::SetCurrentDomainID(1);
  EXPECT_EQ(TImpl::GetCurDomainOIDs(), "");
  EXPECT_EQ(TImpl::GetCurDomainOIDss(), "12,21,22,23");
}

TEST_P(Conformance, DomainFuncs_ListRolesAndOfferThoseOfNoDomainToTheSuperUserOnly) {
  Engine().InstallSchema();
  const TDomainWorld world(Database());
  EXPECT_EQ(TImpl::GetAuthDomainRoleOIDs(), "31");
  EXPECT_EQ(TImpl::GetAuthDomainRoleOIDss(), "31,32");
  EXPECT_EQ(TImpl::GetAuthDomainRolesEx(), "31,33");
  Host().SystemInfo().IsSuperUser = true;
  EXPECT_EQ(TImpl::GetAuthDomainRolesEx(), "31,33,34");
}

TEST_P(Conformance, DomainFuncs_TellOfTheCurrentDomain) {
  Engine().InstallSchema();
  const TDomainWorld world(Database());
  EXPECT_EQ(TImpl::GetCurDomainCode(), "");
  TImpl::SetCurrentDomainID(3);
  EXPECT_EQ(TImpl::GetCurDomainCode(), "BJ");
  EXPECT_EQ(TImpl::GetCurDomainName(), "BJ");
  EXPECT_EQ(TImpl::GetCurDomainNodeCode(), "\\1\\2\\3\\");
  EXPECT_EQ(TImpl::GetCurDomainFullName(), "\\总部\\华北\\北京");
}

TEST_P(Conformance, DomainFuncs_LetTheOperatorIntoHisRangeAndBelowItAndNowhereElse) {
  Engine().InstallSchema();
  const TDomainWorld world(Database());
  EXPECT_TRUE(TImpl::CheckDomainAuthById(2));
  EXPECT_TRUE(TImpl::CheckDomainAuthById(3));
  EXPECT_FALSE(TImpl::CheckDomainAuthById(1));
  EXPECT_FALSE(TImpl::CheckDomainAuthById(4));
  EXPECT_TRUE(TImpl::CheckDomainAuthByCode("BJ"));
  EXPECT_FALSE(TImpl::CheckDomainAuthByCode("bj"));
  EXPECT_FALSE(TImpl::CheckDomainAuthByCode("S"));
  EXPECT_TRUE(TImpl::CheckDomainAuthByNodeCode("\\1\\2\\3\\"));
  EXPECT_FALSE(TImpl::CheckDomainAuthByNodeCode("\\1\\"));
  EXPECT_TRUE(TImpl::CheckDomainAuthByName("N"));
}

TEST_P(Conformance, DomainFuncs_ATextWithAQuoteBreaksTheStatementOfAnAccessTest) {
  Engine().InstallSchema();
  const TDomainWorld world(Database());
  EXPECT_THROW(TImpl::CheckDomainAuthByCode("B'J"), EDatabaseError);
}

TEST_P(Conformance, DomainFuncs_GeneralQueriesTakeFieldScopeAndLowerDomains) {
  Engine().InstallSchema();
  const TDomainWorld world(Database());
  EXPECT_EQ(TImpl::GetDomains("Code", "Own,Auth", false), "N,S");
  EXPECT_EQ(TImpl::GetDomains("Code", "域范围", true), "BJ,N");
  EXPECT_EQ(TImpl::GetDomains("", "created auth own", true), "2,3,4");
  EXPECT_EQ(TImpl::GetDomains("Name", "", false), "");
  EXPECT_EQ(TImpl::GetDomainUsers("", "Auth", false), "12,21,26");
  EXPECT_EQ(TImpl::GetDomainUsers("UserID", "Auth", true), "guest,li,operator,wang");
  EXPECT_EQ(TImpl::GetDomainRoles("UserName", "Auth", true), "role of BJ,role of N");
  EXPECT_EQ(TImpl::GetDomainManagers("", "Auth", false), "25");
  EXPECT_EQ(TImpl::GetDomainManagers("", "Created", false), "");
  EXPECT_EQ(TImpl::GetDomainInfo("FullName", "ID = 4"), "\\总部\\华南");
  EXPECT_THROW(TImpl::GetDomainUsers("(", "Auth", false), EZanError);
}

TEST_P(Conformance, DomainFuncs_TheQuotasOfADomainAndOfAllAboveItHold) {
  Engine().InstallSchema();
  TDomainWorld world(Database());
  std::string overQuota;
  // Of domain 2: 21, 24, 25 in 2 itself, 22 in 3.
  world.SetLimit(2, 5);
  EXPECT_TRUE(CheckUserLimit(3, 1, overQuota));
  EXPECT_FALSE(CheckUserLimit(3, 2, overQuota));
  EXPECT_EQ(overQuota, "\\总部\\华北");
  world.SetLimit(3, 1);
  EXPECT_FALSE(CheckUserLimit(3, 1, overQuota));
  EXPECT_EQ(overQuota, "\\总部\\华北\\北京");
}

TEST_P(Conformance, DomainFuncs_TellWhatTheOperatorIs) {
  Engine().InstallSchema();
  const TDomainWorld world(Database());
  EXPECT_EQ(TImpl::GetCurUserType(), 0);
  EXPECT_FALSE(CheckOperatorIsAdmin());
  EXPECT_FALSE(CheckOperatorHasEmpowermentRight());
  Exec("update STUsers set EmpowermentRight = 1 where OID = 21");
  Host().SystemInfo().LoginUserOID = 21;
  EXPECT_TRUE(CheckOperatorHasEmpowermentRight());
  Host().SystemInfo().LoginUserOID = 25;
  EXPECT_EQ(TImpl::GetCurUserType(), 2);
  EXPECT_TRUE(CheckOperatorIsAdmin());
}

TEST_P(Conformance, DomainFuncs_NewUsersTakeTheNextIdentityAndAreFoundAgain) {
  Engine().InstallSchema();
  EXPECT_EQ(GetNewUserOID(), 1);
  EXPECT_EQ(GetNewUserOID(), 2);
  EXPECT_EQ(CreateNewUser("o'neil\\", "𠮷野家", "a;b", 0, 2, 1, 0), 3);
  EXPECT_EQ(
      Rows("select UserID, UserName, UserDesc, uGroup, IsAdministrator, UnUsed, EmpowermentRight, Creator, "
           "CreatorName from STUsers where OID = 3"),
      (std::vector<TTextRow>{{"o'neil\\", "𠮷野家", "a;b", "0", "2", "1", "0", "12", "操作员"}}));
  EXPECT_EQ(CreateNewUser("", "a role without a login", "", 1, 0, 0, 0), 4);
  EXPECT_EQ(Cell("select count(*) from STUsers where CreateTime is not null"), "4");
}

}  // namespace zantest
