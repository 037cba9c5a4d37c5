#include "tests/conformance/Conformance.h"

namespace zantest {

namespace {

/// A megabyte in which each place differs from its neighbours, with characters of one to four bytes.
std::string Megabyte() {
  std::string text;
  for (int i = 0; text.size() < 1024 * 1024; ++i) text += std::to_string(i) + "é域😀'\\;";
  return text;
}

}  // namespace

TEST_P(Conformance, LongTexts_OfAMegabyteByParameter) {
  MakeCasesTable();
  const std::string text = Megabyte();
  Exec("insert into Cases(ID, Note) values(1, :Note)", {{"Note", text}});
  EXPECT_TRUE(Cell("select Note from Cases") == text);
  EXPECT_EQ(Cell("select count(*) from Cases where Note = :Note", {{"Note", text}}), "1");
}

TEST_P(Conformance, LongTexts_OfAMegabyteByLiteralAndBatch) {
  MakeCasesTable();
  const std::string text = Megabyte();
  Exec("insert into Cases(ID, Note) values(1, " + zanrole::QuotedStr(text) + ")");
  zanrole::TStringList statements;
  statements.Add("insert into Cases(ID, Note) values(2, " + zanrole::QuotedStr(text) + ");");
  statements.Add("insert into Cases(ID, Note) values(3, 'short');");
  zanrole::RunBatch(*Query(), statements);
  EXPECT_TRUE(Cell("select Note from Cases where ID = 1") == text);
  EXPECT_TRUE(Cell("select Note from Cases where ID = 2") == text);
}

TEST_P(Conformance, LongTexts_AListOfTenThousandIdentities) {
  MakeCasesTable();
  Exec("insert into Cases(ID, Name) values(9999, 'x')");
  std::string list = "0";
  for (int i = 1; i < 10000; ++i) list += "," + std::to_string(i);
  EXPECT_EQ(Cell("select Name from Cases where ID in (" + list + ")"), "x");
}

}  // namespace zantest
