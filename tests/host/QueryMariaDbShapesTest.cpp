#include <gtest/gtest.h>

#include "Frame/Host/Classes.h"
#include "host/query/DataUrl.h"
#include "tests/host/Rows.h"
#include "tests/host/StatementGenerator.h"
#include "tests/support/MariaDbServer.h"

namespace zantest {

namespace {

using TTable = std::vector<std::vector<std::string>>;

/// The type and the value of a cell, as the two ways must agree on both.
std::string Described(const zanrole::TZanValue& value) {
  return std::to_string(value.index()) + ":" + zanrole::ValueAsString(value);
}

constexpr const char* kTables = R"(
create table T (ID int not null, Name varchar(50), Flag bit, Code varchar(20), Moment datetime, Amount decimal(10, 2),
                Weight double, Size bigint unsigned, Note longtext, primary key (ID), key (Code));
insert into T values (1, 'a', 0, '1', '2024-02-29 13:14:15', 1.50, 0.1, 7, 'long'),
                     (2, 'b', 1, '2', null, -3, 1e20, 18446744073709551615, ''), (3, '', 0, '01', '1999-12-31', 0, -0.25, 0, null),
                     (4, 'it''s', 0, null, null, null, null, null, 'a''b'), (5, '域', 1, '5', '2024-01-01', 5.05, 5, 5, '\'),
                     (6, null, null, '', null, 1, 3.14159265358979, 1, '😀');
create table Written like T;
create table WrittenAsText like T;
)";

class MariaDbShapes : public testing::Test {
 protected:
  void SetUp() override {
    const std::string whyNot = WhyNoMariaDbServer();
    if (!whyNot.empty()) GTEST_SKIP() << whyNot;
    FDatabase = zanhost::OpenDatabase(TMariaDbServer::Instance().Url("shapes", "shapes_system"),
                                      zanhost::TOpenMode::CreateIfMissing);
    FDatabase->ExecScript(kTables);
  }
  void TearDown() override {
    if (FDatabase == nullptr) return;
    Execute(*FDatabase, "drop database shapes_system");
    Execute(*FDatabase, "drop database shapes");
  }

  TTable Rows(const std::string& text) {
    const auto query = FDatabase->GetQuery();
    query->SQL().SetText(text);
    try {
      query->Open();
    } catch (const zanrole::EDatabaseError& error) {
      return {{"fault", error.Message()}};
    }
    TTable rows(1);
    for (int i = 0; i < query->DataSet().FieldCount(); ++i) rows[0].push_back(query->Fields(i).Name());
    for (; !query->Eof(); query->Next()) {
      rows.emplace_back();
      for (int i = 0; i < query->DataSet().FieldCount(); ++i)
        rows.back().push_back(Described(query->Fields(i).Value()));
    }
    return rows;
  }

  /// The same statement in a shape that never comes again, and so sent as a text.
  TTable RowsByText(const std::string& text) { return Rows("/*" + std::to_string(++FTexts) + "*/" + text); }

  /// A counter of this session on the server.
  int Counter(const std::string& name) {
    // Sent as a text, so that the asking does not count.
    return Number(*FDatabase, "/*" + std::to_string(++FTexts) +
                                  "*/select VARIABLE_VALUE from information_schema.SESSION_STATUS where "
                                  "VARIABLE_NAME = " +
                                  zanrole::QuotedStr(name));
  }
  std::string FaultOf(const std::string& text) {
    try {
      Execute(*FDatabase, text);
    } catch (const zanrole::EDatabaseError& error) {
      return error.Message();
    }
    return "(no fault)";
  }

  std::unique_ptr<zanhost::TDatabase> FDatabase;

