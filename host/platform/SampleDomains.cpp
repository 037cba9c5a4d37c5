#include "host/platform/SampleDomains.h"

#include <algorithm>
#include <deque>

#include <fmt/format.h>

#include "host/platform/SampleAccounts.h"
#include "host/platform/SampleNames.h"

namespace zanhost {

namespace {

constexpr int kUser = 0;
constexpr int kRole = 1;
constexpr int kManager = 2;
constexpr int kCreator = 3;

// clang-format off
constexpr std::string_view kLines[] = {"销售", "财务", "生产", "研发", "物流", "服务"};
constexpr std::string_view kRoleNames[] = {"业务员", "主管", "只读用户", "单据审核", "报表查询", "Data Entry"};
// clang-format on

class TDomainBuilder {
 public:
  TDomainBuilder(TSampleModel& model, TSampleRandom& random) : FModel(model), FRandom(random) {}

  void Build() {
    GrowTree();
    RelateOrganisation();
    PlaceAccounts();
    AddRoles();
    AddCreators();
    SetQuotas();
  }

 private:
  void GrowTree();
  bool AddChild(int parent);
  std::string NameOf(int parent, int slot);
  static int MostChildren(int level);
  void AddDomain(int parent, std::string name, int relateOrg);
  void RelateOrganisation();
  void PlaceAccounts();
  void MakeManager(TSampleAccount& account, int domain);
  void PlaceUser(TSampleAccount& account);
  int DomainWithoutManager();
  void AddRoles();
  void AddRole(int domain, std::string_view bare);
  void AddCreators();
  void SetQuotas();
  int NearestOrganisation(int domain);
  int NearestManager(int domain);

