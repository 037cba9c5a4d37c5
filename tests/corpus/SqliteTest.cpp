#include <gtest/gtest.h>

#include <algorithm>

#include "host/platform/Schema.h"
#include "host/query/DataUrl.h"
#include "host/query/Sqlite/Connection.h"
#include "host/query/Sqlite/Fault.h"
#include "host/query/Sqlite/Rules.h"
#include "tests/corpus/Corpus.h"
#include "tests/support/TemporaryFolder.h"

// Every statement that was sent to SQL Server is prepared by the embedded database, which runs them.

namespace zantest {

using namespace zanhost;

namespace {

/// The helper of SQL Server writes "if @@ROWCOUNT = 0 STATEMENT", where that of the embedded database writes
/// the condition into the statement: what is left is common to both.
void DropCondition(TTokens& statement) {
  if (statement.empty() || !statement[0].IsWord("if")) return;
  const auto number = std::find_if(statement.begin(), statement.end(),
                                   [](const TToken& token) { return token.Kind == TTokenKind::Number; });
  if (number != statement.end()) statement.erase(statement.begin(), number + 1);
}

/// The helper of SQL Server writes "select top 1", where that of the embedded database writes "limit 1"
/// behind the select.
void DropFirstRow(TTokens& statement) {
  if (statement.size() > 2 && statement[1].IsWord("top"))
    statement.erase(statement.begin() + 1, statement.begin() + 3);
}

class TPreparer {
 public:
  TPreparer()
      : FUrl("sqlite:" + FFolder.Path().string()),
        FSchema(InstallSchema(*OpenDatabase(FUrl, TOpenMode::CreateIfMissing))),
        FConnection((FFolder / "zanrole.db").string(), TOpenMode::MustExist) {}

  /// The engine's message; empty when it takes the text.
  std::string FaultOf(const std::string& text) {
    try {
      for (TTokens& statement : SplitStatements(text).Statements) Prepare(statement);
      return {};
    } catch (const TSqliteFault& fault) {
      return fault.Message;
    }
  }

 private:
  void Prepare(TTokens& statement) {
    FConnection.Exec("begin");
    TAddedColumn added;
    if (AddsColumn(statement, added))
      FConnection.Exec(("alter table " + added.Table + " drop column " + added.Column).c_str());
    DropCondition(statement);
    DropFirstRow(statement);
    Adapt(statement, SqliteRules());
    try {
      FConnection.Prepare(TokensToText(statement), false);
    } catch (const TSqliteFault&) {
      FConnection.Exec("rollback");
      throw;
    }
    FConnection.Exec("rollback");
  }

  TTemporaryFolder FFolder;
  std::string FUrl;
  int FSchema;
  TSqliteConnection FConnection;
};

}  // namespace

TEST(Sqlite, PreparesWhatIsSentToSqlServer) {
  TPreparer preparer;
  const std::vector<TCorpusStatement> statements = CorpusOf(zanrole::TDialect::SqlServer);
  EXPECT_GE(statements.size(), 150U);
  TFaults faults;
  for (const TCorpusStatement& statement : statements)
    faults.Add(statement, preparer.FaultOf(statement.Text));
  EXPECT_EQ(faults.Report(), "");
}

TEST(Sqlite, RefusesWhatIsNoStatement) {
  TPreparer preparer;
  EXPECT_NE(preparer.FaultOf("insert in to STUserGroup Values(1,2)"), "");
  EXPECT_NE(preparer.FaultOf("begin\r\ndelete from STUsers;\r\ndelete from STUser;\r\nend;"), "");
  EXPECT_NE(preparer.FaultOf("select NoColumn from STUsers"), "");
  EXPECT_EQ(preparer.FaultOf("alter table STUsers add Creator int"), "");
  EXPECT_EQ(preparer.FaultOf("select Creator from STUsers where OID = :OID"), "");
}

}  // namespace zantest
