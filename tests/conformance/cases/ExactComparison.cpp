#include "tests/conformance/Conformance.h"

namespace zantest {

TEST_P(Conformance, Exact_CaseAndTrailingBlanksCount) {
  MakeCasesTable();
  for (const std::string value : {"Ann", "ann", "Ann ", "Änn", "änn"})
    Exec("insert into Cases(ID, Name) select count(*) + 1, :Name from Cases", {{"Name", value}});
  for (const std::string value : {"Ann", "ann", "Ann ", "Änn", "änn"}) {
    EXPECT_EQ(Cell("select count(*) from Cases where Name = :Name", {{"Name", value}}), "1") << value;
    EXPECT_EQ(Cell("select count(*) from Cases where Name in ('x', " + zanrole::QuotedStr(value) + ")"), "1")
        << value;
    EXPECT_EQ(Cell("select count(*) from Cases where Name <> :Name", {{"Name", value}}), "4") << value;
  }
  EXPECT_EQ(Cell("select count(distinct Name) from Cases"), "5");
  EXPECT_EQ(Cell("select count(*) from Cases where Name = 'ANN'"), "0");
}

TEST_P(Conformance, Exact_PatternsCompareCase) {
  MakeCasesTable();
  Exec("insert into Cases(ID, Name) values(1, 'Company')");
  EXPECT_EQ(Cell("select count(*) from Cases where Name like '%mpan%'"), "1");
  EXPECT_EQ(Cell("select count(*) from Cases where Name like 'company%'"), "0");
}

TEST_P(Conformance, Exact_LoginsThatDifferInCaseAreTwoLogins) {
  Engine().InstallSchema();
  Exec("insert into STUserPasswordStrategy(UserID) values('ann')");
  Exec("insert into STUserPasswordStrategy(UserID) values('Ann')");
  EXPECT_THROW(Exec("insert into STUserPasswordStrategy(UserID) values('ann')"), zanrole::EDatabaseError);
  EXPECT_EQ(Cell("select count(*) from STUserPasswordStrategy where UserID = 'Ann'"), "1");
}

TEST_P(Conformance, Exact_ColumnsAreFoundInAnyCase) {
  MakeCasesTable();
  Exec("insert into cases(id, NAME) values(1, 'x')");
  const auto query = Query();
  query->SQL().SetText("select Id, nAmE from CASES");
  query->Open();
  EXPECT_EQ(query->FieldByName("ID").AsInteger(), 1);
  EXPECT_EQ(query->FieldByName("name").AsString(), "x");
  EXPECT_THROW(query->FieldByName("Note"), zanrole::EDatabaseError);
}

TEST_P(Conformance, Exact_ANumberInATextColumnComparesAsItsText) {
  MakeCasesTable();
  Exec("insert into Cases(ID, Name) values(7, '7')");
  EXPECT_EQ(Cell("select count(*) from Cases where Name = '7' and ID = 7"), "1");
  EXPECT_EQ(Cell("select count(*) from Cases where Name = '07'"), "0");
}

TEST_P(Conformance, Exact_LocateComparesAsTheDatabaseDoes) {
  MakeCasesTable();
  Exec("insert into Cases(ID, Name) values(1, 'ann')");
  Exec("insert into Cases(ID, Name) values(2, 'Ann')");
  const auto query = Query();
  query->SQL().SetText("select * from Cases order by ID");
  query->Open();
  EXPECT_TRUE(query->Locate("Name", {std::string("Ann")}));
  EXPECT_EQ(query->FieldByName("ID").AsInteger(), 2);
  EXPECT_TRUE(query->Locate("Name;ID", {std::string("ann"), std::string("1")}));
  EXPECT_FALSE(query->Locate("Name", {std::string("ANN")}));
  EXPECT_EQ(query->FieldByName("ID").AsInteger(), 1);
}

}  // namespace zantest