  TSampleModel& FModel;
  TSampleRandom& FRandom;
  std::vector<int> FCompanies;
  int FManagers = 0;
  int FUsers = 0;
};

void TDomainBuilder::GrowTree() {
  for (const TSampleNode& node : FModel.Nodes)
    if (node.Kind == TNodeKind::Company && node.Parent == kTopParent) FCompanies.push_back(node.DjLsh);
  const int wanted = std::clamp(static_cast<int>(FModel.People.size()) / 15, kDomainLevels + 1, 1200);
  for (const int company : FCompanies) AddDomain(kTopParent, FModel.Node(company).Title, company);
  // One line down to the last level first, then in breadth, until there are enough.
  for (int level = 1; level < kDomainLevels; ++level)
    AddChild(level == 1 ? 1 : static_cast<int>(FModel.Domains.size()));
  for (bool grown = true; grown;) {
    grown = false;
    const int parents = static_cast<int>(FModel.Domains.size());
    for (int parent = 1; parent <= parents; ++parent) {
      if (static_cast<int>(FModel.Domains.size()) >= wanted) return;
      grown = AddChild(parent) || grown;
    }
  }
}

int TDomainBuilder::MostChildren(int level) {
  constexpr int kMost[kDomainLevels] = {7, 6, 6, 4, 0};
  return kMost[level];
}

bool TDomainBuilder::AddChild(int parent) {
  const TSampleDomain& domain = FModel.Domain(parent);
  if (domain.ChildCount >= MostChildren(domain.Level)) return false;
  AddDomain(parent, NameOf(parent, domain.ChildCount), 0);
  return true;
}

std::string TDomainBuilder::NameOf(int parent, int slot) {
  const TSampleDomain& domain = FModel.Domain(parent);
  const auto place = static_cast<std::size_t>(slot);
  switch (domain.Level) {
    case 0:
      return fmt::format("{}大区", RegionNames()[place].Name);
    case 1:
      return fmt::format("{}分公司",
                         RegionNames()[static_cast<std::size_t>(domain.Sequence - 1)].Cities[place]);
    case 2:
      return fmt::format("{}业务", kLines[place]);
    default:
      return fmt::format("{}{}", domain.Name, GroupNames()[place]);
  }
}

void TDomainBuilder::AddDomain(int parent, std::string name, int relateOrg) {
  TSampleDomain domain;
  domain.ID = static_cast<int>(FModel.Domains.size()) + 1;
  domain.Name = std::move(name);
  domain.Parent = parent;
  domain.RelateOrg = relateOrg;
  domain.ParentCode = "\\";
  domain.ParentName = "\\";
  std::string codeOfParent = "Y";
  if (parent == kTopParent) {
    domain.Sequence = static_cast<int>(FModel.Domains.size()) + 1;
  } else {
    TSampleDomain& above = FModel.Domain(parent);
    domain.Sequence = ++above.ChildCount;
    domain.Level = above.Level + 1;
    domain.ParentCode = above.FullCode;
    domain.ParentName = above.FullName + "\\";
    codeOfParent = above.Code;
  }
  domain.Code = fmt::format("{}{:02}", codeOfParent, domain.Sequence);
  domain.FullName = domain.ParentName + domain.Name;
  domain.FullCode = fmt::format("{}{}\\", domain.ParentCode, domain.ID);
  FModel.Domains.push_back(std::move(domain));
}

// Some domains below the top cover a department of their company.
void TDomainBuilder::RelateOrganisation() {
  std::vector<std::deque<int>> departments(FModel.Nodes.size() + 1);
  for (const TSampleNode& node : FModel.Nodes)
    if (node.Kind == TNodeKind::Department)
      departments[static_cast<std::size_t>(node.Parent)].push_back(node.DjLsh);
  for (TSampleDomain& domain : FModel.Domains) {
    if (domain.Level == 0) continue;
    const int above = FModel.Domain(domain.Parent).RelateOrg;
    auto& free = departments[static_cast<std::size_t>(above)];
    if (above == 0 || free.empty() || domain.Sequence % 2 == 0) continue;
    domain.RelateOrg = free.front();
    free.pop_front();
    domain.Remark = fmt::format("对应{}", FModel.Node(domain.RelateOrg).Name);
  }
}

// The first person who may log in manages the first top domain and the next one is a user of some domain,
// so that every sample has both.
void TDomainBuilder::PlaceAccounts() {
  constexpr int kOutsidePercent = 6;
  constexpr int kManagerPercent = 5;
  for (TSampleAccount& account : FModel.Accounts) {
    if (account.IsRole || account.Administrator != 0) continue;
    const bool manages = FManagers == 0 || (!account.UnUsed && FRandom.Chance(kManagerPercent));
    const int unmanaged = manages ? DomainWithoutManager() : 0;
    if (unmanaged != 0)
      MakeManager(account, unmanaged);
    else if (FUsers == 0 || !FRandom.Chance(kOutsidePercent))
      PlaceUser(account);
  }
}

int TDomainBuilder::DomainWithoutManager() {
  const auto free = std::ranges::find_if(
      FModel.Domains, [](const TSampleDomain& domain) { return domain.Manager == 0 && domain.Level < 3; });
  return free == FModel.Domains.end() ? 0 : free->ID;
}

// Every fourth manager has a second domain in his range; every ninth was imported and has no range yet.
void TDomainBuilder::MakeManager(TSampleAccount& account, int domain) {
  ++FManagers;
  account.Administrator = 2;
  account.Domain = domain;
  FModel.Domain(domain).Manager = account.OID;
  FModel.Memberships.emplace_back(account.OID, kManagerRole);
  FModel.Members.push_back({domain, account.OID, kManager, 1});
  if (FManagers % 9 == 0) return;
  FModel.Members.push_back({domain, account.OID, kManager, 0});
  const int other = FManagers % 4 == 0 ? FRandom.Below(static_cast<int>(FModel.Domains.size())) + 1 : domain;
  if (other != domain) FModel.Members.push_back({other, account.OID, kManager, 0});
}

void TDomainBuilder::PlaceUser(TSampleAccount& account) {
  constexpr int kSecondDomainPercent = 15;
  constexpr int kEmpoweredPercent = 3;
  const int domains = static_cast<int>(FModel.Domains.size());
  const int domain = FRandom.Below(domains) + 1;
  ++FUsers;
  account.Domain = domain;
  FModel.Members.push_back({domain, account.OID, kUser, 1});
  FModel.Members.push_back({domain, account.OID, kUser, 0});
  const int other = FRandom.Chance(kSecondDomainPercent) ? FRandom.Below(domains) + 1 : domain;
  if (other != domain) FModel.Members.push_back({other, account.OID, kUser, 0});
  if (!FRandom.Chance(kEmpoweredPercent)) return;
  account.EmpowermentRight = true;
  FModel.Memberships.emplace_back(account.OID, kEmpowermentRole);
}

void TDomainBuilder::AddRoles() {
  std::vector<std::vector<int>> roles(FModel.Domains.size() + 1);
  const int people = static_cast<int>(FModel.Accounts.size());
  for (int id = 1; id <= static_cast<int>(FModel.Domains.size()); ++id) {
    const int first = FRandom.Below(static_cast<int>(std::size(kRoleNames)));
    const int count = 1 + FRandom.Below(2);
    for (int slot = 0; slot < count; ++slot) {
      AddRole(id, kRoleNames[static_cast<std::size_t>(first + slot) % std::size(kRoleNames)]);
      roles[static_cast<std::size_t>(id)].push_back(FModel.Accounts.back().OID);
    }
  }
  for (int oid = 1; oid <= people; ++oid) {
    const TSampleAccount& account = FModel.Account(oid);
    if (account.IsRole || !account.Domain || account.Administrator != 0) continue;
    FModel.Memberships.emplace_back(oid, FRandom.Pick(roles[static_cast<std::size_t>(*account.Domain)]));
  }
}

void TDomainBuilder::AddRole(int domain, std::string_view bare) {
  TSampleAccount& role = FModel.AddAccount(/*isRole*/ true);
  role.UserID = fmt::format("\\\\{}", bare);
  role.UserName = fmt::format("{}\\{}", FModel.Domain(domain).FullName, bare);
  role.UserDesc = fmt::format("域角色：{}", bare);
  role.Domain = domain;
  const int manager = NearestManager(domain);
  role.Creator = manager == 0 ? kAdminOID : manager;
  const int oid = role.OID;
  FModel.Members.push_back({domain, oid, kRole, 1});
  MirrorRole(FModel, oid, NearestOrganisation(domain));
}

int TDomainBuilder::NearestOrganisation(int domain) {
  for (int id = domain; id != kTopParent; id = FModel.Domain(id).Parent)
    if (FModel.Domain(id).RelateOrg > 0) return FModel.Domain(id).RelateOrg;
  return kNoOrganisation;
}

int TDomainBuilder::NearestManager(int domain) {
  for (int id = domain; id != kTopParent; id = FModel.Domain(id).Parent)
    if (FModel.Domain(id).Manager != 0) return FModel.Domain(id).Manager;
  return 0;
}

// The super user made the top; whoever manages the domain above made the others.
void TDomainBuilder::AddCreators() {
  for (const TSampleDomain& domain : FModel.Domains) {
    const int manager = domain.Parent == kTopParent ? 0 : NearestManager(domain.Parent);
    FModel.Members.push_back({domain.ID, manager == 0 ? kAdminOID : manager, kCreator, 1});
  }
}

// A quota counts owned users and managers of a domain and all below it. Some domains are full to the last.
void TDomainBuilder::SetQuotas() {
  constexpr int kWithQuotaPercent = 40;
  constexpr int kFullPercent = 10;
  constexpr int kHighestQuota = 10000;
  std::vector<int> used(FModel.Domains.size() + 1);
  for (const TSampleMember& member : FModel.Members) {
    const bool counts = member.IsOwned == 1 && (member.MemberType == kUser || member.MemberType == kManager);
    if (!counts) continue;
    for (int id = member.DomainID; id != kTopParent; id = FModel.Domain(id).Parent)
      ++used[static_cast<std::size_t>(id)];
  }
  for (TSampleDomain& domain : FModel.Domains) {
    if (!FRandom.Chance(kWithQuotaPercent)) continue;
    const int count = used[static_cast<std::size_t>(domain.ID)];
    const int room = FRandom.Chance(kFullPercent) ? 0 : 5 + FRandom.Below(20);
    if (count + room <= kHighestQuota) domain.UserLimit = std::max(count + room, 1);
  }
}

}  // namespace

void BuildDomains(TSampleModel& model, TSampleRandom& random) { TDomainBuilder(model, random).Build(); }

}  // namespace zanhost
