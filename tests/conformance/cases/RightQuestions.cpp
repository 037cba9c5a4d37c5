#include <random>

#include "Frame/Package.h"
#include "Role/TolPermission.h"
#include "tests/conformance/Conformance.h"

// Why a right is as it is, and who has it: the answers agree with TTolPermission on any rows.

namespace zantest {

using namespace zanrole;

namespace {

constexpr int kFirstRole = 3;
constexpr int kRoles = 6;  ///< the last has no row in STUsers
constexpr int kFirstUser = 10;
constexpr int kUsers = 12;
constexpr int kSuperUser = 15;
constexpr int kDisabledUser = 16;

const std::vector<int> kObjects = {100, 356};
const std::vector<std::string> kOprates = {"打印", "打印 ", "Print", "print"};
const std::vector<std::string> kValues = {"0", "1", "1", "1", "7", "-1", "null"};

/// Tables filled by chance, with what is odd among it: doubles of a pair and of a membership, values that are
/// null, below zero or above one, roles and holders without a row in STUsers, members of themselves, of a
/// user, and roles with roles.
class TAnyRights {
 public:
  TAnyRights(TEngine& engine, zanhost::TDatabase& database) : FDatabase(database) {
    // The delivered table has a key that keeps doubles out; that of a platform may have none.
    Run("drop table STPermission");
    Run("create table STPermission (UserID int not null, ObjectID int not null, Oprate " +
        engine.TextType(200) + " not null, Permission int)");
    for (int role = kFirstRole; role < kFirstRole + kRoles - 1; ++role) AddHolder(role, 1, 0, 0);
    for (int user = kFirstUser; user < kFirstUser + kUsers; ++user)
      AddHolder(user, 0, user == kDisabledUser ? 1 : 0, user == kSuperUser ? 1 : 0);
  }

  void Refill(unsigned seed) {
    FRandom.seed(seed);
    Run("delete from STUserGroup");
    Run("delete from STPermission");
    for (int i = 0; i < 25; ++i) AddMembership();
    for (int i = 0; i < 100; ++i) AddRight();
  }

 private:
  void AddHolder(int oid, int group, int unUsed, int administrator) {
    const std::string number = std::to_string(oid);
    Run("insert into STUsers(OID, UserID, UserName, uGroup, UnUsed, IsAdministrator) values(" + number +
        ", 'login" + number + "', 'name" + number + "', " + std::to_string(group) + ", " +
        std::to_string(unUsed) + ", " + std::to_string(administrator) + ")");
  }
  void AddMembership() {
    const std::string group = Odd() ? AnyHolder() : AnyRole();
    Run("insert into STUserGroup(UserID, GroupID) values(" + AnyHolder() + ", " + group + ")");
  }
  void AddRight() {
    Run("insert into STPermission(UserID, ObjectID, Oprate, Permission) values(" + AnyHolder() + ", " +
        std::to_string(AnyOf(kObjects)) + ", " + QuotedStr(AnyOf(kOprates)) + ", " + AnyOf(kValues) + ")");
  }

  bool Odd() { return FRandom() % 8 == 0; }
  template <typename T>
  const T& AnyOf(const std::vector<T>& values) {
    return values[FRandom() % values.size()];
  }
  std::string AnyRole() { return std::to_string(kFirstRole + FRandom() % kRoles); }
  std::string AnyUser() { return std::to_string(kFirstUser + FRandom() % (kUsers + 1)); }
  std::string AnyHolder() { return FRandom() % 2 == 0 ? AnyRole() : AnyUser(); }
  void Run(const std::string& text) { ExecStatement(*FDatabase.GetQuery(), text); }

