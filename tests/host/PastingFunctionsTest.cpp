#include <gtest/gtest.h>

#include <algorithm>
#include <boost/json.hpp>
#include <fstream>
#include <map>
#include <set>

#include "host/answers/PastingFunctions.h"
#include "host/query/Tokens.h"
#include "host/worker/FunctionSession.h"
#include "tests/host/InstalledSample.h"

// Which functions put a text of their caller into a statement as it stands: asked of the functions
// themselves.

namespace zantest {

namespace {

using TInputs = std::map<std::string, std::string>;

/// Stands in every text that a caller chooses or a table holds, and in no statement of the module.
constexpr std::string_view kMark = "zq";
/// With the quote left single, its second half stands outside of the literal.
constexpr std::string_view kQuotedMark = "zq'zq";
/// Texts of a caller: a literal that ends early in several ways, and a name that needs no quote to be one.
constexpr std::string_view kHostileTexts[]{kQuotedMark, "zq',zq", "zq\\'zq", "zq"};

std::vector<std::string> Column(zanhost::TDatabase& database, const std::string& statement) {
  const auto query = database.GetQuery();
  query->SQL().SetText(statement);
  std::vector<std::string> values;
  for (query->Open(); !query->Eof(); query->Next()) values.push_back(query->Fields(0).AsString());
  return values;
}

/// Every text in the tables holds the mark from now on, also what a function reads to write it into its next
/// statement. The kind of an entry stays: the statements compare it with words of their own.
void MarkAllTexts(zanhost::TDatabase& database) {
  for (const std::string& table : Column(database, "select name from sqlite_master where type = 'table'")) {
    const std::string columns = "select name from pragma_table_info('" + table +
                                "') where name <> 'Type' and (type like 'n%' or type = 'text')";
    for (const std::string& column : Column(database, columns))
      Execute(database, "update " + table + " set " + column + " = " + column + " || 'zq''zq'");
  }
}

// clang-format off

/// A login whose position has others above and below it on the map.
constexpr char kPersonOnMap[] =
    "select p.Code from PartyH p inner join PositionMapH m on m.PositionID = p.Parent"
    " inner join PositionMapH above on above.Djlsh = m.UpperPosition and above.PositionID > 0"
    " inner join PositionMapH below on below.UpperPosition = m.Djlsh"
    " inner join PartyH boss on boss.Parent = above.PositionID"
    " inner join PartyH worker on worker.Parent = below.PositionID"
    " inner join UserH u on u.code = p.Code and u.ObjID = p.DjLsh"
    " where p.Type = 'User' and m.MapID = (select min(MapId) from PositionMapH where PositionID = -1)";

constexpr char kDepartmentWithManager[] =
    "select d.Code from PartyH d inner join PartyH p on p.Parent = d.DjLsh"
    " inner join PositionEntityH e on e.ObjID = p.DjLsh and e.isManager = 1"
    " inner join PartyH u on u.Parent = p.DjLsh where d.Type = 'Department'";

constexpr char kPositionWithHolder[] =
    "select e.Code from PositionEntityH e inner join PartyH u on u.Parent = e.ObjID where u.Type = 'User'";

// clang-format on

/// A session of a manager of the sample, whose statements can be read.
class TWatchedSession {
 public:
  TWatchedSession() {
    MarkAllTexts(FSample.Database());
    zanhost::TSessionOptions options =
        FSample.OptionsOf(FSample.Sample.ManagerLogin + std::string(kQuotedMark));
    options.Domain =
        std::stoi(First("select DomainID from STDomainMembers where MemberType = 2 and IsOwned = 0"));
    options.Trace = FTrace;
    FSession.emplace(options, [](const std::string&) {});
  }

  std::string First(const std::string& statement) { return Column(FSample.Database(), statement).at(0); }
  const std::vector<zanhost::TFunction>& Functions() { return FSession->Functions(); }

  /// The first output; none when the function failed.
  std::optional<std::string> Call(const std::string& name, const TInputs& inputs) {
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

/// A value for each input that a function of the module declares, with which it gets as far as it can.
TInputs ExistingValues(TWatchedSession& session) {
  const std::string person = session.First(kPersonOnMap);
  return {{"当前用户", person},
          {"用户号", person},
          {"用户号集", person + "," + session.First("select code from UserH where ObjID > 0")},
          {"岗位号", session.First(kPositionWithHolder)},
          {"岗位关系图",
           session.First("select PositionName from PositionMapH where PositionID = -1 order by MapId")},
          {"ParentCode", session.First(kDepartmentWithManager)},
          {"域ID", session.First("select ID from STDomains")},
          {"域代码", session.First("select Code from STDomains")},
          {"域节点代码", session.First("select FullCode from STDomains")},
          {"域名称", session.First("select Name from STDomains")},
          {"返回内容", ""},
          {"查询范围", "域范围,所属域,当前域"},
          {"是否包含下级域", "true"},
          {"查询条件", ""}};
}

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
bool PastesWhatItIsGiven(TWatchedSession& session, const std::string& name, const TInputs& existing) {
  session.Call(name, existing);
  bool pastes = PastedSince(session);
  for (const auto& [input, value] : existing) {
    for (const std::string_view hostile : kHostileTexts) {
      TInputs inputs = existing;
      inputs[input] = hostile;
      session.Call(name, inputs);
      pastes = PastedSince(session) || pastes;
    }
  }
  return pastes;
}

std::vector<zanhost::TFunction const*> SystemFunctions(TWatchedSession& session) {
  std::vector<zanhost::TFunction const*> functions;
  for (const zanhost::TFunction& function : session.Functions())
    if (function.Type == zanrole::TFuncType::System) functions.push_back(&function);
  return functions;
}

}  // namespace

TEST(PastingFunctions, AreThoseWhoseStatementsShowATextOfTheCallerOutsideALiteral) {
  TWatchedSession session;
  const TInputs existing = ExistingValues(session);
  std::set<std::string> pasting;
  std::set<std::string> listed;
  for (const zanhost::TFunction* function : SystemFunctions(session)) {
    if (PastesWhatItIsGiven(session, function->Name, existing)) pasting.insert(function->Name);
    if (zanhost::PastesText(function->Name)) listed.insert(function->Name);
  }
  EXPECT_EQ(listed, pasting);
  EXPECT_EQ(listed.size(), 9u) << "a name in the list is no function";
}

TEST(PastingFunctions, AreLookedForInCallsThatReachTheLastStatement) {
  TWatchedSession session;
  const TInputs existing = ExistingValues(session);
  for (const zanhost::TFunction* function : SystemFunctions(session)) {
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
