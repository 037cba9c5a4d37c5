#include <gtest/gtest.h>

#include <algorithm>
#include <boost/json.hpp>
#include <fstream>
#include <set>

#include "host/answers/PastingFunctions.h"
#include "host/query/Tokens.h"
#include "host/worker/FunctionSession.h"
#include "tests/host/FunctionValues.h"
#include "tests/host/InstalledSample.h"

// Which functions put a text of their caller into a statement as it stands: asked of the functions
// themselves.

namespace zantest {

namespace {

/// Stands in every text that a caller chooses or a table holds, and in no statement of the module.
constexpr std::string_view kMark = "zq";
/// With the quote left single, its second half stands outside of the literal.
constexpr std::string_view kQuotedMark = "zq'zq";
/// Texts of a caller: a literal that ends early in several ways, and a name that needs no quote to be one.
constexpr std::string_view kHostileTexts[]{kQuotedMark, "zq',zq", "zq\\'zq", "zq"};

/// Every text in the tables holds the mark from now on, also what a function reads to write it into its next
/// statement. The kind of an entry stays: the statements compare it with words of their own.
void MarkAllTexts(zanhost::TDatabase& database) {
  for (const std::string& table : Texts(database, "select name from sqlite_master where type = 'table'")) {
    const std::string columns = "select name from pragma_table_info('" + table +
                                "') where name <> 'Type' and (type like 'n%' or type = 'text')";
    for (const std::string& column : Texts(database, columns))
      Execute(database, "update " + table + " set " + column + " = " + column + " || 'zq''zq'");
  }
}

/// A session of a manager of the sample, whose statements can be read.
class TWatchedSession {
 public:
  TWatchedSession() {
    MarkAllTexts(FSample.Database());
    zanhost::TSessionOptions options =
        FSample.OptionsOf(FSample.Sample.ManagerLogin + std::string(kQuotedMark));
    options.Domain = std::stoi(Text(
        FSample.Database(), "select DomainID from STDomainMembers where MemberType = 2 and IsOwned = 0"));
    options.Trace = FTrace;
    FSession.emplace(options, [](const std::string&) {});
  }

  TFunctionValues ExistingValues() { return zantest::ExistingValues(FSample.Database()); }
  const std::vector<zanhost::TFunction>& Functions() { return FSession->Functions(); }

  /// The first output; none when the function failed.
  std::optional<std::string> Call(const std::string& name, const TFunctionValues& inputs) {
    try {
      return FSession->Call(name, {inputs.begin(), inputs.end()}).Out.at(0).second;
    } catch (const zanrole::EZanError&) {
      return std::nullopt;
    }
  }

  /// The statements since the last call of this.
  std::vector<std::string> Statements() {
    std::ifstream file(FTrace);
    file.seekg(FRead);
    std::vector<std::string> statements;
    for (std::string line; std::getline(file, line); FRead = file.tellg())
      statements.emplace_back(boost::json::parse(line).at("text").as_string());
    return statements;
  }

 private:
  TInstalledSample FSample;
  std::filesystem::path FTrace = FSample.Folder() / "trace.jsonl";
  std::streamoff FRead = 0;
  std::optional<zanhost::TFunctionSession> FSession;
};

bool HoldsMarkOutsideLiterals(const std::string& statement) {
  const zanhost::TTokens tokens = zanhost::Tokenize(statement);
  return std::any_of(tokens.begin(), tokens.end(), [](const zanhost::TToken& token) {
    const bool literal =
        token.Kind == zanhost::TTokenKind::Text || token.Kind == zanhost::TTokenKind::NationalText;
    return !literal && token.Text.find(kMark) != std::string_view::npos;
  });
}

bool PastedSince(TWatchedSession& session) {
  const std::vector<std::string> statements = session.Statements();
  return std::any_of(statements.begin(), statements.end(), HoldsMarkOutsideLiterals);
}

/// Calls the function with what exists, and with a hostile text in the place of each value. Inputs that it
/// does not declare are given, too: a function may read them all the same.
bool PastesWhatItIsGiven(TWatchedSession& session, const std::string& name, const TFunctionValues& existing) {
  session.Call(name, existing);
  bool pastes = PastedSince(session);
  for (const auto& [input, value] : existing) {
    for (const std::string_view hostile : kHostileTexts) {
      TFunctionValues inputs = existing;
      inputs[input] = hostile;
      session.Call(name, inputs);
      pastes = PastedSince(session) || pastes;
    }
  }
  return pastes;
}

}  // namespace

TEST(PastingFunctions, AreThoseWhoseStatementsShowATextOfTheCallerOutsideALiteral) {
  TWatchedSession session;
  const TFunctionValues existing = session.ExistingValues();
  std::set<std::string> pasting;
  std::set<std::string> listed;
  for (const zanhost::TFunction* function : SystemFunctions(session.Functions())) {
    if (PastesWhatItIsGiven(session, function->Name, existing)) pasting.insert(function->Name);
    if (zanhost::PastesText(function->Name)) listed.insert(function->Name);
  }
  EXPECT_EQ(listed, pasting);
  EXPECT_EQ(listed.size(), 9u) << "a name in the list is no function";
}

TEST(PastingFunctions, AreLookedForInCallsThatReachTheLastStatement) {
  TWatchedSession session;
  const TFunctionValues existing = session.ExistingValues();
  for (const zanhost::TFunction* function : SystemFunctions(session.Functions())) {
    const zanrole::TFuncParamList& inputs = function->Info->InParams;
    for (const zanrole::TFuncParam& input : inputs)
      EXPECT_TRUE(existing.contains(input.Name)) << function->Name << " has an unknown input " << input.Name;
    if (inputs.begin() == inputs.end() || zanhost::PastesText(function->Name)) continue;
    session.Statements();
    const std::optional<std::string> answer = session.Call(function->Name, existing);
    // The last statement of this one is refused by every database.
    const bool failsAtTheEnd = function->Name == "RoleUnderlingAllEx";
    EXPECT_EQ(answer.has_value(), !failsAtTheEnd) << function->Name;
    EXPECT_NE(answer.value_or("failed"), "") << function->Name;
    EXPECT_FALSE(session.Statements().empty()) << function->Name;
  }
}

TEST(PastingFunctions, AreNotFoundByAnotherSpelling) {
  EXPECT_TRUE(zanhost::PastesText("GetDomainInfo"));
  EXPECT_FALSE(zanhost::PastesText("getdomaininfo"));
  EXPECT_FALSE(zanhost::PastesText("GetDomainInf"));
  EXPECT_FALSE(zanhost::PastesText(""));
}

}  // namespace zantest
