#include "tests/conformance/Conformance.h"

namespace zantest {

namespace {

/// Texts that have been garbled somewhere before.
const std::vector<std::string> kTexts{"组织机构",
                                      "😀 four bytes 𠮷",
                                      "\\",
                                      "\\\\",
                                      "a\\'b",
                                      "it's",
                                      "''",
                                      "\"double\"",
                                      "`back`",
                                      "[bracket]",
                                      "100%_",
                                      "a;b",
                                      "line\r\nbreak\ttab",
                                      "-- no comment",
                                      "/* nor this */",
                                      ":Name",
                                      "?",
                                      "@x",
                                      "$1",
                                      "#",
                                      "N'x'",
                                      "{}",
                                      "&amp;<>",
                                      " leading and trailing ",
                                      "e\xCC\x81 combined",
                                      "\xEF\xBF\xBF"};

}  // namespace

TEST_P(Conformance, Characters_ArriveByParameter) {
  MakeCasesTable();
  int id = 0;
  for (const std::string& text : kTexts) {
    Exec("insert into Cases(ID, Name, Note) values(:ID, :Name, :Name)",
         {{"ID", std::int64_t{++id}}, {"Name", text}});
    EXPECT_EQ(Rows("select Name, Note from Cases where Name = :Name", {{"Name", text}}),
              (std::vector<TTextRow>{{text, text}}));
  }
}

TEST_P(Conformance, Characters_ArriveByLiteral) {
  MakeCasesTable();
  int id = 0;
  for (const std::string& text : kTexts) {
    const std::string quoted = zanrole::QuotedStr(text);
    Exec("insert into Cases(ID, Name, Note) values(" + std::to_string(++id) + ", " + quoted + ", " + quoted +
         ")");
    EXPECT_EQ(Rows("select Name, Note from Cases where Name = " + quoted),
              (std::vector<TTextRow>{{text, text}}));
  }
}

TEST_P(Conformance, Characters_ArriveByBatch) {
  MakeCasesTable();
  zanrole::TStringList statements;
  int id = 0;
  for (const std::string& text : kTexts)
    statements.Add("insert into Cases(ID, Name) values(" + std::to_string(++id) + ", " +
                   zanrole::QuotedStr(text) + ");");
  zanrole::RunBatch(*Query(), statements);
  id = 0;
  for (const std::string& text : kTexts)
    EXPECT_EQ(Cell("select Name from Cases where ID = " + std::to_string(++id)), text);
}

TEST_P(Conformance, Characters_AreCountedNotBytes) {
  MakeCasesTable();
  Exec("insert into Cases(ID, Name) values(1, '域\\名😀字')");
  const std::string substring = Database().Dialect() == zanrole::TDialect::Oracle ? "SUBSTR" : "substring";
  EXPECT_EQ(Cell("select " + substring + "(Name, 4, 100) from Cases"), "😀字");
  EXPECT_EQ(Cell("select " + substring + "(Name, 1, 2) from Cases"), "域\\");
  EXPECT_EQ(Cell("select left(Name, 4) from Cases"), "域\\名😀");
}

TEST_P(Conformance, Characters_StandInNamesOfColumns) {
  const auto query = Query();
  query->SQL().SetText("select 1 组织 " + zanrole::DualSuffix());
  query->Open();
  EXPECT_EQ(query->FieldByName("组织").AsInteger(), 1);
}

}  // namespace zantest
