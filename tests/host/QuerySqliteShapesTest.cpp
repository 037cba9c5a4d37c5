#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <functional>

#include "host/query/Sqlite/SqliteDatabase.h"
#include "tests/host/StatementGenerator.h"
#include "tests/support/TemporaryFolder.h"

namespace zantest {

using testing::HasSubstr;
using zanhost::TOpenMode;

namespace {

using TTable = std::vector<std::vector<std::string>>;

/// The type and the value of a cell, as the two ways must agree on both.
std::string Described(const zanrole::TZanValue& value) {
  return std::to_string(value.index()) + ":" + zanrole::ValueAsString(value);
}

constexpr const char* kTables = R"(
create table T (ID int not null, Name nvarchar(50), Flag bit, Code text, Loose, primary key (ID)) without rowid;
create unique index T_Login on T (Name) where Flag = 0 and Name <> '';
insert into T values (1, 'a', 0, '1', 1), (2, 'b', 1, '2', '1'), (3, '', 0, '01', 1.5), (4, 'it''s', 0, null, null),
                     (5, '域', 1, '5', 'x'), (6, null, null, '', -1);
)";

/// The same statement by the query object and by SQLite as it stands, on tables alike.
class SqliteShapes : public testing::Test {
 protected:
  SqliteShapes() {
    FDatabase.ExecScript(kTables);
    sqlite3_open(":memory:", &FBare);
    sqlite3_exec(FBare, kTables, nullptr, nullptr, nullptr);
    sqlite3_exec(FBare, "pragma case_sensitive_like = on", nullptr, nullptr, nullptr);
  }
  ~SqliteShapes() override { sqlite3_close(FBare); }

  TTable Rows(const std::string& text) {
    const auto query = FDatabase.GetQuery();
    query->SQL().SetText(text);
    query->Open();
    TTable rows(1);
    for (int i = 0; i < query->DataSet().FieldCount(); ++i) rows[0].push_back(query->Fields(i).Name());
    for (; !query->Eof(); query->Next()) {
      rows.emplace_back();
      for (int i = 0; i < query->DataSet().FieldCount(); ++i)
        rows.back().push_back(Described(query->Fields(i).Value()));
    }
    return rows;
  }

  TTable BareRows(const std::string& text) {
    sqlite3_stmt* statement = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(FBare, text.c_str(), -1, &statement, nullptr), SQLITE_OK) << text;
    const int columns = sqlite3_column_count(statement);
    TTable rows(1);
    for (int i = 0; i < columns; ++i) rows[0].push_back(sqlite3_column_name(statement, i));
    while (sqlite3_step(statement) == SQLITE_ROW) {
      rows.emplace_back();
      for (int i = 0; i < columns; ++i) rows.back().push_back(Described(BareValue(statement, i)));
    }
    sqlite3_finalize(statement);
    return rows;
  }

  static zanrole::TZanValue BareValue(sqlite3_stmt* statement, int column) {
    switch (sqlite3_column_type(statement, column)) {
      case SQLITE_INTEGER:
        return std::int64_t{sqlite3_column_int64(statement, column)};
      case SQLITE_FLOAT:
        return sqlite3_column_double(statement, column);
      case SQLITE_NULL:
        return std::monostate{};
      default:
        return std::string(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)));
    }
  }

  void Exec(const std::string& text) {
    const auto query = FDatabase.GetQuery();
    query->SQL().SetText(text);
    query->ExecSQL();
  }

  TTemporaryFolder FFolder;
  zanhost::TSqliteDatabase FDatabase{FFolder.Path().string(), TOpenMode::CreateIfMissing};
  sqlite3* FBare = nullptr;
};

}  // namespace

TEST_F(SqliteShapes, GiveTheRowsNamesAndTypesOfTheStatementAsItStands) {
  TStatementGenerator generator(20, {.Columns = {"ID", "Name", "Flag", "Code", "Loose"},
                                     .Signs = {" = ", " <> ", " < ", " >= ", " is "},
                                     .TextType = "varchar(16)"});
  for (int i = 0; i < 4000; ++i) {
    const std::string text = generator.Statement();
    ASSERT_EQ(Rows(text), BareRows(text)) << text;
  }
}

TEST_F(SqliteShapes, KeepTheAffinityOfAComparison) {
  for (const std::string literal : {"1", "'1'", "'01'", "2", "'x'", "-1", "''"}) {
    for (const std::string operand :
         {"ID", "Name", "Flag", "Code", "Loose", "1", "'1'", "(ID + 0)", "ifnull(Code, 1)"}) {
      const std::string text = "select ID from T where " + operand + " = " + literal + " order by ID";
      EXPECT_EQ(Rows(text), BareRows(text)) << text;
      const std::string in = "select ID from T where " + operand + " in (" + literal + ", 'z') order by ID";
      EXPECT_EQ(Rows(in), BareRows(in)) << in;
    }
  }
}

