#include "host/platform/SampleRights.h"

#include <set>

#include "host/platform/SampleAccounts.h"
#include "host/platform/SampleMenus.h"

namespace zanhost {

namespace {

constexpr std::string_view kExecute = "执行";

// clang-format off
constexpr std::string_view kDocumentWords[] = {"删除", "修改", "反审", "记账", "反记", "批审核"};
constexpr std::string_view kQueryWords[] = {"打印", "Excel导出", "显示方案"};
// clang-format on

// Which nodes of a menu are held; a node is held only with the nodes above it.
using THeld = std::vector<bool>;

// A menu as a tree of places: the place of the parent, -1 for a top.
using TParents = std::vector<int>;

TParents ParentsOf(const std::vector<TSampleMenu>& menus) {
  TParents parents;
  for (const TSampleMenu& menu : menus) parents.push_back(menu.Parent);
  return parents;
}

TParents ParentsOf(const std::vector<TSampleLink>& links) {
  TParents parents;
  for (const TSampleLink& link : links) parents.push_back(link.Parent < 1 ? -1 : link.Parent - 1);
  return parents;
}

// Some of what `limit` holds: whole branches fall away. Parents stand before their children.
THeld SomeOf(const TParents& parents, const THeld& limit, int percent, TSampleRandom& random) {
  THeld held(limit.size());
  for (std::size_t node = 0; node < limit.size(); ++node) {
    const bool above = parents[node] < 0 || held[static_cast<std::size_t>(parents[node])];
    held[node] = limit[node] && above && (parents[node] < 0 || random.Chance(percent));
  }
  return held;
}

class TRightsBuilder {
 public:
  TRightsBuilder(TSampleModel& model, TSampleRandom& random)
      : FModel(model),
        FRandom(random),
        FMenuParents(ParentsOf(model.Menus)),
        FWebParents(ParentsOf(model.WebLinks)),
        FOAParents(ParentsOf(model.OALinks)) {}

  void Build() {
    GiveDomains();
    for (const TSampleAccount& account : FModel.Accounts) {
      if (account.IsRole && account.Domain) GiveDomainRole(account);
      if (!account.IsRole && account.Administrator == 0) GiveUser(account);
    }
    GiveGlobalRoles();
  }

 private:
  void GiveDomains();
  void GiveDomainRole(const TSampleAccount& role);
  void GiveUser(const TSampleAccount& user);
  void GiveGlobalRoles();
  void AllowMenus(int holder, const THeld& held);
  void AllowPath(int holder, int node);
  void DenySomeOperations(int holder);

  const THeld& Above(const std::vector<THeld>& held, const TSampleDomain& domain, const THeld& all) const {
    return domain.Parent == kTopParent ? all : held[static_cast<std::size_t>(domain.Parent - 1)];
  }

