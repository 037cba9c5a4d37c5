#include <optional>

#include "host/query/Adaptation.h"
#include "host/query/MariaDb/MariaDbDatabase.h"
#include "host/query/MariaDb/Rules.h"
#include "host/query/RecurringStatements.h"

namespace zanhost {

namespace {

/// Every server takes texts of this length; longer ones are worth the question how long they may be.
constexpr std::size_t kSureText = 512 * 1024;

/// Statements as texts of several, each no longer than the server takes.
class TJoinedStatements {
 public:
  explicit TJoinedStatements(std::size_t greatest) : FGreatest(greatest) {}

  void Add(std::string_view statement) {
    static constexpr std::string_view kBetween = ";\n";
    if (FTexts.empty() || FTexts.back().size() + kBetween.size() + statement.size() > FGreatest) {
      FTexts.emplace_back(statement);
    } else {
      FTexts.back().append(kBetween).append(statement);
    }
  }

  const std::vector<std::string>& Texts() const { return FTexts; }

 private:
  std::size_t FGreatest;
  std::vector<std::string> FTexts;
};

/// The rules leave each statement of a shape as it is.
struct TUnchanged {};

void CheckEnd(const TStatementReader& reader) {
  if (reader.LacksEnd()) throw TMariaDbFault{"The batch has a begin without an end.", "no end"};
}

/// Adapts the statements of a batch and joins them; false for a statement with a parameter, which no text can
/// hold.
bool JoinStatements(std::string_view batch, std::span<const TAdaptationRule> rules,
                    TJoinedStatements& joined) {
  TStatementReader reader(batch);
  TRecurringStatements<TUnchanged> recurring;
  TStatementShape shape;
  while (reader.Read(shape)) {
    TTokens tokens = Tokenize(shape.Text);
    const bool settled = shape.HasPlainLiterals && !RulesReadLiterals(tokens);
    if (HasParameters(tokens)) return false;
    const bool changed = Adapt(tokens, rules);
    joined.Add(changed ? TokensToText(tokens) : shape.Text);
    if (changed || !settled) {
      recurring.Forget();
    } else {
      recurring.Note(shape, {});
    }
    while (recurring.Read(reader, shape)) joined.Add(shape.Text);
  }
  CheckEnd(reader);
  return true;
}

/// The batch between begin and end, whether it has them or not.
std::string BlockOf(std::string_view batch) {
  std::string block = "begin\n";
  TStatementReader reader(batch);
  for (TStatementShape shape; reader.Read(shape);) block.append(shape.Text).append(";\n");
  CheckEnd(reader);
  return block += "end";
}

}  // namespace

void TMariaDbDatabase::ExecuteBatch(TRun& run, std::string_view batch) {
  UseDatabase(run);
  TJoinedStatements joined(GreatestTextFor(batch));
  joined.Add(kBeginTransaction);
  if (!JoinStatements(batch, FFlavour.Rules(), joined)) return ExecuteStepByStep(run, batch);
  // Whether there is a result is known before the end.
  if (run.Result == nullptr) joined.Add(kCommitTransaction);
  ExecuteTransaction(run, joined.Texts());
}

std::size_t TMariaDbDatabase::GreatestTextFor(std::string_view batch) {
  return batch.size() < kSureText ? kSureText : FConnection->GreatestText();
}

void TMariaDbDatabase::ExecuteTransaction(TRun& run, const std::vector<std::string>& texts) {
  TMariaDbTransaction transaction(*FConnection, TMariaDbTransaction::TBegunByText());
  for (const std::string& text : texts) ExecuteText(run, text);
  if (run.Result == nullptr) return transaction.NoteCommit();
  CheckThatBatchGaveResult(run);
  transaction.Commit();
}

void TMariaDbDatabase::ExecuteBlock(TRun& run) {
  UseDatabase(run);
  const std::string block = BlockOf(run.Text);
  TTokens tokens = Tokenize(block);
  Adapt(tokens, FFlavour.Rules());
  if (!HasParameters(tokens)) {
    TJoinedStatements joined(GreatestTextFor(run.Text));
    joined.Add(kBeginTransaction);
    joined.Add(TokensToText(tokens));
    if (run.Result == nullptr) joined.Add(kCommitTransaction);
    return ExecuteTransaction(run, joined.Texts());
  }
  TMariaDbTransaction transaction(*FConnection);
  TMariaDbPrepared statement;
  NoteSent(run, TokensToText(tokens));
  FillIn(statement, tokens, {});
  ExecutePrepared(run, statement);
  if (run.Result != nullptr) CheckThatBatchGaveResult(run);
  transaction.Commit();
}

void TMariaDbDatabase::ExecuteStepByStep(TRun& run, std::string_view batch) {
  TMariaDbTransaction transaction(*FConnection);
  TStatementReader reader(batch);
  while (reader.Read(FShape)) ExecuteSingle(run);
  if (run.Result != nullptr) CheckThatBatchGaveResult(run);
  transaction.Commit();
}

void TMariaDbDatabase::CheckThatBatchGaveResult(const TRun& run) {
  if (!run.HasResult) throw TMariaDbFault{"None of the statements gives a result.", "no result"};
}

}  // namespace zanhost
