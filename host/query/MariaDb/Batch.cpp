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

/// Adapts the statements of a batch and joins them; false for a statement with a parameter, which no text can
/// hold.
bool JoinStatements(std::string_view batch, TJoinedStatements& joined) {
  TStatementReader reader(batch);
  TRecurringStatements<TUnchanged> recurring;
  TStatementShape shape;
  while (reader.Read(shape)) {
    TTokens tokens = Tokenize(shape.Text);
    const bool settled = shape.HasPlainLiterals && !RulesReadLiterals(tokens);
    if (HasParameters(tokens)) return false;
    const bool changed = Adapt(tokens, MariaDbRules());
    joined.Add(changed ? TokensToText(tokens) : shape.Text);
    if (changed || !settled) {
      recurring.Forget();
    } else {
      recurring.Note(shape, {});
    }
    while (recurring.Read(reader, shape)) joined.Add(shape.Text);
  }
  if (reader.LacksEnd()) throw TMariaDbFault{"The batch has a begin without an end.", "no end"};
  return true;
}

}  // namespace

void TMariaDbDatabase::ExecuteBatch(TRun& run, std::string_view batch) {
  UseDatabase(run);
  TJoinedStatements joined(batch.size() < kSureText ? kSureText : FConnection->GreatestText());
  joined.Add(kBeginTransaction);
  if (!JoinStatements(batch, joined)) return ExecuteStepByStep(run, batch);
  // Whether there is a result is known before the end.
  const bool wantsResult = run.Result != nullptr;
  if (!wantsResult) joined.Add(kCommitTransaction);
  TMariaDbTransaction transaction(*FConnection, TMariaDbTransaction::TBegunByText());
  for (const std::string& text : joined.Texts()) ExecuteText(run, text);
  if (!wantsResult) return transaction.NoteCommit();
  CheckThatBatchGaveResult(run);
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
