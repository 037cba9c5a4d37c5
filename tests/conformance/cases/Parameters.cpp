#include "tests/conformance/Conformance.h"

namespace zantest {

TEST_P(Conformance, Parameters_NamesIgnoreCaseAndMayRepeat) {
  MakeCasesTable();
  Exec("insert into Cases(ID, Name, Note) values(:id, :NAME, :Name)",
       {{"ID", std::int64_t{5}}, {"name", std::string("x")}});
  EXPECT_EQ(Rows("select ID, Name, Note from Cases where ID = :ID and Name = :Name and Note = :name",
                 {{"Id", std::int64_t{5}}, {"nAME", std::string("x")}}),
            (std::vector<TTextRow>{{"5", "x", "x"}}));
}

TEST_P(Conformance, Parameters_OneNameMayBeginAnother) {
  MakeCasesTable();
  Exec("insert into Cases(ID, Name, Note) values(:I, :ID, :IDs)",
       {{"I", std::int64_t{1}}, {"ID", std::string("two")}, {"IDs", std::string("three")}});
  EXPECT_EQ(Rows("select ID, Name, Note from Cases"), (std::vector<TTextRow>{{"1", "two", "three"}}));
}

TEST_P(Conformance, Parameters_AreNotTakenFromLiteralsNamesAndComments) {
  MakeCasesTable();
  Exec("insert into Cases(ID, Name) values(:ID, ':Other it''s :Third') -- :Comment",
       {{"ID", std::int64_t{1}}});
  EXPECT_EQ(Cell("select Name from Cases"), ":Other it's :Third");
  const auto query = Query();
  query->SQL().SetText("select ':A', 12, /* :B */ Name from Cases where Name = ':C' and ID = :D");
  EXPECT_EQ(query->Params().Count(), 1);
}

TEST_P(Conformance, Parameters_AnUnsetOneIsNull) {
  MakeCasesTable();
  Exec("insert into Cases(ID, Name) values(1, :Name)");
  EXPECT_EQ(Cell("select Name from Cases"), "(null)");
}

TEST_P(Conformance, Parameters_AnUnknownOneRaises) {
  const auto query = Query();
  query->SQL().SetText("select 1 where 1 = :One");
  EXPECT_THROW(query->ParamByName("Two"), zanrole::EDatabaseError);
}

TEST_P(Conformance, Parameters_AreFilledAnewWithTheText) {
  MakeCasesTable();
  const auto query = Query();
  query->SQL().SetText("insert into Cases(ID, Name) values(:ID, :Name)");
  query->ParamByName("ID").AsInteger(1);
  query->ParamByName("Name").AsString("kept?");
  query->ExecSQL();
  query->Params().Clear();
  query->SQL().SetText("insert into Cases(ID, Name) values(:ID, :Name) ");
  query->ParamByName("ID").AsInteger(2);
  query->ExecSQL();
  EXPECT_EQ(Cell("select Name from Cases where ID = 2"), "(null)");
}

TEST_P(Conformance, Parameters_KeepTheirTypes) {
  MakeCasesTable();
  Exec("insert into Cases(ID, Name, Flag) values(:ID, :Name, :Flag)",
       {{"ID", std::int64_t{2147483647}}, {"Name", std::string("007")}, {"Flag", true}});
  const auto query = Query();
  query->SQL().SetText("select * from Cases where Name = :Name");
  query->ParamByName("Name").AsString("007");
  query->Open();
  ASSERT_FALSE(query->Eof());
  EXPECT_EQ(query->FieldByName("ID").AsInteger(), 2147483647);
  EXPECT_EQ(query->FieldByName("Name").AsString(), "007");
  EXPECT_TRUE(query->FieldByName("Flag").AsBoolean());
}

TEST_P(Conformance, Parameters_ATextNeverBecomesSyntax) {
  MakeCasesTable();
  const std::string value = "x'; delete from Cases; --";
  Exec("insert into Cases(ID, Name) values(1, :Name)", {{"Name", value}});
  EXPECT_EQ(Cell("select Name from Cases where Name = :Name", {{"Name", value}}), value);
}

}  // namespace zantest
