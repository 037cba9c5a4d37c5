#include "Role/RunPermission.h"
#include "Role/TolPermission.h"
#include "Role/UserPassword.h"
#include "tests/conformance/Conformance.h"

// The object registry, the rights of the logged-in user (12, with role 3) and the storing of passwords.

namespace zantest {

using namespace zanrole;

namespace {

void GiveRole(zanhost::TDatabase& database) {
  const auto query = database.GetQuery();
  ExecStatement(*query, "insert into STUsers(OID, UserName, uGroup) values(3, '仓库 ', 1)");
  ExecStatement(*query, "insert into STUserGroup(UserID, GroupID) values(12, 3)");
}

void GiveRight(zanhost::TDatabase& database, int holder, int object, const char* oprate, int permission) {
  ExecStatement(*database.GetQuery(),
                "insert into STPermission(UserID, ObjectID, Oprate, Permission) values(" +
                    std::to_string(holder) + ", " + std::to_string(object) + ", " + QuotedStr(oprate) + ", " +
                    std::to_string(permission) + ")");
}

}  // namespace

TEST_P(Conformance, Rights_ADenyOfTheUserOrOfARoleWinsAndNoRowIsNoRight) {
  Engine().InstallSchema();
  GiveRole(Database());
  GiveRight(Database(), 12, 100, "执行", 1);
  GiveRight(Database(), 3, 101, "执行", 1);
  GiveRight(Database(), 12, 102, "执行", 1);
  GiveRight(Database(), 3, 102, "执行", 0);
  GiveRight(Database(), 12, 103, "执行", 0);
  GiveRight(Database(), 12, 104, "显示", 1);
  GiveRight(Database(), 4, 105, "执行", 1);
  const TRunPermission& service = TRunPermission::GetInstance();
  EXPECT_TRUE(service.GetMenuPermission(100));
  EXPECT_TRUE(service.GetMenuPermission(101));
  for (const int denied : {102, 103, 104, 105, 106})
    EXPECT_FALSE(service.GetMenuPermission(denied)) << denied;
}

TEST_P(Conformance, Rights_DeniedOperationsOfADocumentAreListed) {
  Engine().InstallSchema();
  GiveRole(Database());
  const int document = TTolPermission().AddObject(1, "o'neil 单据", 0);
  GiveRight(Database(), 12, document, "打印", 0);
  GiveRight(Database(), 12, document, "增加", 1);
  GiveRight(Database(), 3, document, "显示", 0);
  const TStringList denied = TRunPermission::GetInstance().GetObjOperates("单据", "o'neil 单据");
  EXPECT_EQ(denied.Text(), "打印");
}

TEST_P(Conformance, Rights_TheRegistryNumbersObjectsAndForgetsThem) {
  Engine().InstallSchema();
  TTolPermission registry;
  EXPECT_EQ(registry.AddObject(1, "采购单", 7), 1);
  EXPECT_EQ(registry.AddObject(2, "采购单", 8), 2);
  EXPECT_EQ(registry.GetObjectIDByName("采购单", 2), 2);
  EXPECT_EQ(registry.GetObjectByIndex(0, 1)->SID, 7);
  GiveRight(Database(), 12, 2, "打印", 0);
  registry.DeleteObject(2, "采购单");
  EXPECT_EQ(registry.GetObjectIDByName("采购单", 2), -1);
  EXPECT_EQ(Cell("select count(*) from STPermission"), "1");
}

TEST_P(Conformance, Rights_SavePasswordStoresTheValueAndNotesTheTime) {
  Engine().InstallSchema();
  TRecordingServices services;
  Exec("insert into STUsers(OID, UserID, uGroup) values(7, 'o''neil', 0)");
  Exec("insert into STUsers(OID, UserID, uGroup) values(8, 'li', 0)");
  Exec("insert into STUserPasswordStrategy(UserID) values('o''neil')");
  SavePassword(7, "o'neil", "it's; a \\secret");
  EXPECT_EQ(Rows("select Password from STUsers order by OID"),
            (std::vector<TTextRow>{{"enc(o'neil:it's; a \\secret)"}, {"(null)"}}));
  EXPECT_EQ(Cell("select count(*) from STUserPasswordStrategy where LastModifyTime is not null"), "1");
}

}  // namespace zantest
