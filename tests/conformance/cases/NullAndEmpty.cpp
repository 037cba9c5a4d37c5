#include "tests/conformance/Conformance.h"

namespace zantest {

TEST_P(Conformance, NullAndEmpty_ANullReadsAsNothingOfEachType) {
  MakeCasesTable();
  Exec("insert into Cases(ID) values(1)");
  const auto query = Query();
  query->SQL().SetText("select * from Cases");
  query->Open();
  EXPECT_TRUE(query->FieldByName("Name").IsNull());
  EXPECT_EQ(query->FieldByName("Name").AsString(), "");
  EXPECT_EQ(query->FieldByName("Name").AsInteger(), 0);
  EXPECT_FALSE(query->FieldByName("Flag").AsBoolean());
  EXPECT_EQ(query->FieldByName("Moment").AsDateTime(), zanrole::TDateTime());
}

TEST_P(Conformance, NullAndEmpty_AnEmptyTextIsNoNull) {
  MakeCasesTable();
  Exec("insert into Cases(ID, Name, Note) values(1, '', :Note)", {{"Note", std::string()}});
  const std::string expected = Engine().EmptyTextIsNull() ? "(null)" : "";
  EXPECT_EQ(Rows("select Name, Note from Cases"), (std::vector<TTextRow>{{expected, expected}}));
  if (Engine().EmptyTextIsNull()) GTEST_SKIP() << "an empty text is null on this engine";
  EXPECT_EQ(Cell("select count(*) from Cases where Name = ''"), "1");
  EXPECT_EQ(Cell("select count(*) from Cases where Name is null"), "0");
}

TEST_P(Conformance, NullAndEmpty_NullEqualsNothing) {
  MakeCasesTable();
  Exec("insert into Cases(ID) values(1)");
  EXPECT_EQ(Cell("select count(*) from Cases where Name = Note"), "0");
  EXPECT_EQ(Cell("select count(*) from Cases where Name <> 'a'"), "0");
  EXPECT_EQ(Cell("select count(*) from Cases where Name in ('a')"), "0");
}

TEST_P(Conformance, NullAndEmpty_TheGreatestOfNoRowsIsNull) {
  MakeCasesTable();
  EXPECT_EQ(Rows("select max(ID) M, count(*) C from Cases"), (std::vector<TTextRow>{{"(null)", "0"}}));
}

TEST_P(Conformance, NullAndEmpty_AResultWithoutRowsHasItsColumns) {
  MakeCasesTable();
  const auto query = Query();
  query->SQL().SetText("select * from Cases where 1=0");
  query->Open();
  EXPECT_TRUE(query->Active());
  EXPECT_TRUE(query->DataSet().IsEmpty());
  EXPECT_NE(query->FindField("moment"), nullptr);
  EXPECT_EQ(query->FindField("Nowhere"), nullptr);
}

TEST_P(Conformance, NullAndEmpty_TheNullFunctionOfEachDialect) {
  MakeCasesTable();
  Exec("insert into Cases(ID, Note) values(1, 'n')");
  for (const std::string_view text :
       {"select IsNull(Name, 'none') from Cases", "select ISNULL(isnull(Name, Name), 'none') from Cases"})
    EXPECT_EQ(Cell(zanrole::NullFuncRewrite(text)), "none") << text;
  EXPECT_EQ(Cell(zanrole::NullFuncRewrite("select IsNull(max(ID), 0) + 1 from Cases where ID > 5")), "1");
}

}  // namespace zantest
