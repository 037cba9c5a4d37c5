#include "host/platform/Sample.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/platform/RowWriter.h"
#include "host/platform/SampleAccounts.h"
#include "host/platform/SampleDomains.h"
#include "host/platform/SampleMenus.h"
#include "host/platform/SampleOrganisation.h"
#include "host/platform/SampleRights.h"
#include "host/platform/SampleWriter.h"

namespace zanhost {

namespace {

constexpr std::string_view kFilledTables[] = {"STUsers",        "PartyH", "UserH", "STDomains", "Tree",
                                              "ObjectRegister", "DjDy",   "CxDy",  "WebMenu",   "OA_MenusH"};

void Execute(TDatabase& database, std::string_view statement) {
  const auto query = database.GetQuery();
  query->SQL().SetText(std::string(statement));
  query->ExecSQL();
}

struct TWholeStatements {
  std::string_view Begin;
  std::string_view Undo;
  /// Ends what Undo leaves open; empty when it leaves nothing.
  std::string_view EndUndo;
  std::string_view Keep;
};

// clang-format off
constexpr TWholeStatements kWholeSqlite {"savepoint ZanSample", "rollback to ZanSample", "release ZanSample", "release ZanSample"};
constexpr TWholeStatements kWholeMariaDb{"start transaction",   "rollback",              "",                  "commit"};
// clang-format on

// The rows of a sample, all or none of them. The single statements of the writers run inside it.
class TWholeSample {
 public:
  explicit TWholeSample(TDatabase& database)
      : FDatabase(database),
        FStatements(database.Server() == TServerKind::Sqlite ? kWholeSqlite : kWholeMariaDb) {
    Execute(database, FStatements.Begin);
  }
  ~TWholeSample() {
    if (FKept) return;
    try {
      Execute(FDatabase, FStatements.Undo);
      if (!FStatements.EndUndo.empty()) Execute(FDatabase, FStatements.EndUndo);
    } catch (const zanrole::EDatabaseError&) {
      // The engine has taken everything back itself.
    }
  }
  TWholeSample(const TWholeSample&) = delete;
  TWholeSample& operator=(const TWholeSample&) = delete;
  void Keep() {
    Execute(FDatabase, FStatements.Keep);
    FKept = true;
  }

 private:
  TDatabase& FDatabase;
  const TWholeStatements& FStatements;
  bool FKept = false;
};

void CheckOptions(const TSampleOptions& options) {
  constexpr int kMostPeople = 1'000'000;
  if (options.People < kFewestPeople || options.People > kMostPeople)
    throw zanrole::EZanError(fmt::format("A sample company has {} to {} people, not {}.", kFewestPeople,
                                         kMostPeople, options.People));
  if (options.AdminPassword.empty())
    throw zanrole::EZanError("The sample company needs a password for its super user.");
}

void RefuseFilledDatabase(TDatabase& database) {
  for (const std::string_view table : kFilledTables) {
    const auto query = QueryOfTable(database, table);
    query->SQL().SetText(fmt::format("select 1 from {} limit 1", table));
    query->Open();
    if (!query->Eof())
      throw zanrole::EZanError(fmt::format(
          "The database holds data already (table {}); a sample company is made in an empty one only.",
          table));
  }
}

TSampleModel Build(const TSampleOptions& options) {
  TSampleModel model;
  TSampleRandom random(options.Seed);
  BuildOrganisation(model, random, options.People);
  DeriveNodes(model);
  BuildAccounts(model, random);
  BuildDomains(model, random);
  BuildMenus(model);
  BuildRights(model, random);
  // Once more: accounts and domains have added nodes.
  DeriveNodes(model);
  return model;
}

int CountNodes(const TSampleModel& model, TNodeKind kind) {
  return static_cast<int>(std::ranges::count(model.Nodes, kind, &TSampleNode::Kind));
}

std::string FirstLogin(const TSampleModel& model, int administrator) {
  const auto account = std::ranges::find_if(model.Accounts, [&](const TSampleAccount& candidate) {
    return !candidate.IsRole && !candidate.UnUsed && candidate.Administrator == administrator &&
           (administrator == 1 || candidate.Domain);
  });
  return account == model.Accounts.end() ? std::string() : account->UserID;
}

TSampleResult Summary(const TSampleModel& model) {
  TSampleResult result;
  result.Companies = CountNodes(model, TNodeKind::Company);
  result.Departments = CountNodes(model, TNodeKind::Department);
  result.Positions = CountNodes(model, TNodeKind::PositionEntity);
  result.People = static_cast<int>(model.People.size());
  result.Roles = static_cast<int>(std::ranges::count(model.Accounts, true, &TSampleAccount::IsRole));
  result.Users = static_cast<int>(model.Accounts.size()) - result.Roles;
  result.Domains = static_cast<int>(model.Domains.size());
  result.MenuEntries = static_cast<int>(model.Menus.size());
  result.Rights = static_cast<int>(model.Rights.size());
  result.AdminLogin = FirstLogin(model, /*administrator*/ 1);
  result.ManagerLogin = FirstLogin(model, /*administrator*/ 2);
  result.UserLogin = FirstLogin(model, /*administrator*/ 0);
  return result;
}

}  // namespace

TSampleResult MakeSample(TDatabase& database, const TSampleOptions& options) {
  CheckOptions(options);
  TWholeSample whole(database);
  // A statement that writes, and changes nothing, takes the lock: from here on nobody else fills the tables.
  Execute(database, "update ZanSchemaVersion set Version = Version");
  RefuseFilledDatabase(database);
  const TSampleModel model = Build(options);
  WriteSample(database, model, options.Cipher, options.AdminPassword);
  whole.Keep();
  return Summary(model);
}

}  // namespace zanhost