TEST_F(SqliteShapes, AConditionOfAPartialIndexMayBeWrittenWithOtherValues) {
  for (const std::string flag : {"0", "1", "0"})
    for (const std::string name : {"''", "'a'", "'b'"}) {
      const std::string text = "select ID from T where Flag = " + flag + " and Name <> '' and Name = " + name;
      EXPECT_EQ(Rows(text), BareRows(text)) << text;
    }
}

TEST_F(SqliteShapes, AChangedLiteralChangesWhatIsWritten) {
  for (int id = 100; id < 400; ++id)
    Exec("insert into T(ID, Name, Flag) values(" + std::to_string(id) + ", 'n''" + std::to_string(id) +
         "', 1)");
  EXPECT_EQ(Rows("select count(distinct Name), min(length(Name)), sum(ID) from T where ID >= 100")[1],
            (std::vector<std::string>{"1:300", "1:5", "1:74850"}));
}

TEST_F(SqliteShapes, AFixedLiteralIsNotMistakenForAnother) {
  for (int round = 0; round < 3; ++round) {
    for (const char* const limit : {"1", "2", "3"}) {
      const std::string text =
          std::string("select ID, ") + limit + " from T where ID > 1 order by 1 limit " + limit;
      EXPECT_EQ(Rows(text), BareRows(text)) << text;
    }
  }
}

TEST_F(SqliteShapes, ARepeatedTextAndAChangingOneOfItsShapeDoNotDisturbEachOther) {
  for (int round = 0; round < 5; ++round) {
    EXPECT_EQ(Rows("select Name from T where ID = 1")[1][0], "4:a");
    EXPECT_EQ(Rows("select Name from T where ID = 1")[1][0], "4:a");
    EXPECT_EQ(Rows("select Name from T where ID = 2")[1][0], "4:b");
  }
}

TEST_F(SqliteShapes, StatementsOfManyShapesWithOneBeginningAreToldApart) {
  for (int round = 0; round < 4; ++round) {
    for (int shape = 0; shape < 12; ++shape) {
      const std::string text = "select ID, Name from T where ID >= " + std::to_string(round) + " and ID <> " +
                               std::to_string(shape) + std::string(static_cast<std::size_t>(shape), ' ') +
                               " order by ID";
      EXPECT_EQ(Rows(text), BareRows(text)) << text;
    }
  }
}

TEST_F(SqliteShapes, WhatIsFixedInARepeatedStatementIsNotMistaken) {
  for (const int round : {1, 2, 3, 4}) {
    for (const char* const last : {"1", "1, 2", "12"}) {
      const std::string text =
          "select ID, Name, Code from T where ID <> " + std::to_string(round) + " order by 1 limit " + last;
      EXPECT_EQ(Rows(text), BareRows(text)) << text;
    }
  }
}

TEST_F(SqliteShapes, NamedParametersStandBesideBoundLiterals) {
  for (const int id : {1, 2}) {
    const auto query = FDatabase.GetQuery();
    query->SQL().SetText("select Name from T where ID in (:ID, 3) and Name = :Name and ID <> " +
                         std::to_string(10 + id) + " and ID = :ID");
    query->ParamByName("ID").AsInteger(id);
    query->ParamByName("Name").AsString(id == 1 ? "a" : "b");
    query->Open();
    EXPECT_EQ(query->Fields(0).AsString(), id == 1 ? "a" : "b");
  }
}

TEST_F(SqliteShapes, AFaultTellsTheStatementsOwnWords) {
  try {
    Exec("select ID from T where ID = 5 6");
    FAIL();
  } catch (const zanrole::EDatabaseError& error) {
    EXPECT_THAT(error.Message(), HasSubstr("near \"6\""));
  }
}

TEST_F(SqliteShapes, ABatchWithoutItsEndLeavesNothing) {
  EXPECT_THROW(Exec("begin delete from T; delete from T where ID = 1;"), zanrole::EDatabaseError);
  EXPECT_EQ(Rows("select count(*) from T")[1][0], "1:6");
}

TEST_F(SqliteShapes, LongListsGiveTheirRows) {
  for (int size = 1; size < 200; size += 7) {
    std::string text = "select ID from T where ID in (0";
    for (int i = 1; i < size; ++i) text += ", " + std::to_string(i % 5);
    text += ") order by ID";
    EXPECT_EQ(Rows(text), BareRows(text));
  }
}

}  // namespace zantest
