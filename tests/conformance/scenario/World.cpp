#include "tests/conformance/scenario/World.h"

#include <functional>
#include <map>

#include "tests/conformance/scenario/Options.h"

namespace zantest {

namespace {

constexpr int kNoDomainAbove = -1;

/// Splits the path of a domain's ancestors, "9001,9002,".
std::vector<int> Identities(std::string_view path) {
  std::vector<int> identities;
  for (std::size_t end = path.find(','); end != std::string_view::npos; end = path.find(',')) {
    identities.push_back(std::stoi(std::string(path.substr(0, end))));
    path.remove_prefix(end + 1);
  }
  return identities;
}

}  // namespace

bool TScenarioWorld::Add(const TOutlineLine& line) {
  const std::map<std::string_view, std::function<void()>> makers{
      {"organisation", [&] { FOrganisation.AddNodes(line); }},
      {"detached", [&] { FOrganisation.AddDetached(line); }},
      {"kind", [&] { FOrganisation.AddKind(line); }},
      {"map", [&] { FOrganisation.AddMap(line); }},
      {"account", [&] { FOrganisation.AddAccount(line, /*isRole*/ false); }},
      {"role", [&] { AddRole(line); }},
      {"object", [&] { AddObject(line); }},
      {"rights", [&] { AddRights(line); }},
      {"domain", [&] { AddDomain(line, {}, kNoDomainAbove); }},
  };
  const auto maker = makers.find(line.Words.front());
  if (maker == makers.end()) return false;
  maker->second();
  return true;
}

void TScenarioWorld::AddText(std::string_view text) {
  for (const TOutlineLine& line : ReadOutline("(test)", text).Below) {
    if (!Add(line)) throw line.Error("this tells nothing about the world");
  }
  Flush();
}

// Roles and rights.

void TScenarioWorld::AddRole(const TOutlineLine& line) {
  const int role = FOrganisation.AddAccount(line, /*isRole*/ true);
  for (const TOutlineLine& member : line.Below) {
    const TOptions none(member, 1, {});
    const int account = FNumbers.Find(member, member.Words.front(), "account");
    FRows.Insert("STUserGroup", {{"UserID", account}, {"GroupID", role}});
  }
}

void TScenarioWorld::AddObject(const TOutlineLine& line) {
  constexpr std::pair<std::string_view, int> kTypes[] = {{"document", 1}, {"query", 2}, {"menu", 7}};
  const std::string& name = line.Word(2, "the name of the object");
  for (const auto& [word, type] : kTypes) {
    if (line.Word(1, "document, query or menu") != word) continue;
    const int object = ++FLastObject;
    FNumbers.Name(line, name, object);
    FRows.InsertIntoSystem("ObjectRegister",
                           {{"ObjectID", object}, {"TypeID", type}, {"Object", name}, {"OwnerID", 0}});
    return;
  }
  throw line.Error("\"" + line.Words[1] + "\" is no document, query or menu");
}

void TScenarioWorld::AddRights(const TOutlineLine& line) {
  const int holder = FNumbers.Find(line, line.Word(1, "the login of an account or role"), "account or role");
  for (const TOutlineLine& right : line.Below) {
    const TOptions none(right, 3, {});
    const std::string& verb = right.Words.front();
    if (verb != "allow" && verb != "deny") throw right.Error("a right begins with allow or deny");
    FRows.Insert("STPermission",
                 {{"UserID", holder},
                  {"ObjectID", FNumbers.Find(right, right.Word(2, "the name of the object"), "object")},
                  {"Oprate", right.Word(1, "the operation")},
                  {"Permission", verb == "allow" ? 1 : 0}});
  }
}

// Domains.

void TScenarioWorld::AddDomain(const TOutlineLine& line, const std::string& parentPath, int parent) {
  const TOptions none(line, 3, {});
  const std::string& code = line.Word(1, "the code");
  const std::string& name = line.Word(2, "the name");
  const int domain = ++FLastDomain;
  const std::string path = parentPath + std::to_string(domain) + ",";
  FNumbers.Name(line, code, domain);
  FRows.Insert("STDomains",
               {{"ID", domain}, {"Code", code}, {"Name", name}, {"ParentID", parent}, {"UserLimit", 0}});
  for (const int ancestor : Identities(path))
    FRows.Insert("STDomainInherits", {{"AncestorID", ancestor}, {"DescendantID", domain}});
  for (const TOutlineLine& below : line.Below) {
    if (below.Words.front() == "domain")
      AddDomain(below, path, domain);
    else
      AddMember(below, domain);
  }
}

void TScenarioWorld::AddMember(const TOutlineLine& line, int domain) {
  struct TMembership {
    int MemberType;
    int IsOwned;
  };
  const std::map<std::string_view, TMembership> memberships{
      {"member", {0, 1}},  {"reached-by", {0, 0}},         {"role", {1, 1}},
      {"manager", {2, 1}}, {"reached-by-manager", {2, 0}}, {"creator", {3, 1}}};
  const TOptions none(line, 2, {});
  const auto membership = memberships.find(line.Words.front());
  if (membership == memberships.end())
    throw line.Error("\"" + line.Words.front() + "\" is no way to belong to a domain");
  const int account = FNumbers.Find(line, line.Word(1, "a login"), "account or role");
  const auto [memberType, isOwned] = membership->second;
  FRows.Insert(
      "STDomainMembers",
      {{"DomainID", domain}, {"UserOID", account}, {"MemberType", memberType}, {"IsOwned", isOwned}});
  if (memberType == 2)
    FRows.Run("update STUsers set IsAdministrator = 2 where OID = " + std::to_string(account));
}

}  // namespace zantest
