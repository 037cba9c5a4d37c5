#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zanhost {

/// Numbers that do not depend on the platform's library: equal seeds give equal samples everywhere.
class TSampleRandom {
 public:
  explicit TSampleRandom(unsigned seed) : FState(seed) {}
  /// REQUIRES: limit > 0. A number from 0 to limit - 1.
  int Below(int limit) { return static_cast<int>(Next() % static_cast<std::uint64_t>(limit)); }
  bool Chance(int percent) { return Below(100) < percent; }
  template <typename TList>
  const auto& Pick(const TList& list) {
    return list[static_cast<std::size_t>(Below(static_cast<int>(std::size(list))))];
  }

 private:
  // splitmix64
  std::uint64_t Next() {
    std::uint64_t mixed = (FState += 0x9E3779B97F4A7C15u);
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9u;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBu;
    return mixed ^ (mixed >> 31);
  }
  std::uint64_t FState;
};

// Special values that the tables share.
inline constexpr int kTopParent = -1;
inline constexpr int kRecycleBin = -9;
inline constexpr int kNoUpperPosition = -9;
inline constexpr int kSharedRolesDomain = -100;
inline constexpr int kNoOrganisation = -100;
inline constexpr int kTypeDocument = 1;
inline constexpr int kTypeQuery = 2;
inline constexpr int kTypeMenu = 7;
inline constexpr int kAdminOID = 1;

enum class TNodeKind { Company, Department, PositionEntity, User, UserGroup };

/// A row of PartyH. Its identity is its place in the model's list plus 1, and a parent stands before its
/// children.
struct TSampleNode {
  TNodeKind Kind = TNodeKind::Company;
  int DjLsh = 0;
  int Parent = kTopParent;
  std::string Name;
  std::string Title;
  std::string Code;
  int Sequence = 0;
  bool IsActive = true;
  std::optional<int> UserOID;
  std::optional<int> UserLsh;
  bool IsHeadPosition = false;
  std::optional<bool> IsMainPost;
  // Derived from Parent when the tree is complete.
  std::string LongName;
  std::string LongCode;
  std::string ParentPath;
  std::string FullName;
  int Level = 0;
  bool IsLastLevel = true;
};

/// A row of PositionEntityH; `Upper` is the node of the superior position.
struct TSamplePosition {
  int Node = 0;
  int Kind = 0;
  int Upper = kNoUpperPosition;
  bool IsManager = false;
};

struct TSamplePerson {
  int DjLsh = 0;
  std::string Name;
  std::string Login;
  /// The User nodes, main post first; empty for a person without a post.
  std::vector<int> Posts;
  /// 0 for a person without an account.
  int OID = 0;
};

/// A row of STUsers.
struct TSampleAccount {
  int OID = 0;
  bool IsRole = false;
  std::string UserID;
  std::string UserName;
  std::string UserDesc;
  std::string Categories;
  int Administrator = 0;
  bool UnUsed = false;
  bool EmpowermentRight = false;
  int Creator = kAdminOID;
  std::optional<int> RelateOrg;
  std::optional<int> RelateUserH;
  /// Index of the domain that owns the account; none for accounts outside all domains.
  std::optional<int> Domain;
};

/// A row of STDomains. Its identity is its place in the model's list plus 1.
struct TSampleDomain {
  int ID = 0;
  std::string Code;
  std::string Name;
  std::string Remark;
  int Parent = kTopParent;
  int Level = 0;
  int Sequence = 0;
  int ChildCount = 0;
  std::string FullName;
  std::string FullCode;
  std::string ParentCode;
  std::string ParentName;
  int UserLimit = 0;
  int RelateOrg = 0;
  /// OID of the manager that the domain owns; 0 for none.
  int Manager = 0;
};

struct TSampleMember {
  int DomainID = 0;
  int UserOID = 0;
  int MemberType = 0;
  int IsOwned = 0;
};

/// A row of Tree with its ObjectRegister row.
struct TSampleMenu {
  int NodeID = 0;
  int Parent = 0;
  int Level = 0;
  int Preceding = 0;
  std::string Caption;
  std::string Functions;
  int ObjectID = 0;
  bool NeedHide = false;
};

/// A document or query with its ObjectRegister row.
struct TSampleObject {
  int TypeID = kTypeDocument;
  int Code = 0;
  std::string Name;
  std::string Group;
  int ObjectID = 0;
};

/// A row of the web or office menu.
struct TSampleLink {
  int ID = 0;
  int Parent = 0;
  std::string Caption;
};

/// A row of STPermission.
struct TSampleRight {
  int Holder = 0;
  int ObjectID = 0;
  std::string Oprate;
  int Permission = 1;
};

/// The whole sample before it is written. Builders add to it in the order of the members.
struct TSampleModel {
  std::vector<TSampleNode> Nodes;
  std::vector<TSamplePosition> Positions;
  std::vector<TSamplePerson> People;
  std::vector<TSampleAccount> Accounts;
  /// Member and role.
  std::vector<std::pair<int, int>> Memberships;
  std::vector<TSampleDomain> Domains;
  std::vector<TSampleMember> Members;
  std::vector<TSampleMenu> Menus;
  std::vector<TSampleObject> Objects;
  std::vector<TSampleLink> WebLinks;
  std::vector<TSampleLink> OALinks;
  std::vector<TSampleRight> Rights;
  /// Domain and menu node, office link, web link.
  std::vector<std::pair<int, int>> DomainMenus;
  std::vector<std::pair<int, int>> DomainOALinks;
  std::vector<std::pair<int, int>> DomainWebLinks;
  /// Role and office link, web link.
  std::vector<std::pair<int, int>> RoleOALinks;
  std::vector<std::pair<int, int>> RoleWebLinks;

  TSampleNode& Node(int djLsh) { return Nodes[static_cast<std::size_t>(djLsh - 1)]; }
  TSampleDomain& Domain(int id) { return Domains[static_cast<std::size_t>(id - 1)]; }
  /// REQUIRES: accounts are numbered without gaps, as the builders do.
  TSampleAccount& Account(int oid) { return Accounts[static_cast<std::size_t>(oid - 1)]; }
  /// Appends a node, an account and gives it its identity. The reference lives until the next one.
  TSampleNode& AddNode(TNodeKind kind, int parent);
  TSampleAccount& AddAccount(bool isRole);
};

}  // namespace zanhost
