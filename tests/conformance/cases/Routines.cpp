#include "tests/conformance/Conformance.h"

// What the statements for MySQL leave to stored routines, next to the statements of the other dialects:
//
//   1 company ── 2 department ── 4 department ── 5 position ── 6 person
//            ├── 3 department
//            └── 7 person, who manages the company

namespace zantest {

using namespace zanrole;

namespace {

void AddNode(zanhost::TDatabase& database, int id, int parent, const char* type, const char* name,
             const char* title) {
  ExecStatement(*database.GetQuery(), "insert into PartyH(DjLsh, Parent, Type, Name, Title) values(" +
                                          std::to_string(id) + ", " + std::to_string(parent) + ", '" + type +
                                          "', " + QuotedStr(name) + ", " + QuotedStr(title) + ")");
}

void MakeOrganisation(zanhost::TDatabase& database) {
  AddNode(database, 1, -1, "Company", "总公司", "总");
  AddNode(database, 2, 1, "Department", "生产部", "产");
  AddNode(database, 3, 1, "Department", "A\\B's", "A'");
  AddNode(database, 4, 2, "Department", "车间", "车");
  AddNode(database, 5, 4, "PositionEntity", "车间主管", "主管");
  AddNode(database, 6, 5, "User", "张三", "张三");
  AddNode(database, 7, 1, "User", "李四", "李四");
}

std::string TextType() { return DbHelper_IsOracle() ? "NVarChar2(2000)" : "NVarChar(2000)"; }

std::string JoinedByBackslash(const std::string& a, const std::string& b) {
  const std::string op(ConcatOperator());
  return a + " " + op + " '\\' " + op + " " + b;
}

// clang-format off
std::string PathOf(int node) {
  const std::string id = std::to_string(node);
  if (DbHelper_IsMySql()) return "select get_UserFullDeptName(" + id + ") Name";
  return "with T(Parent, Name) as ( select Parent, cast(Name as " + TextType() + ") from PartyH where DjLsh = " + id +
         " union all select a.Parent, cast(" + JoinedByBackslash("a.Name", "T.Name") + " as " + TextType() + ")"
         " from PartyH a inner join T on a.DjLsh = T.Parent ) select Name from T order by Parent";
}

std::string UnitsBelow(const std::string& list) {
  if (DbHelper_IsMySql())
    return "select get_Parthh_Nodelevel(DjLsh) NodeLevel , DjLsh, Parent from PartyH"
           "  where Type in ('Company', 'Department')   and FIND_IN_SET(DjLsh, Get_Partyh_Children_DjLsh('" + list + "'))"
           " order by DjLsh";
  return "with cte(DjLsh, NodeLevel) as ( select DjLsh, 0 NodeLevel from PartyH where DjLsh in (" + list + ")"
         " union all select a.DjLsh, cte.NodeLevel+1 NodeLevel from PartyH a inner join cte on a.Parent = cte.DjLsh"
         " where a.Type in ('Company', 'Department') )"
         " select max(cte.NodeLevel) NodeLevel , a.DjLsh, a.Parent from cte inner join PartyH a on cte.DjLsh = a.DjLsh"
         " group by a.DjLsh, a.Parent order by a.DjLsh";
}

std::string NodesAbove(const std::string& list) {
  if (DbHelper_IsMySql())
    return "select DjLsh from PartyH where FIND_IN_SET(DjLsh, Get_Partyh_Parent_DjLsh('" + list + "')) order by DjLsh";
  return "with T(DjLsh, Parent) as ( select DjLsh, Parent from PartyH where DjLsh in (" + list + ")"
         " union all select a.DjLsh, a.Parent from PartyH a inner join T on a.DjLsh = T.Parent )"
         " select distinct DjLsh from T order by DjLsh";
}

std::string ObjectsOfTheGradedConsole() {
  if (DbHelper_IsMySql()) return "call MySql_RatingPermissionTreeNodes()";
  return "with cte(NodeID) as ( select NodeID from Tree where Functions like '函数分级权限管理(%'"
         " union all select ParentID from Tree a inner join cte on a.NodeID = cte.NodeID )"
         " select a.ObjectID from cte inner join Tree a on a.NodeID = cte.NodeID where a.ObjectID > 0";
}
// clang-format on

/// Only the statements for MySQL call the routine of the case.
bool CallsRoutines() { return DbHelper_IsMySql(); }

}  // namespace

TEST_P(Conformance, Routines_PathOfNames) {
  Engine().InstallSchema();
  MakeOrganisation(Database());
  EXPECT_EQ(Cell(PathOf(1)), "总公司");
  EXPECT_EQ(Cell(PathOf(4)), "总公司\\生产部\\车间");
  EXPECT_EQ(Cell(PathOf(3)), "总公司\\A\\B's");
}

TEST_P(Conformance, Routines_PathOfAPersonIsThatOfTheDepartment) {
  if (!CallsRoutines()) GTEST_SKIP() << "other dialects ask for the path of the department itself";
  Engine().InstallSchema();
  MakeOrganisation(Database());
  EXPECT_EQ(Cell(PathOf(6)), "总公司\\生产部\\车间");
  EXPECT_EQ(Cell(PathOf(7)), "总公司");
  EXPECT_EQ(Cell(PathOf(99)), "(null)");
}

TEST_P(Conformance, Routines_NodesAboveAList) {
  Engine().InstallSchema();
  MakeOrganisation(Database());
  EXPECT_EQ(Rows(NodesAbove("4, 3")), (std::vector<TTextRow>{{"1"}, {"2"}, {"3"}, {"4"}}));
  EXPECT_EQ(Rows(NodesAbove("1")), (std::vector<TTextRow>{{"1"}}));
}

TEST_P(Conformance, Routines_UnitsBelowANodeWithTheirLevels) {
  Engine().InstallSchema();
  MakeOrganisation(Database());
  EXPECT_EQ(Rows(UnitsBelow("1")),
            (std::vector<TTextRow>{{"0", "1", "-1"}, {"1", "2", "1"}, {"1", "3", "1"}, {"2", "4", "2"}}));
}

TEST_P(Conformance, Routines_ALongListOfNodesIsNotCutOff) {
  if (!CallsRoutines()) GTEST_SKIP() << "other dialects keep the nodes in a table expression";
  Engine().InstallSchema();
  MakeOrganisation(Database());
  TStringList nodes;
  for (int id = 100000; id < 101000; ++id)
    nodes.Add("insert into PartyH(DjLsh, Parent, Type) values(" + std::to_string(id) + ", 3, 'Department');");
  RunBatch(*Query(), nodes);
  EXPECT_EQ(Cell("select count(*) from PartyH where FIND_IN_SET(DjLsh, Get_Partyh_Children_DjLsh('3'))"),
            "1001");
}

TEST_P(Conformance, Routines_ObjectsOfTheEntriesOfTheGradedConsoleAndAbove) {
  Engine().InstallSchema();
  const auto query = Database().GetSysQuery();
  const auto add = [&query](int node, int parent, int object, const std::string& functions) {
    ExecStatement(*query, "insert into Tree(NodeID, ParentID, ObjectID, Functions) values(" +
                              std::to_string(node) + ", " + std::to_string(parent) + ", " +
                              std::to_string(object) + ", " + QuotedStr(functions) + ")");
  };
  add(1, 0, 0, "");
  add(2, 1, 22, "");
  add(3, 2, 33, "函数分级权限管理(1)");
  add(4, 2, 44, "函数域管理()");
  OpenStatement(*query, ObjectsOfTheGradedConsole());
  std::vector<TTextRow> objects = RowsOf(*query);
  std::sort(objects.begin(), objects.end());
  EXPECT_EQ(objects, (std::vector<TTextRow>{{"22"}, {"33"}}));
}

TEST_P(Conformance, Routines_PathsOfADomainAndOfThoseBelow) {
  if (!CallsRoutines()) GTEST_SKIP() << "other dialects build the paths in a table expression";
  Engine().InstallSchema();
  Exec("insert into STDomains(ID, Name, ParentID, ParentName) values(1, 'A''s', -1, '\\')");
  Exec("insert into STDomains(ID, Name, ParentID, ParentName) values(2, '下', 1, '\\old\\')");
  Exec("insert into STDomains(ID, Name, ParentID, ParentName) values(3, 'apart', -1, '\\')");
  EXPECT_EQ(Rows("CALL MySql_STDomainsGetFullName(1)"),
            (std::vector<TTextRow>{{"1", "\\", "\\A's\\"}, {"2", "\\A's\\", "\\A's\\下\\"}}));
}

TEST_P(Conformance, Routines_FullNamesReachTheRolesOfPositionsAndNoPerson) {
  if (!CallsRoutines()) GTEST_SKIP() << "other dialects update through a table expression";
  Engine().InstallSchema();
  MakeOrganisation(Database());
  Exec("update PartyH set FullName = '集团' where DjLsh = 1");
  Exec("update PartyH set UserOID = 50 where DjLsh = 5");
  Exec("insert into STUsers(OID, UserName, uGroup) values(50, 'old', 1)");
  Exec("insert into STUsers(OID, UserName, uGroup) values(51, 'other', 1)");
  Exec("CALL MySql_SetOrgFullName(2)");
  EXPECT_EQ(Rows("select DjLsh, FullName from PartyH order by DjLsh"),
            (std::vector<TTextRow>{{"1", "集团"},
                                   {"2", "集团产"},
                                   {"3", "(null)"},
                                   {"4", "集团产车"},
                                   {"5", "集团产车主管"},
                                   {"6", "(null)"},
                                   {"7", "(null)"}}));
  EXPECT_EQ(Rows("select OID, UserName from STUsers order by OID"),
            (std::vector<TTextRow>{{"50", "集团产车主管"}, {"51", "other"}}));
}

TEST_P(Conformance, Routines_ThePasswordStrategyIsUpdatedOrInserted) {
  if (!CallsRoutines()) GTEST_SKIP() << "other dialects update, and insert when no row was hit";
  Engine().InstallSchema();
  const std::string rows = "select UserID, NeedReset, CanModify, NeverExpires from STUserPasswordStrategy";
  Exec("call Mysql_Update_STUserPasswordStrategy('o''neil', 1, 0, 0)");
  EXPECT_EQ(Rows(rows), (std::vector<TTextRow>{{"o'neil", "1", "0", "0"}}));
  // Equal values change no row, and yet nothing is inserted.
  Exec("call Mysql_Update_STUserPasswordStrategy('o''neil', 1, 0, 0)");
  Exec("call Mysql_Update_STUserPasswordStrategy('o''neil', 0, 1, 1)");
  EXPECT_EQ(Rows(rows), (std::vector<TTextRow>{{"o'neil", "0", "1", "1"}}));
}

TEST_P(Conformance, Routines_NowIsSaidInTheWordsOfSqlServerToo) {
  Engine().InstallSchema();
  Exec("insert into STUsers(OID, UserName, CreateTime) values(1, 'x', GetDate())");
  const auto query = Query();
  OpenStatement(*query, "select CreateTime from STUsers where OID = 1");
  EXPECT_FALSE(query->FieldByName("CreateTime").IsNull());
  EXPECT_GE(query->FieldByName("CreateTime").AsString().substr(0, 4), "2024");
}

}  // namespace zantest