  zanhost::TDatabase& FDatabase;
  std::mt19937 FRandom;
};

/// The users of all pages of this size.
std::vector<TRightHolder> HoldersInPages(int objectID, const std::string& oprate, int limit) {
  std::vector<TRightHolder> users;
  for (bool hasMore = true; hasMore;) {
    const int afterOID = users.empty() ? 0 : users.back().OID;
    const TRightHolders page = ZanroleEntries()->RightHolders(objectID, oprate, afterOID, limit);
    const auto size = static_cast<int>(page.Users.size());
    EXPECT_TRUE(page.HasMore ? size == limit : size <= limit);
    hasMore = page.HasMore && size > 0;
    users.insert(users.end(), page.Users.begin(), page.Users.end());
  }
  return users;
}

/// "OID right" for each user.
std::vector<std::string> RightsOf(const std::vector<TRightHolder>& users) {
  std::vector<std::string> rights;
  for (const TRightHolder& user : users) rights.push_back(std::to_string(user.OID) + " " + user.Right);
  return rights;
}

/// Rows decide what they say, none does where nothing is set or the user is a super user.
void CheckRowsThatDecide(const TRightReason& reason) {
  bool decided = false;
  for (const TRightRow& row : reason.Rows) {
    if (!row.Decides) continue;
    decided = true;
    EXPECT_EQ(row.Right.empty() ? "禁止" : row.Right, reason.Right);
  }
  EXPECT_EQ(decided, !reason.IsSuperUser && !reason.Right.empty());
}

/// Each user logs in and is told the reason of his right. Gives "OID right" for each one who has some.
std::vector<std::string> CheckEveryReason(TSystemInfo& login, int objectID, const std::string& oprate) {
  std::vector<std::string> rights;
  for (int user = kFirstUser; user < kFirstUser + kUsers; ++user) {
    login.LoginUserOID = user;
    login.IsSuperUser = user == kSuperUser;
    TTolPermission permission;
    permission.SetUserID(user);
    const std::string right = permission.GetPermission(objectID, oprate);
    const TRightReason reason = ZanroleEntries()->ExplainRight(objectID, oprate);
    EXPECT_EQ(reason.Right, right) << "user " << user;
    CheckRowsThatDecide(reason);
    if (!right.empty()) rights.push_back(std::to_string(user) + " " + right);
  }
  return rights;
}

}  // namespace

TEST_P(Conformance, RightQuestions_AgreeWithGetPermissionOnAnyRows) {
  Engine().InstallSchema();
  TAnyRights tables(Engine(), Database());
  for (unsigned seed = 1; seed <= 5; ++seed) {
    tables.Refill(seed);
    for (const int object : kObjects) {
      for (const std::string& oprate : kOprates) {
        SCOPED_TRACE(testing::Message() << "seed " << seed << ", " << object << " " << oprate);
        const std::vector<std::string> expected = CheckEveryReason(Host().SystemInfo(), object, oprate);
        EXPECT_EQ(RightsOf(HoldersInPages(object, oprate, 3)), expected);
        EXPECT_EQ(RightsOf(HoldersInPages(object, oprate, 1000)), expected);
      }
    }
  }
}

TEST_P(Conformance, RightQuestions_WithoutARowSuperUsersAloneHoldARight) {
  Engine().InstallSchema();
  Exec(
      "insert into STUsers(OID, UserID, UserName, uGroup, IsAdministrator) values(7, 'root', '管理员', 0, "
      "1)");
  Exec("insert into STUsers(OID, UserID, UserName, uGroup, IsAdministrator) values(8, 'li', '李', 0, 2)");
  Exec("insert into STUsers(OID, UserName, uGroup, IsAdministrator) values(9, '角色', 1, 1)");
  const TRightHolders holders = ZanroleEntries()->RightHolders(100, "打印", 0, 10);
  EXPECT_EQ(RightsOf(holders.Users), std::vector<std::string>{"7 允许"});
  EXPECT_TRUE(holders.Users[0].IsSuperUser);
  EXPECT_TRUE(holders.Rows.empty());
}

TEST_P(Conformance, RightQuestions_AnAccountOutOfUseKeepsItsRight) {
  Engine().InstallSchema();
  Exec("insert into STUsers(OID, UserID, UserName, uGroup, UnUsed) values(8, 'li', '李', 0, 1)");
  Exec("insert into STPermission(UserID, ObjectID, Oprate, Permission) values(8, 100, '打印', 1)");
  const TRightHolders holders = ZanroleEntries()->RightHolders(100, "打印", 0, 10);
  EXPECT_EQ(RightsOf(holders.Users), std::vector<std::string>{"8 允许"});
  EXPECT_TRUE(holders.Users[0].IsDisabled);
}

TEST_P(Conformance, RightQuestions_RowsOfRolesAreToldWithoutMembersToo) {
  Engine().InstallSchema();
  Exec("insert into STUsers(OID, UserName, uGroup) values(3, '会计 ', 1)");
  Exec("insert into STUserGroup(UserID, GroupID) values(12, 4)");
  for (const char* holder : {"3", "4", "5", "12"})
    Exec("insert into STPermission(UserID, ObjectID, Oprate, Permission) values(" + std::string(holder) +
         ", 100, '打印', 1)");
  std::vector<std::string> rows;
  for (const TRightRow& row : ZanroleEntries()->RightHolders(100, "打印", 0, 10).Rows)
    rows.push_back(std::to_string(row.HolderOID) + " " + row.HolderName + (row.IsRole ? " role" : ""));
  EXPECT_EQ(rows, (std::vector<std::string>{"3 会计 role", "4  role"})) << "5 and 12 are nobody any more";
}

TEST_P(Conformance, RightQuestions_AReasonFollowsTheRowsAsTheyStandNow) {
  Engine().InstallSchema();
  EXPECT_EQ(ZanroleEntries()->ExplainRight(100, "打印").Right, "");
  Exec("insert into STPermission(UserID, ObjectID, Oprate, Permission) values(12, 100, '打印', 0)");
  const TRightReason reason = ZanroleEntries()->ExplainRight(100, "打印");
  EXPECT_EQ(reason.Right, "禁止");
  EXPECT_EQ(reason.Sentences, std::vector<std::string>{"用户自己的权限为“禁止”，角色没有禁止。"});
}

}  // namespace zantest
