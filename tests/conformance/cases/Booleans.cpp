#include "tests/conformance/Conformance.h"

namespace zantest {

TEST_P(Conformance, Booleans_AreWrittenAndReadByTheHelpers) {
  MakeCasesTable();
  const auto query = Query();
  query->SQL().SetText("insert into Cases(ID, Flag) values(:ID, :Flag)");
  for (const bool value : {false, true}) {
    query->ParamByName("ID").AsInteger(value ? 1 : 0);
    Database().GetDBParamHelper()->SetBoolean(query->ParamByName("Flag"), value);
    query->ExecSQL();
  }
  query->SQL().SetText("select Flag from Cases order by ID");
  query->Open();
  EXPECT_FALSE(Database().GetDBFieldHelper()->GetBoolean(query->FieldByName("Flag")));
  query->Next();
  EXPECT_TRUE(Database().GetDBFieldHelper()->GetBoolean(query->FieldByName("Flag")));
}

TEST_P(Conformance, Booleans_AreZeroAndOneInStatements) {
  MakeCasesTable();
  Exec("insert into Cases(ID, Flag) values(:ID, :Flag)", {{"ID", std::int64_t{1}}, {"Flag", true}});
  Exec("insert into Cases(ID, Flag) values(2, 0)");
  EXPECT_EQ(Cell("select ID from Cases where Flag = 1"), "1");
  EXPECT_EQ(Cell("select ID from Cases where Flag <> 1"), "2");
}

TEST_P(Conformance, Booleans_ANullIsFalse) {
  MakeCasesTable();
  Exec("insert into Cases(ID) values(1)");
  const auto query = Query();
  query->SQL().SetText("select Flag from Cases");
  query->Open();
  EXPECT_FALSE(Database().GetDBFieldHelper()->GetBoolean(query->FieldByName("Flag")));
}

}  // namespace zantest