 private:
  int FTexts = 0;
};

}  // namespace

TEST_F(MariaDbShapes, GiveTheRowsNamesAndTypesOfTheStatementAsItStands) {
  TStatementGenerator generator(21, {.Columns = {"ID", "Name", "Flag", "Code", "Moment", "Amount", "Weight"},
                                     .Signs = {" = ", " <> ", " < ", " >= ", " <=> "},
                                     .TextType = "char(16)"});
  for (int i = 0; i < 2500; ++i) {
    const std::string text = generator.Statement();
    const TTable rows = RowsByText(text);
    // Sent as a text, prepared, found again.
    for (int time = 0; time < 3; ++time) ASSERT_EQ(Rows(text), rows) << text;
  }
  EXPECT_GT(Counter("COM_STMT_EXECUTE"), 4000);
}

TEST_F(MariaDbShapes, ComparisonsDoNotDependOnTheWayOfTheLiteral) {
  for (const std::string operand :
       {"ID", "Name", "Flag", "Code", "Moment", "Amount", "Weight", "Size", "Note", "1", "'1'", "(ID + 0)",
        "ifnull(Code, 1)", "concat(Code, '')", "-ID"})
    for (const std::string literal : {"1", "'1'", "'01'", "5", "'5.05'", "'x'", "-1", "''", "'2024-01-01'",
                                      "20240101", "'A'", "'a '", "'域'", "'\\'", "'😀'"}) {
      for (const std::string sign : {"=", ">"}) {
        const std::string text =
            "select ID from T where " + operand + " " + sign + " " + literal + " order by ID";
        EXPECT_EQ(Rows(text), RowsByText(text)) << text;
      }
      const std::string in =
          "select ID from T where " + operand + " in (" + literal + ", 'z', 7) order by ID";
      EXPECT_EQ(Rows(in), RowsByText(in)) << in;
    }
  EXPECT_GT(Counter("COM_STMT_EXECUTE"), 300);
}

TEST_F(MariaDbShapes, EachTypeOfAColumnIsReadAlike) {
  for (int round = 0; round < 3; ++round)
    for (int id = 1; id <= 6; ++id) {
      const std::string text =
          "select ID, Name, Flag, Code, Moment, Amount, Weight, Size, Note, now() > Moment, cast(Moment as "
          "date), "
          "ID / 3, Amount * 1.5, count(*) over () from T where ID = " +
          std::to_string(id);
      EXPECT_EQ(Rows(text), RowsByText(text)) << text;
    }
}

TEST_F(MariaDbShapes, WhatIsWrittenDoesNotDependOnTheWayOfTheLiteral) {
  const std::vector<std::string> literals{
      "1",  "'1'",  "0",   "'it''s'",  "''",     "'2024-02-30'", "'2024-02-29'",
      "-5", "'\\'", "'😀'", "20240229", "'1.555'"};
  int id = 0;
  for (const std::string column : {"Name", "Flag", "Code", "Moment", "Amount", "Weight", "Size", "Note"})
    for (const std::string& literal : literals) {
      ++id;
      const std::string rest = "(ID, " + column + ") values(" + std::to_string(id) + ", " + literal + ")";
      // The messages name the table.
      const std::string byText = FaultOf("/*" + std::to_string(id) + "*/insert into WrittenAsText" + rest);
      EXPECT_EQ(FaultOf("insert into Written" + rest) == "(no fault)", byText == "(no fault)")
          << rest << byText;
    }
  EXPECT_EQ(
      Rows("select a.ID, a.Name, a.Flag, a.Code, a.Moment, a.Amount, a.Weight, a.Size, a.Note from Written a "
           "order by 1"),
      Rows("select a.ID, a.Name, a.Flag, a.Code, a.Moment, a.Amount, a.Weight, a.Size, a.Note from "
           "WrittenAsText a order by 1"));
  EXPECT_GT(Counter("COM_STMT_EXECUTE"), 40);
}

TEST_F(MariaDbShapes, AShapeIsPreparedWhenItComesAgain) {
  const int before = Counter("COM_STMT_PREPARE");
  EXPECT_EQ(Rows("select Name from T where ID = 1")[1][0], "4:a");
  EXPECT_EQ(Counter("COM_STMT_PREPARE"), before);
  for (int round = 0; round < 3; ++round) EXPECT_EQ(Rows("select Name from T where ID = 2")[1][0], "4:b");
  EXPECT_EQ(Counter("COM_STMT_PREPARE"), before + 1);
}

TEST_F(MariaDbShapes, AFixedLiteralIsNotMistakenForAnother) {
  for (int round = 0; round < 4; ++round)
    for (const std::string limit : {"1", "2", "3"}) {
      const std::string text = "select ID, " + limit + " from T where ID > 1 order by 1 limit " + limit;
      EXPECT_EQ(Rows(text), RowsByText(text)) << text;
    }
}

TEST_F(MariaDbShapes, LongListsAreNotKept) {
  // What a session prepares stays on the server for as long as it is kept.
  const auto kept = [this] { return Counter("COM_STMT_PREPARE") - Counter("COM_STMT_CLOSE"); };
  const int before = kept();
  for (int round = 0; round < 2; ++round)
    for (int size = 17; size < 120; ++size) {
      std::string text = "select ID from T where ID in (0";
      for (int i = 1; i < size; ++i) text += ", " + std::to_string(i % 5);
      EXPECT_EQ(Rows(text + ") order by ID"), RowsByText(text + ") order by ID"));
    }
  EXPECT_EQ(kept(), before);
}

TEST_F(MariaDbShapes, ThePlaceThatTakesNoParameterTakesTheLiteral) {
  for (int round = 0; round < 4; ++round)
    for (const std::string day : {"2024-01-01", "2024-02-29"}) {
      const std::string text =
          "select ID from T where cast(Moment as date) = date '" + day + "' and Code <> ''";
      EXPECT_EQ(Rows(text), RowsByText(text)) << text;
      EXPECT_EQ(Rows(text).size(), 2U);
    }
}

TEST_F(MariaDbShapes, AFaultTellsTheStatementsOwnWords) {
  for (int round = 0; round < 4; ++round)
    EXPECT_NE(FaultOf("select ID from T where ID = 5 6").find("near '6'"), std::string::npos);
}

TEST_F(MariaDbShapes, TheSameTextMeansTheTableOfItsDatabase) {
  FDatabase->ExecScript(
      "create table Which (Name varchar(20)); insert into Which values ('data'); use shapes_system; "
      "create table Which (Name varchar(20)); insert into Which values ('system');");
  for (int round = 0; round < 4; ++round) {
    for (const bool onSystem : {false, true, true, false}) {
      const auto query = onSystem ? FDatabase->GetSysQuery() : FDatabase->GetQuery();
      query->SQL().SetText("select Name, database() from Which where Name <> '' and 1 = 1");
      query->Open();
      EXPECT_EQ(query->Fields(0).AsString(), onSystem ? "system" : "data");
      EXPECT_EQ(query->Fields(1).AsString(), onSystem ? "shapes_system" : "shapes");
    }
  }
}

TEST_F(MariaDbShapes, BackslashesOfARoleRenameAreHalvedInEachStatement) {
  FDatabase->ExecScript(
      "create table STUsers (OID int primary key, UserName varchar(50)); insert into STUsers values "
      "(1, '');");
  for (const std::string separator : {"-", "+", "\\\\", "/", "\\\\"}) {
    Execute(*FDatabase, "update STUsers set UserName = concat('a', '" + separator + "', 'b') where OID = 1");
    const std::string meant = separator == "\\\\" ? "\\" : separator;
    EXPECT_EQ(Text(*FDatabase, "select UserName from STUsers where OID = 1"), "a" + meant + "b");
  }
}

TEST_F(MariaDbShapes, NamedParametersStandBesideBoundLiterals) {
  for (const int id : {1, 2, 1}) {
    const auto query = FDatabase->GetQuery();
    query->SQL().SetText("select Name from T where ID in (:ID, 3) and Name = :Name and ID <> " +
                         std::to_string(10 + id) + " and ID = :ID");
    query->ParamByName("ID").AsInteger(id);
    query->ParamByName("Name").AsString(id == 1 ? "a" : "b");
    query->Open();
    EXPECT_EQ(query->Fields(0).AsString(), id == 1 ? "a" : "b");
  }
}

TEST_F(MariaDbShapes, WhatWasPreparedIsForgottenWithItsConnection) {
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(Rows("select Name from T where ID = 1")[1][0], "4:a");
    EXPECT_EQ(Rows("select Name from T where ID = 2")[1][0], "4:b");
    const auto other = zanhost::OpenDatabase(TMariaDbServer::Instance().Url("shapes", "shapes_system"),
                                             zanhost::TOpenMode::CreateIfMissing);
    Execute(*other, "kill " + Text(*FDatabase, "select connection_id()"));
    EXPECT_EQ(Rows("select Name from T where ID = 2")[0][0], "fault");
  }
}

}  // namespace zantest
