#include "tests/conformance/scenario/Runner.h"

#include <optional>

#include "Domain/U_DomainFuncsImp.h"
#include "tests/conformance/Conformance.h"
#include "tests/conformance/scenario/Options.h"
#include "tests/conformance/scenario/Questions.h"
#include "tests/conformance/scenario/World.h"

namespace zantest {

namespace {

class TRunner {
 public:
  explicit TRunner(zanhost::TDatabase& database) : FDatabase(database), FHost(std::in_place, database) {}

  void Take(const TOutlineLine& line) {
    if (FWorld.Add(line)) return;
    if (line.Words.front() == "login") return LogIn(line);
    if (line.Words.front() != "questions")
      throw line.Error("\"" + line.Words.front() + "\" begins nothing that a scenario holds");
    if (!FSomebodyAsks) throw line.Error("a line \"login LOGIN\" before the questions tells who asks them");
    FWorld.Flush();
    for (const TOutlineLine& question : line.Below) Ask(question);
  }

  TScenarioResult Result;

 private:
  /// A session of its own for each login: nothing that an earlier one read is known to it.
  void LogIn(const TOutlineLine& line) {
    const TOptions options(line, 2, {"super"}, {"domain"});
    FSomebodyAsks = true;
    FHost.reset();
    FHost.emplace(FDatabase);
    zanrole::TSystemInfo& login = FHost->SystemInfo();
    login.LoginUserID = line.Word(1, "the login");
    login.LoginUserOID = FWorld.Numbers().Find(line, login.LoginUserID, "account");
    login.IsSuperUser = options.Has("super");
    const std::string domain = options.Value("domain");
    if (!domain.empty())
      zanrole::TDomainFuncImpl::SetCurrentDomainID(FWorld.Numbers().Find(line, domain, "domain"));
  }

  void Ask(const TOutlineLine& line) {
    const TQuestion question = ReadQuestion(line, FWorld.Numbers());
    const std::string why = WhyNot(question, line);
    ++Result.Questions;
    if (!why.empty()) Result.WrongAnswers.push_back({line.Number, line.Text, why});
  }

  zanhost::TDatabase& FDatabase;
  TScenarioWorld FWorld;
  std::optional<TEngineHost> FHost;
  bool FSomebodyAsks = false;
};

}  // namespace

TScenarioResult RunScenario(zanhost::TDatabase& database, const std::string& file, const std::string& text) {
  const TOutlineLine outline = ReadOutline(file, text);
  TRunner runner(database);
  for (const TOutlineLine& line : outline.Below) runner.Take(line);
  if (runner.Result.Questions == 0) throw EScenarioError(file, 1, "the scenario asks no questions");
  return std::move(runner.Result);
}

}  // namespace zantest
