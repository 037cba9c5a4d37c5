#include "tests/conformance/Conformance.h"

namespace zantest {

using zanrole::RunBatch;
using zanrole::TStringList;

TEST_P(Conformance, Batches_RunAllStatements) {
  MakeCasesTable();
  TStringList statements;
  statements.Add("insert into Cases(ID, Name) values(1, 'one');");
  statements.Add("insert into Cases(ID, Name) values(2, 'two');");
  statements.Add("update Cases set Name = 'zwei' where ID = 2;");
  RunBatch(*Query(), statements);
  EXPECT_EQ(Rows("select ID, Name from Cases order by ID"),
            (std::vector<TTextRow>{{"1", "one"}, {"2", "zwei"}}));
}

TEST_P(Conformance, Batches_LeaveNothingWhenOneStatementFails) {
  MakeCasesTable();
  Exec("insert into Cases(ID, Name) values(1, 'kept')");
  for (int failing = 0; failing < 4; ++failing) {
    TStringList statements;
    for (int i = 0; i < 4; ++i) {
      const std::string id = i == failing ? "1" : std::to_string(10 + i);
      statements.Add("insert into Cases(ID, Name) values(" + id + ", 'new');");
    }
    EXPECT_THROW(RunBatch(*Query(), statements), zanrole::EDatabaseError) << failing;
    EXPECT_EQ(Rows("select ID, Name from Cases"), (std::vector<TTextRow>{{"1", "kept"}})) << failing;
  }
}

TEST_P(Conformance, Batches_LeaveNothingWhenTheLastStatementIsNoStatement) {
  MakeCasesTable();
  TStringList statements;
  statements.Add("insert into Cases(ID, Name) values(1, 'new');");
  statements.Add("insert in to Cases(ID, Name) values(2, 'new');");
  EXPECT_THROW(RunBatch(*Query(), statements), zanrole::EDatabaseError);
  EXPECT_EQ(Cell("select count(*) from Cases"), "0");
}

TEST_P(Conformance, Batches_TheSessionGoesOnAfterAFailure) {
  MakeCasesTable();
  TStringList statements;
  statements.Add("insert into Cases(ID) values(1);");
  statements.Add("insert into Nowhere(ID) values(1);");
  EXPECT_THROW(RunBatch(*Query(), statements), zanrole::EDatabaseError);
  Exec("insert into Cases(ID, Name) values(1, 'later')");
  const auto other = Engine().OpenSession();
  const auto query = other->GetQuery();
  query->SQL().Add("select Name from Cases");
  query->Open();
  EXPECT_EQ(RowsOf(*query), (std::vector<TTextRow>{{"later"}}));
}

TEST_P(Conformance, Batches_HoldQuotesAndSemicolonsInsideValues) {
  MakeCasesTable();
  const std::string value = "a;b';'c''; end; begin -- /* */ :Name [x] \"y\" `z` \\";
  TStringList statements;
  statements.Add("insert into Cases(ID, Name) values(1, " + zanrole::QuotedStr(value) + ");");
  statements.Add("insert into Cases(ID, Name) values(2, " + zanrole::QuotedStr(";") + ");");
  RunBatch(*Query(), statements);
  EXPECT_EQ(Cell("select Name from Cases where ID = 1"), value);
  EXPECT_EQ(Cell("select Name from Cases where ID = 2"), ";");
}

TEST_P(Conformance, Batches_OfFiveThousandStatements) {
  MakeCasesTable();
  TStringList statements;
  for (int i = 1; i <= 5000; ++i)
    statements.Add("insert into Cases(ID, Name) values(" + std::to_string(i) + ", 'a;''" + std::to_string(i) +
                   "');");
  RunBatch(*Query(), statements);
  EXPECT_EQ(Cell("select count(*) from Cases"), "5000");
  EXPECT_EQ(Cell("select Name from Cases where ID = 4321"), "a;'4321");
}

TEST_P(Conformance, Batches_GiveTheResultOfASelectInside) {
  if (Database().Dialect() != zanrole::TDialect::SqlServer)
    GTEST_SKIP() << "only the text for SQL Server selects inside a batch";
  MakeCasesTable();
  Exec("insert into Cases(ID) values(41)");
  const auto query = Query();
  query->SQL().Add("begin");
  query->SQL().Add("insert into Cases(ID, Moment) select IsNull(max(ID),0)+1, GetDate() from Cases;");
  query->SQL().Add("select max(ID) NewID from Cases;");
  query->SQL().Add("end;");
  query->Open();
  EXPECT_EQ(query->FieldByName("newid").AsInteger(), 42);
  EXPECT_EQ(Cell("select count(*) from Cases where Moment is not null"), "1");
}

TEST_P(Conformance, Batches_TakeParametersInEachStatement) {
  if (Database().Dialect() == zanrole::TDialect::MySql)
    GTEST_SKIP() << "a batch is one quoted text in MySQL's dialect and takes no parameters";
  MakeCasesTable();
  Exec(
      "begin\r\ninsert into Cases(ID, Name) values(:ID, :Name);\r\nupdate Cases set Note = :Name where ID = "
      ":Id;\r\nend;",
      {{"ID", std::int64_t{7}}, {"name", std::string("seven")}});
  EXPECT_EQ(Rows("select ID, Name, Note from Cases"), (std::vector<TTextRow>{{"7", "seven", "seven"}}));
}

TEST_P(Conformance, Batches_AnEmptyListIsNotSent) { EXPECT_NO_THROW(RunBatch(*Query(), TStringList())); }

TEST_P(Conformance, Batches_AConditionalInsertRunsOnlyWhenTheUpdateHitNoRow) {
  if (Database().Dialect() == zanrole::TDialect::MySql)
    GTEST_SKIP() << "MySQL's dialect calls a stored routine in its place";
  MakeCasesTable();
  const auto functions = Database().GetDBFunctionsHelper();
  const std::string text =
      "BEGIN Update Cases Set Name = :Name Where ID = :ID; " +
      functions->ConditionalStatement(functions->RowCountExpression() + " = 0",
                                      "INSERT INTO Cases(ID, Name) VALUES(:ID, :Name);") +
      functions->ConditionalEnd() + "END;";
  Exec(text, {{"ID", std::int64_t{1}}, {"Name", std::string("first")}});
  EXPECT_EQ(Rows("select ID, Name from Cases"), (std::vector<TTextRow>{{"1", "first"}}));
  Exec(text, {{"ID", std::int64_t{1}}, {"Name", std::string("second")}});
  EXPECT_EQ(Rows("select ID, Name from Cases"), (std::vector<TTextRow>{{"1", "second"}}));
  Exec(text, {{"ID", std::int64_t{1}}, {"Name", std::string("second")}});
  EXPECT_EQ(Cell("select count(*) from Cases"), "1");
}

}  // namespace zantest
