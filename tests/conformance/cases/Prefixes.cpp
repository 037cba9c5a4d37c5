#include "tests/conformance/Conformance.h"

namespace zantest {

TEST_P(Conformance, Prefixes_JoinTablesOfBothDatabasesFromEitherSide) {
  Engine().InstallSchema();
  const auto system = Database().GetSysQuery();
  system->SQL().SetText(
      "Insert Into ObjectRegister (ObjectID, TypeID, Object, OwnerID) Values (9, 7, '菜单', 0)");
  system->ExecSQL();
  Exec("insert into STPermission(UserID, ObjectID, Oprate) values(1, 9, '执行')");

  system->SQL().SetText("select o.Object, p.Oprate from ObjectRegister o inner join " +
                        zanrole::GetDataDbName() + ".STPermission p on o.ObjectID = p.ObjectID");
  system->Open();
  EXPECT_EQ(RowsOf(*system), (std::vector<TTextRow>{{"菜单", "执行"}}));

  EXPECT_EQ(Rows("select o.Object, p.Oprate from STPermission p inner join " + zanrole::GetSysDbName() +
                 ".ObjectRegister o on o.ObjectID = p.ObjectID"),
            (std::vector<TTextRow>{{"菜单", "执行"}}));
}

TEST_P(Conformance, Prefixes_TheOwnerMayBeNamedOnSqlServer) {
  if (Database().Dialect() != zanrole::TDialect::SqlServer)
    GTEST_SKIP() << "only SQL Server puts the owner between database and table";
  Engine().InstallSchema();
  EXPECT_EQ(Cell("select count(*) from VeshSysDBase.dbo.Tree"), "0");
}

}  // namespace zantest
