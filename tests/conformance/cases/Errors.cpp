#include "tests/conformance/Conformance.h"

namespace zantest {

TEST_P(Conformance, Errors_NoEngineTakesABrokenStatement) {
  MakeCasesTable();
  for (const std::string_view text :
       {"insert in to Cases(ID) values(1)", "select * from Cases where ID in (2,1,)",
        "select * from Cases where ID=5and 1=1", "select * from Nowhere", "select Nothing from Cases",
        "select 'a from Cases", "select (1 from Cases", ")"}) {
    EXPECT_NE(FaultOf(text), "") << text;
  }
}

TEST_P(Conformance, Errors_CarryTheStatementAsItWasWritten) {
  try {
    Exec("select IsNull(Nothing, 0) from Nowhere");
    FAIL();
  } catch (const zanrole::EDatabaseError& error) {
    EXPECT_EQ(error.Statement(), "select IsNull(Nothing, 0) from Nowhere");
    EXPECT_FALSE(error.Message().empty());
    EXPECT_NE(std::string(error.what()).find(error.Message()), std::string::npos);
  }
}

TEST_P(Conformance, Errors_NeverCarryAPassword) {
  Engine().InstallSchema();
  for (const std::string text : {"Update STUsers Set Password='secret' where nothing=1",
                                 "begin Update STUsers Set Password='secret'; nonsense; end;",
                                 "Update STUsers Set Password='se'cret'"}) {
    try {
      Exec(text);
      ADD_FAILURE() << text;
    } catch (const zanrole::EDatabaseError& error) {
      EXPECT_EQ(error.Statement().find("secret"), std::string::npos) << error.what();
    }
  }
}

TEST_P(Conformance, Errors_ADoubleKeyIsRefused) {
  MakeCasesTable();
  Exec("insert into Cases(ID, Name) values(1, 'first')");
  EXPECT_THROW(Exec("insert into Cases(ID, Name) values(1, 'second')"), zanrole::EDatabaseError);
  EXPECT_EQ(Rows("select Name from Cases"), (std::vector<TTextRow>{{"first"}}));
}

TEST_P(Conformance, Errors_TheSameQueryGoesOn) {
  MakeCasesTable();
  const auto query = Query();
  query->SQL().SetText("select * from Nowhere");
  EXPECT_THROW(query->Open(), zanrole::EDatabaseError);
  EXPECT_FALSE(query->Active());
  query->SQL().SetText("select 1 A " + zanrole::DualSuffix());
  query->Open();
  EXPECT_EQ(query->FieldByName("A").AsInteger(), 1);
}

TEST_P(Conformance, Errors_AFieldThatIsAbsentRaises) {
  const auto query = Query();
  query->SQL().SetText("select 1 A " + zanrole::DualSuffix());
  query->Open();
  EXPECT_THROW(query->FieldByName("B"), zanrole::EDatabaseError);
}

}  // namespace zantest
