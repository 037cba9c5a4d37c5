#include "host/platform/SampleAccounts.h"

#include "host/platform/SampleNames.h"

namespace zanhost {

namespace {

constexpr std::string_view kDomainRoleMark = "\\\\";

struct TGlobalRole {
  std::string_view Name;
  std::string_view Description;
  bool Shared;
};

// clang-format off
constexpr TGlobalRole kGlobalRoles[] = {
    {"全体员工", "所有员工的基本权限", true},
    {"财务审核员", "财务单据的审核与记账", false},
    {"销售浏览", "只能浏览销售单据", true},
    {"Auditors", "Read-only access for the external auditors", true},
    {"IT Support", "系统支持人员", false},
};
// clang-format on
static_assert(kFirstGlobalRole + std::size(kGlobalRoles) - 1 == kLastGlobalRole);

void AddAdmin(TSampleModel& model) {
  TSampleAccount& admin = model.AddAccount(/*isRole*/ false);
  admin.UserID = "admin";
  admin.UserName = "系统管理员";
  admin.UserDesc = "超级用户";
  admin.Administrator = 1;
}

void AddSpecialRoles(TSampleModel& model) {
  TSampleAccount& managers = model.AddAccount(/*isRole*/ true);
  managers.UserID = "域管理员";
  managers.UserName = "域管理员";
  managers.UserDesc = "勿修改，勿删除，勿停用！";
  managers.Administrator = 2;

  TSampleAccount& empowered = model.AddAccount(/*isRole*/ true);
  empowered.UserID = "EmpowermentRightRole";
  empowered.UserName = "拥有授权权的用户";
  empowered.UserDesc = "不要修改，不要删除，不要停用！";
  empowered.Administrator = 3;
}

void AddGlobalRoles(TSampleModel& model) {
  for (const TGlobalRole& global : kGlobalRoles) {
    TSampleAccount& role = model.AddAccount(/*isRole*/ true);
    role.UserName = global.Name;
    role.UserDesc = global.Description;
    if (global.Shared) model.Members.push_back({kSharedRolesDomain, role.OID, 1, 1});
    MirrorRole(model, role.OID, kNoOrganisation);
  }
}

// A person's account is tied to all of his nodes by its login, and to the main post by identity for some.
void AddAccountOf(TSampleModel& model, TSampleRandom& random, TSamplePerson& person) {
  constexpr int kLinkedPercent = 60;
  constexpr int kDisabledPercent = 2;
  TSampleAccount& account = model.AddAccount(/*isRole*/ false);
  account.UserID = person.Login;
  account.UserName = person.Name;
  person.OID = account.OID;
  const TSampleNode& position = model.Node(model.Node(person.Posts.front()).Parent);
  account.UserDesc = position.Name;
  account.Categories = model.Node(position.Parent).Name;
  account.UnUsed = person.DjLsh > 3 && random.Chance(kDisabledPercent);
  if (random.Chance(kLinkedPercent)) {
    account.RelateOrg = person.Posts.front();
    account.RelateUserH = person.DjLsh;
  }
  for (const int post : person.Posts) model.Node(post).UserOID = account.OID;
  model.Memberships.emplace_back(account.OID, kEveryoneRole);
  if (random.Chance(4)) model.Memberships.emplace_back(account.OID, kEveryoneRole + 1 + random.Below(4));
}

// The first three people have accounts whatever the chance says: the smallest sample works too.
void AddPeopleAccounts(TSampleModel& model, TSampleRandom& random) {
  constexpr int kWithoutAccountPercent = 4;
  for (TSamplePerson& person : model.People) {
    const bool hasPost = !person.Posts.empty();
    if (hasPost && (person.DjLsh <= 3 || !random.Chance(kWithoutAccountPercent)))
      AddAccountOf(model, random, person);
  }
}

// Head positions have a role of their own, which whoever holds the position belongs to.
void AddPositionRoles(TSampleModel& model) {
  for (const TSamplePosition& position : model.Positions) {
    if (!position.IsManager) continue;
    TSampleAccount& role = model.AddAccount(/*isRole*/ true);
    TSampleNode& node = model.Node(position.Node);
    role.UserName = node.FullName;
    role.UserDesc = "岗位角色";
    node.UserOID = role.OID;
  }
  for (const TSampleNode& node : model.Nodes) {
    if (node.Kind != TNodeKind::User || node.Parent < 1 || !node.UserOID) continue;
    const std::optional<int> role = model.Node(node.Parent).UserOID;
    if (role) model.Memberships.emplace_back(*node.UserOID, *role);
  }
}

// The head of a company's first department also manages the company: a node of his below the company.
void AddCompanyManagers(TSampleModel& model) {
  std::vector<std::pair<int, int>> managers;
  for (const TSamplePerson& person : model.People) {
    if (person.OID == 0) continue;
    const TSampleNode& position = model.Node(model.Node(person.Posts.front()).Parent);
    const TSampleNode& department = model.Node(position.Parent);
    const bool isFirst = department.Sequence == 1 && position.IsHeadPosition;
    if (isFirst && model.Node(department.Parent).Kind == TNodeKind::Company)
      managers.emplace_back(person.DjLsh, department.Parent);
  }
  for (const auto& [number, company] : managers) {
    TSamplePerson& person = model.People[static_cast<std::size_t>(number - 1)];
    TSampleNode& node = model.AddNode(TNodeKind::User, company);
    node.Name = person.Name;
    node.Title = person.Name;
    node.Code = person.Login;
    node.Sequence = 1;
    node.UserOID = person.OID;
    node.UserLsh = person.DjLsh;
    node.IsMainPost = false;
  }
}

}  // namespace

std::string BareRoleName(const TSampleAccount& role) {
  if (role.UserID.starts_with(kDomainRoleMark)) return role.UserID.substr(kDomainRoleMark.size());
  return role.UserID.empty() ? role.UserName : role.UserID;
}

void MirrorRole(TSampleModel& model, int role, int organisation) {
  TSampleNode& node = model.AddNode(TNodeKind::UserGroup, organisation);
  TSampleAccount& account = model.Account(role);
  const std::string bare = BareRoleName(account);
  node.Name = account.UserName;
  node.Title = bare;
  node.Code = bare;
  account.RelateOrg = node.DjLsh;
}

void BuildAccounts(TSampleModel& model, TSampleRandom& random) {
  AddAdmin(model);
  AddSpecialRoles(model);
  AddGlobalRoles(model);
  AddPeopleAccounts(model, random);
  AddPositionRoles(model);
  AddCompanyManagers(model);
}

}  // namespace zanhost
