#include "tests/conformance/Conformance.h"

namespace zantest {

TEST_P(Conformance, ReservedWords_AreSafeWhenQuotedByTheHelper) {
  Engine().InstallSchema();
  const std::string type = Database().GetDBObjectHelper()->QuoteName("Type");
  Exec("Insert Into PartyH (DjLsh,Parent,IsActive,Sequence," + type +
           ",Title,name,code)  Values (:DjLsh,:Parent,:IsActive,:Sequence,:Type,:Title,:name,:code)",
       {{"DjLsh", std::int64_t{1}},
        {"Parent", std::int64_t{-1}},
        {"IsActive", true},
        {"Sequence", std::int64_t{1}},
        {"Type", std::string("Company")},
        {"Title", std::string("t")},
        {"name", std::string("n")},
        {"code", std::string("c")}});
  EXPECT_EQ(Rows(" select  * from  PartyH where (" + type + "=:Type) and (code=:code)",
                 {{"Type", std::string("Company")}, {"code", std::string("c")}})
                .size(),
            1u);
  EXPECT_EQ(Cell("select Title from PartyH where Type = 'Company'"), "t");
}

TEST_P(Conformance, ReservedWords_OfTheTablesCanBeColumns) {
  Engine().InstallSchema();
  EXPECT_TRUE(
      Rows("select Object, Sequence from " + zanrole::GetSysDbName() + ".ObjectRegister, PartyH").empty());
  const auto system = Database().GetSysQuery();
  system->SQL().SetText(
      "select NodeID,NodeAtt,NodeCaption,NodeLevel,ParentID,PrecedID,NodeDesc, cast(Tree.Functions as " +
      Database().GetDBTypesHelper()->WideTextType() +
      "(2000)) AS Functions,IconNo,ObjectID,NeedHide From Tree Where (NodeLevel<> 0) Order By NodeID ");
  system->Open();
  EXPECT_TRUE(system->Eof());
}

TEST_P(Conformance, ReservedWords_TheFirstRowOnly) {
  MakeCasesTable();
  for (const char* id : {"3", "1", "2"})
    Exec("insert into Cases(ID, Name) values(" + std::string(id) + ", 'n" + id + "')");
  const zanrole::TZANSelectSQLEntity entity{"ID, Name", "Cases", "ID > 1", "ID"};
  EXPECT_EQ(Rows(Database().GetSelectSQLHelper()->Build(entity)), (std::vector<TTextRow>{{"2", "n2"}}));
  EXPECT_EQ(Rows(Database().GetSelectSQLHelper()->Build({"ID", "Cases", "", "ID desc"})),
            (std::vector<TTextRow>{{"3"}}));
}

}  // namespace zantest