  TSampleModel& FModel;
  TSampleRandom& FRandom;
  TParents FMenuParents;
  TParents FWebParents;
  TParents FOAParents;
  std::set<std::pair<int, int>> FAllowed;
  // By domain.
  std::vector<THeld> FMenus;
  std::vector<THeld> FWebLinks;
  std::vector<THeld> FOALinks;
};

void TRightsBuilder::GiveDomains() {
  const THeld allMenus(FMenuParents.size(), true);
  const THeld allWeb(FWebParents.size(), true);
  const THeld allOA(FOAParents.size(), true);
  for (const TSampleDomain& domain : FModel.Domains) {
    const int percent = domain.Parent == kTopParent ? 100 : 85;
    FMenus.push_back(SomeOf(FMenuParents, Above(FMenus, domain, allMenus), percent, FRandom));
    FWebLinks.push_back(SomeOf(FWebParents, Above(FWebLinks, domain, allWeb), percent, FRandom));
    FOALinks.push_back(SomeOf(FOAParents, Above(FOALinks, domain, allOA), percent, FRandom));
    for (std::size_t node = 0; node < FMenus.back().size(); ++node)
      if (FMenus.back()[node]) FModel.DomainMenus.emplace_back(domain.ID, FModel.Menus[node].NodeID);
    for (std::size_t link = 0; link < FWebLinks.back().size(); ++link)
      if (FWebLinks.back()[link]) FModel.DomainWebLinks.emplace_back(domain.ID, FModel.WebLinks[link].ID);
    for (std::size_t link = 0; link < FOALinks.back().size(); ++link)
      if (FOALinks.back()[link]) FModel.DomainOALinks.emplace_back(domain.ID, FModel.OALinks[link].ID);
  }
}

void TRightsBuilder::GiveDomainRole(const TSampleAccount& role) {
  constexpr int kHeldPercent = 70;
  const auto domain = static_cast<std::size_t>(*role.Domain - 1);
  AllowMenus(role.OID, SomeOf(FMenuParents, FMenus[domain], kHeldPercent, FRandom));
  DenySomeOperations(role.OID);
  const THeld web = SomeOf(FWebParents, FWebLinks[domain], kHeldPercent, FRandom);
  for (std::size_t link = 0; link < web.size(); ++link)
    if (web[link]) FModel.RoleWebLinks.emplace_back(role.OID, FModel.WebLinks[link].ID);
  const THeld office = SomeOf(FOAParents, FOALinks[domain], kHeldPercent, FRandom);
  for (std::size_t link = 0; link < office.size(); ++link)
    if (office[link]) FModel.RoleOALinks.emplace_back(role.OID, FModel.OALinks[link].ID);
}

// Few users have rights of their own: a menu more than their roles give, or one less.
void TRightsBuilder::GiveUser(const TSampleAccount& user) {
  constexpr int kOwnRightPercent = 4;
  if (!FRandom.Chance(kOwnRightPercent)) return;
  const int node = 1 + FRandom.Below(static_cast<int>(FModel.Menus.size()) - 1);
  if (FRandom.Chance(50)) {
    AllowPath(user.OID, node);
  } else {
    const int object = FModel.Menus[static_cast<std::size_t>(node)].ObjectID;
    FModel.Rights.push_back({user.OID, object, std::string(kExecute), 0});
  }
}

void TRightsBuilder::GiveGlobalRoles() {
  for (const TSampleMenu& menu : FModel.Menus)
    if (menu.Caption == "发文" || menu.Caption == "会议室预订" || menu.Caption == "请假")
      AllowPath(kEveryoneRole, menu.NodeID);
  AllowPath(kManagerRole, DomainConsoleNode(FModel));
  const THeld all(FMenuParents.size(), true);
  for (int role = kEveryoneRole + 1; role <= kLastGlobalRole; ++role) {
    AllowMenus(role, SomeOf(FMenuParents, all, 40, FRandom));
    DenySomeOperations(role);
  }
}

void TRightsBuilder::AllowMenus(int holder, const THeld& held) {
  for (std::size_t node = 0; node < held.size(); ++node) {
    const int object = FModel.Menus[node].ObjectID;
    if (held[node] && object > 0) FModel.Rights.push_back({holder, object, std::string(kExecute), 1});
  }
}

// A menu entry is reached only through the folders above it, which two entries may share.
// REQUIRES: all rights of `holder` come from here.
void TRightsBuilder::AllowPath(int holder, int node) {
  for (int id = node; id > 0; id = FModel.Menus[static_cast<std::size_t>(id)].Parent) {
    const int object = FModel.Menus[static_cast<std::size_t>(id)].ObjectID;
    if (FAllowed.emplace(holder, object).second)
      FModel.Rights.push_back({holder, object, std::string(kExecute), 1});
  }
}

// Operations of documents and queries are allowed unless a row denies them.
void TRightsBuilder::DenySomeOperations(int holder) {
  std::set<std::pair<int, std::string_view>> chosen;
  for (int count = 1 + FRandom.Below(4); count > 0; --count) {
    const TSampleObject& object = FRandom.Pick(FModel.Objects);
    const std::string_view word =
        object.TypeID == kTypeDocument ? FRandom.Pick(kDocumentWords) : FRandom.Pick(kQueryWords);
    if (chosen.emplace(object.ObjectID, word).second)
      FModel.Rights.push_back({holder, object.ObjectID, std::string(word), 0});
  }
}

}  // namespace

void BuildRights(TSampleModel& model, TSampleRandom& random) { TRightsBuilder(model, random).Build(); }

}  // namespace zanhost
