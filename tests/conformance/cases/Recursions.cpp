#include "tests/conformance/Conformance.h"

namespace zantest {

namespace {

std::string Plus() { return std::string(zanrole::ConcatOperator()); }

}  // namespace

TEST_P(Conformance, Recursions_PathsOfDomainsAreBuiltDownwards) {
  if (Database().Dialect() == zanrole::TDialect::MySql)
    GTEST_SKIP() << "MySQL's dialect calls a stored routine";
  Engine().InstallSchema();
  Exec(
      "insert into STDomains(ID, Name, ParentID, ParentName, FullName) values(1, 'A''s', -1, '\\', '\\old')");
  Exec(
      "insert into STDomains(ID, Name, ParentID, ParentName, FullName) values(2, '下', 1, '\\old\\', "
      "'\\old\\b')");
  Exec("insert into STDomains(ID, Name, ParentID, ParentName, FullName) values(3, 'c', 2, '', '')");
  Exec("insert into STDomains(ID, Name, ParentID, ParentName, FullName) values(4, 'apart', -1, '', '')");
  EXPECT_EQ(
      Rows("with cte(ID, ParentName, FullName) as ( select ID, ParentName, ParentName " + Plus() + " Name " +
           Plus() + " '\\'   from STDomains where ID = 1 union all select a.ID, b.FullName, b.FullName " +
           Plus() + " a.Name " + Plus() +
           " '\\'   from STDomains a inner join cte b on a.ParentID = b.ID ) select * from cte"),
      (std::vector<TTextRow>{
          {"1", "\\", "\\A's\\"}, {"2", "\\A's\\", "\\A's\\下\\"}, {"3", "\\A's\\下\\", "\\A's\\下\\c\\"}}));
}

TEST_P(Conformance, Recursions_AnInsertTakesTheIdentityIntoItsPath) {
  Engine().InstallSchema();
  const std::string width = Database().Dialect() == zanrole::TDialect::MySql ? "char(16)" : "varchar(16)";
  const std::string text = zanrole::NullFuncRewrite(
      "insert into STDomains (ID, Code, Name, ParentID, FullCode) select a.NewID, 'c', 'n', -1, '\\' " +
      Plus() + " cast(a.NewID as " + width + ") " + Plus() +
      " '\\' from ( select IsNull(Max(ID),0) + 1 NewID from STDomains ) a");
  Exec(text);
  Exec(text);
  EXPECT_EQ(Rows("select ID, FullCode from STDomains order by ID"),
            (std::vector<TTextRow>{{"1", "\\1\\"}, {"2", "\\2\\"}}));
}

TEST_P(Conformance, Recursions_AnUpdateThroughAJoinChangesItsRowsOnly) {
  if (Database().Dialect() != zanrole::TDialect::SqlServer) GTEST_SKIP() << "the text of SQL Server";
  Engine().InstallSchema();
  Exec("insert into STUsers(OID, UserID, UserName, uGroup) values(1, '\\\\keeper', 'old', 1)");
  Exec("insert into STUsers(OID, UserID, UserName, uGroup) values(2, 'plain', 'old', 1)");
  Exec("insert into STUsers(OID, UserID, UserName, uGroup) values(3, 'other', 'untouched', 1)");
  Exec("insert into STDomains(ID, Name, FullName) values(7, 'd', '\\A\\d')");
  Exec("insert into STDomainMembers(DomainID, UserOID, MemberType, IsOwned) values(7, 1, 1, 1)");
  Exec("insert into STDomainMembers(DomainID, UserOID, MemberType, IsOwned) values(7, 2, 1, 1)");
  Exec(
      "update STUsers set UserName = c.FullName + '\\' +  case left(a.UserID, 2) when '\\\\' then "
      "SUBSTRing(a.UserID, 3, "
      "100) else a.UserID end from STUsers a inner join STDomainMembers b on a.OID = b.UserOID inner join "
      "STDomains c on "
      "b.DomainID = c.ID where a.uGroup =1 and b.MemberType = 1 and b.IsOwned = 1 and c.ID = 7");
  EXPECT_EQ(Rows("select OID, UserName from STUsers order by OID"),
            (std::vector<TTextRow>{{"1", "\\A\\d\\keeper"}, {"2", "\\A\\d\\plain"}, {"3", "untouched"}}));
}

TEST_P(Conformance, Recursions_AnUpdateThroughARecursionInABatch) {
  if (Database().Dialect() != zanrole::TDialect::SqlServer) GTEST_SKIP() << "the text of SQL Server";
  Engine().InstallSchema();
  Exec("insert into PartyH(DjLsh, Parent, Type, Title, FullName) values(1, -1, 'Company', 'C', 'x')");
  Exec("insert into PartyH(DjLsh, Parent, Type, Title, FullName) values(2, 1, 'Department', 'D', 'x')");
  Exec("insert into PartyH(DjLsh, Parent, Type, Title, FullName) values(3, 1, 'User', 'U', 'x')");
  const std::string cte =
      "with cte(DjLsh, Parent, FullName) as ( select a.DjLsh, a.Parent , "
      "cast(IsNull(IsNull(b.FullName,b.Title),'') + "
      "a.Title as varchar(800)) FullName from PartyH a left outer join PartyH b on a.Parent = b.DjLsh where "
      "a.DjLsh = 1 "
      "union all select a.DjLsh, a.Parent, cast(cte.FullName + a.Title as varchar(800)) FullName from PartyH "
      "a inner join "
      "cte on a.Parent = cte.DjLsh where a.Type <> 'User')";
  Exec("begin\r\n" + cte +
       "update PartyH set FullName = cte.FullName from PartyH a inner join cte on a.DjLsh = cte.DjLsh where "
       "a.FullName <> "
       "cte.FullName\r\n;\r\nend;");
  EXPECT_EQ(Rows("select FullName from PartyH order by DjLsh"),
            (std::vector<TTextRow>{{"C"}, {"CD"}, {"x"}}));
}

TEST_P(Conformance, Recursions_TheDerivedColumnsOfTheOrganisationAreRebuilt) {
  Engine().InstallSchema();
  const auto add = [&](int id, int parent, const std::string& name) {
    Exec("insert into PartyH(DjLsh, Parent, Type, Name, LongName) values(" + std::to_string(id) + ", " +
         std::to_string(parent) + ", 'Department', " + zanrole::QuotedStr(name) + ", 'wrong')");
  };
  add(1, -1, "C");
  add(2, 1, "D'");
  add(3, 2, "E");
  add(4, -9, "bin");
  add(5, 1, "");
  add(6, 5, "F");
  Exec("update PartyH set Name = null where DjLsh = 5");
  add(10, 11, "loop");
  add(11, 10, "loop");
  Exec(Database().Dialect() == zanrole::TDialect::SqlServer ? "exec P_RefreshPartyParentPath"
                                                            : "call P_RefreshPartyParentPath()");
  const std::string top = Engine().EmptyTextIsNull() ? "(null)" : "";
  EXPECT_EQ(Rows("select DjLsh, LongName, LongCode, ParentPath, NodeLevel, IsLastLevel from PartyH where "
                 "DjLsh < 10 order "
                 "by DjLsh"),
            (std::vector<TTextRow>{{"1", "C", "1", top, "0", "0"},
                                   {"2", "C\\D'", "1\\2", "1,", "1", "0"},
                                   {"3", "C\\D'\\E", "1\\2\\3", "1,2,", "2", "1"},
                                   {"4", "bin", "4", top, "0", "1"},
                                   {"5", "C\\", "1\\5", "1,", "1", "0"},
                                   {"6", "C\\\\F", "1\\5\\6", "1,5,", "2", "1"}}));
  EXPECT_EQ(Cell("select count(*) from PartyH where LongName = 'wrong'"), "2");
}

}  // namespace zantest
