#include "host/query/Odbc/OdbcDatabase.h"
#include "host/query/Parameters.h"

namespace zanhost {

using zanrole::TZANQuery;
using zanrole::TZanValue;

namespace {

/// Longer texts are lists of values that rarely come again.
constexpr std::size_t kGreatestCachedText = 16'384;

/// The statements between begin and end.
std::string BlockOf(const TStatementTexts& texts) {
  std::string block = "begin\n";
  for (const TTokens& statement : texts.Statements) block += TokensToText(statement) + ";\n";
  return block + "end";
}

/// Frees the connection for other statements when a prepared one has run.
class TClosing {
 public:
  explicit TClosing(TOdbcStatement& statement) : FStatement(statement) {}
  ~TClosing() { FStatement.Close(); }
  TClosing(const TClosing&) = delete;
  TClosing& operator=(const TClosing&) = delete;

 private:
  TOdbcStatement& FStatement;
};

}  // namespace

void TOdbcDatabase::Run(TZANQuery& query, bool onSystem, zanrole::TDataSet* result) {
  TRun run{query, onSystem, query.SQL().Text(), result, FConnection->RoundTrips()};
  try {
    FConnection->Telling([&] { Execute(run); });
  } catch (const TOdbcFault& fault) {
    FailRun(run, FTrace, FConnection->RoundTrips(), {fault.Message, fault.Kind, fault.QuotesValues});
  }
  EndRun(run, FTrace, FConnection->RoundTrips());
}

void TOdbcDatabase::UseDatabase(const std::string& database) {
  if (FConnection->IsLost()) FCache.Clear();
  FConnection->Use(database);
}

void TOdbcDatabase::Execute(TRun& run) {
  if (run.Text.find('\0') != std::string::npos)
    throw TOdbcFault{"The statement holds a zero character, which the driver takes for its end.",
                     "zero character"};
  const std::string& database = run.OnSystem ? FConnection->System() : FConnection->Data();
  UseDatabase(database);
  const TOdbcRun interruptible(*FConnection);
  // What a name means depends on the database in which the statement was prepared.
  std::string key = database + "\n" + run.Text;
  if (const std::shared_ptr<TPrepared>* kept = FCache.Find(key)) {
    ExecutePrepared(run, **kept);
  } else {
    TStatementTexts texts = SplitStatements(run.Text);
    if (texts.Statements.empty()) throw TOdbcFault{"There is no statement.", "no statement"};
    if (texts.IsBatch) return ExecuteBatch(run, texts);
    ExecuteStatement(run, texts.Statements.front(), std::move(key));
  }
  if (run.Result != nullptr && !run.HasResult)
    throw TOdbcFault{"The statement gives no result.", "no result"};
}

void TOdbcDatabase::ExecuteBatch(TRun& run, TStatementTexts& texts) {
  TOdbcTransaction transaction(*FConnection);
  if (FConnection->Server().Batches == TOdbcBatchWay::OneCall) {
    const std::string block = BlockOf(texts);
    TTokens tokens = Tokenize(block);
    ExecuteStatement(run, tokens, {});
  } else {
    for (TTokens& tokens : texts.Statements) ExecuteStatement(run, tokens, {});
  }
  if (run.Result != nullptr && !run.HasResult)
    throw TOdbcFault{"None of the statements gives a result.", "no result"};
  transaction.Commit();
}

void TOdbcDatabase::ExecuteStatement(TRun& run, TTokens& tokens, std::string key) {
  const TOdbcServer& server = FConnection->Server();
  const std::string text = server.Adapt(tokens);
  TTokens adapted = Tokenize(text);
  const bool maybeSeveral = server.MayHaveSeveralAnswers(adapted);
  std::vector<std::string> paramNames = TakeParameters(adapted);
  if (paramNames.empty()) return ExecuteText(run, text, maybeSeveral);
  const auto prepared = std::make_shared<TPrepared>(
      TPrepared{FConnection->NewStatement(), TokensToText(adapted), std::move(paramNames), maybeSeveral});
  FConnection->Running(*prepared->Statement, [&] { prepared->Statement->Prepare(prepared->Sent); });
  const bool kept = !key.empty() && key.size() <= kGreatestCachedText && !ListsAllColumns(adapted);
  if (kept) FCache.Add(std::move(key), prepared);
  ExecutePrepared(run, *prepared);
}

void TOdbcDatabase::ExecuteText(TRun& run, const std::string& text, bool mayHaveSeveralAnswers) {
  NoteSent(run, text);
  const auto statement = FConnection->NewStatement();
  FConnection->Running(*statement, [&] { statement->Execute(text); });
  ReadAnswers(run, *statement, mayHaveSeveralAnswers);
}

void TOdbcDatabase::ExecutePrepared(TRun& run, TPrepared& prepared) {
  static const TZanValue kNull;
  NoteSent(run, prepared.Sent);
  std::vector<const TZanValue*> values;
  for (const std::string& name : prepared.ParamNames) {
    const zanrole::TParam* const param = run.Query.Params().Find(name);
    values.push_back(param != nullptr ? &param->Value() : &kNull);
  }
  TOdbcStatement& statement = *prepared.Statement;
  const TClosing closing(statement);
  FConnection->Running(statement, [&] { statement.Execute(values); });
  ReadAnswers(run, statement, prepared.MayHaveSeveralAnswers);
}

void TOdbcDatabase::ReadAnswers(TRun& run, TOdbcStatement& statement, bool mayBeSeveral) {
  do {
    const bool wanted = run.Result != nullptr && !run.HasResult;
    TOdbcAnswer answer = statement.ReadAnswer(wanted);
    run.Changed += answer.Changed;
    if (!wanted || answer.Columns.empty()) continue;
    run.Result->Load(answer.Columns, std::move(answer.Cells));
    run.HasResult = true;
  } while (mayBeSeveral && statement.NextAnswer());
}

void TOdbcDatabase::NoteSent(TRun& run, const std::string& text) const {
  if (FTrace != nullptr) zanhost::NoteSent(run, text);
}

}  // namespace zanhost
