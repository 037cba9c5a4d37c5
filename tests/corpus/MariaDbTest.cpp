#include <gtest/gtest.h>

#include "host/platform/Schema.h"
#include "host/query/DataUrl.h"
#include "host/query/MariaDb/Connection.h"
#include "host/query/MariaDb/Fault.h"
#include "host/query/MariaDb/Handles.h"
#include "host/query/MariaDb/Rules.h"
#include "tests/corpus/Corpus.h"
#include "tests/support/MariaDbServer.h"

// Every statement that was sent to MySQL is prepared by a MariaDB server with the schema of MySQL.

namespace zantest {

using namespace zanhost;

namespace {

class TPreparer {
 public:
  TPreparer()
      : FUrl(TMariaDbServer::Instance().Url("corpus_data", "corpus_system")),
        FSchema(InstallSchema(*OpenDatabase(FUrl, TOpenMode::CreateIfMissing))),
        FConnection(ParseMariaDbUrl(FUrl)) {}

  /// The engine's message; empty when it takes the text.
  std::string FaultOf(const std::string& text, bool onSystem = false) {
    FConnection.Use(onSystem ? FConnection.Url().System : FConnection.Url().Data);
    try {
      // A call is prepared whatever it runs: its statements are prepared by themselves.
      const std::string statements = WithoutMultiSqlCall(text);
      for (TTokens& statement : SplitStatements(statements).Statements) Prepare(statement);
      return {};
    } catch (const TMariaDbFault& fault) {
      return fault.Message;
    }
  }

 private:
  void Prepare(TTokens& statement) {
    Adapt(statement, MariaDbRules());
    for (TToken& token : statement)
      if (token.Kind == TTokenKind::Parameter) token.Text = "?";
    if (statement.size() > 1 && statement[0].IsWord("call")) RequireRoutine(statement[1].Name());
    const std::string text = TokensToText(statement);
    const TMySqlStatementHandle handle(mysql_stmt_init(FConnection.Handle()));
    if (mysql_stmt_prepare(handle.get(), text.data(), text.size()) != 0) FConnection.Raise(handle.get());
  }

  void RequireRoutine(std::string_view name) {
    FConnection.Exec("show create procedure " + std::string(name));
  }

  std::string FUrl;
  int FSchema;
  TMariaDbConnection FConnection;
};

}  // namespace

TEST(MariaDb, PreparesWhatIsSentToMySql) {
  if (const std::string whyNot = WhyNoMariaDbServer(); !whyNot.empty()) GTEST_SKIP() << whyNot;
  TPreparer preparer;
  const std::vector<TCorpusStatement> statements = CorpusOf(zanrole::TDialect::MySql);
  EXPECT_GE(statements.size(), 90U);
  TFaults faults;
  for (const TCorpusStatement& statement : statements)
    faults.Add(statement, preparer.FaultOf(statement.Text, statement.OnSystem));
  EXPECT_EQ(faults.Report(), "");
}

TEST(MariaDb, RefusesWhatIsNoStatement) {
  if (const std::string whyNot = WhyNoMariaDbServer(); !whyNot.empty()) GTEST_SKIP() << whyNot;
  TPreparer preparer;
  EXPECT_NE(preparer.FaultOf("insert in to STUserGroup Values(1,2)"), "");
  EXPECT_NE(preparer.FaultOf("call MySql_execute_MultiSql('delete from STUsers;delete from STUser;')"), "");
  EXPECT_NE(preparer.FaultOf("call NoRoutine(1)"), "");
  EXPECT_NE(preparer.FaultOf("select NoColumn from STUsers"), "");
  EXPECT_NE(preparer.FaultOf("select OID from STUsers", /*onSystem*/ true), "");
  EXPECT_EQ(preparer.FaultOf("select NodeID from Tree where ObjectID = :ObjectID", /*onSystem*/ true), "");
}

}  // namespace zantest
